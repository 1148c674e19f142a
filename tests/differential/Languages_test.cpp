// The names and codes of languages, and the reader of string tables over every library of the
// system, against the system's own.

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <optional>
#include <vector>

#include "TempFolder.h"
#include "language/modLocalize.h"
#include "platform/standins/LocaleTable.h"
#include "platform/standins/StringTableFile.h"
#include "platform/win32/LanguagesWin32.h"
#include "platform/win32/Win32Text.h"

namespace dialwright {
namespace {

namespace fs = std::filesystem;

std::string DisplayName(std::int32_t language) {
  constexpr LCTYPE englishDisplayName = 0x72;
  wchar_t name[256] = {};
  GetLocaleInfoW(static_cast<LCID>(language), englishDisplayName, name, 256);
  return NarrowText(name);
}

// What the table calls as Windows servers do, and the system that the tests run under by a newer
// list.
const std::map<std::int32_t, std::string> newerNames = {
    {1027, "Catalan (Spain)"},
    {1029, "Czech (Czechia)"},
    {1034, "Spanish (Spain)"},
    {1044, "Norwegian Bokm\u00E5l (Norway)"},
    {1069, "Basque (Spain)"},
    {2068, "Norwegian Nynorsk (Norway)"},
    {3076, "Chinese (Traditional, Hong Kong SAR China)"},
    {3082, "Spanish (Spain)"},
    {11273, "English (Trinidad & Tobago)"},
};

// The libraries for Hong Kong have always been called ZHT, which is not the system's code for it:
// there the choice of that library takes hold of none.
const std::map<std::int32_t, std::string> otherCodes = {{3076, "ZHH"}};

std::string Expected(const std::map<std::int32_t, std::string>& others, std::int32_t language,
                     std::string_view usual) {
  const auto other = others.find(language);
  return other == others.end() ? std::string(usual) : other->second;
}

TEST(LanguagesTest, CodesNamesAndIds) {
  LanguagesWin32 theirs;
  int known = 0;
  for (const LocaleRow& row : Locales()) {
    const auto code = [&](std::int32_t id) {
      return theirs.GetLocaleInfoA(id, 3).value_or("none");
    };
    EXPECT_EQ(code(row.id), Expected(otherCodes, row.id, row.code));
    EXPECT_EQ(DisplayName(row.id), Expected(newerNames, row.id, row.name)) << row.id;
    const std::int32_t id = GetLanguageId(row.code);
    if (id == 1033 && row.id != 1033) continue;
    EXPECT_EQ(code(id), Expected(otherCodes, id, row.code));
    ++known;
  }
  EXPECT_GT(known, 40);
}

const LPWSTR stringType = MAKEINTRESOURCEW(6);

/// Makes the language in which a block is read here the thread's own: the neutral one, else the
/// first. The call for that would put a country to a language without one.
void UseReadLanguage(HMODULE module, int block) {
  std::vector<WORD> languages;
  const auto collect = [](HMODULE, LPCWSTR, LPCWSTR, WORD language, LONG_PTR list) -> BOOL {
    reinterpret_cast<std::vector<WORD>*>(list)->push_back(language);
    return TRUE;
  };
  EnumResourceLanguagesW(module, stringType, MAKEINTRESOURCEW(block), collect,
                         reinterpret_cast<LONG_PTR>(&languages));
  if (languages.empty() || std::ranges::count(languages, WORD{0}) > 0) return;
  const DWORD locale = languages.front();
  __asm__ volatile("movl %0, %%gs:0x108" : : "r"(locale));
}

/// How many strings both find in a library; a failure where they differ.
int SameStrings(HMODULE module, const StringTableFile& file, const std::string& name) {
  int strings = 0;
  for (int number = 0; number <= 0xFFFF; ++number) {
    if (number % 16 == 0) UseReadLanguage(module, number / 16 + 1);
    const wchar_t* text = nullptr;
    const int length =
        LoadStringW(module, static_cast<UINT>(number), reinterpret_cast<LPWSTR>(&text), 0);
    std::optional<std::string> theirs;
    if (length > 0) theirs = NarrowText({text, static_cast<std::size_t>(length)});
    if (file.Find(number) != theirs) ADD_FAILURE() << name << " " << number;
    if (theirs) ++strings;
  }
  return strings;
}

TEST(LanguagesTest, EveryLibraryOfTheSystem) {
  wchar_t system[MAX_PATH] = {};
  GetSystemDirectoryW(system, MAX_PATH);
  const TempFolder folder;
  LanguagesWin32 languages;
  int libraries = 0;
  int withStrings = 0;
  int strings = 0;
  for (const fs::directory_entry& entry : fs::directory_iterator(system)) {
    if (!entry.is_regular_file()) continue;
    fs::path path = entry.path();
    const std::string name = path.filename().string();
    const LibraryHandle handle = languages.LoadLibraryExW(path.make_preferred().string(), 3);
    const auto file = StringTableFile::Parse(folder.Read(path.string()));
    EXPECT_EQ(file.has_value(), handle != 0) << name;
    if (!file || handle == 0) continue;
    const int same = SameStrings(reinterpret_cast<HMODULE>(handle), *file, name);
    languages.FreeLibrary(handle);
    ++libraries;
    withStrings += same > 0 ? 1 : 0;
    strings += same;
  }
  EXPECT_GT(withStrings, 20);
  EXPECT_GT(strings, 100);
  std::printf("%d strings of %d libraries, out of %d\n", strings, withStrings, libraries);
}

}  // namespace
}  // namespace dialwright
