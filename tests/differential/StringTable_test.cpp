// The reader of string tables against the system's own, over every library that it ships.

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <vector>

#include "platform/StringTableFile.h"
#include "platform/Win32Text.h"

namespace dialwright {
namespace {

namespace fs = std::filesystem;

constexpr int blockStrings = 16;

std::string ReadFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

fs::path SystemFolder() {
  wchar_t path[MAX_PATH] = {};
  GetSystemDirectoryW(path, MAX_PATH);
  return path;
}

const LPWSTR stringType = MAKEINTRESOURCEW(6);

/// The language in which a block is read here: the neutral one, else the first.
WORD ReadLanguage(HMODULE module, int block) {
  std::vector<WORD> languages;
  const auto collect = [](HMODULE, LPCWSTR, LPCWSTR, WORD language, LONG_PTR list) -> BOOL {
    reinterpret_cast<std::vector<WORD>*>(list)->push_back(language);
    return TRUE;
  };
  EnumResourceLanguagesW(module, stringType, MAKEINTRESOURCEW(block), collect,
                         reinterpret_cast<LONG_PTR>(&languages));
  for (const WORD language : languages) {
    if (language == 0) return 0;
  }
  return languages.empty() ? WORD{0} : languages.front();
}

struct TheirStrings {
  std::map<int, std::string> all;  // by number
  std::size_t loaded = 0;          // by LoadStringW; the others out of the blocks that were loaded
};

std::string Loaded(HMODULE module, int number) {
  const wchar_t* text = nullptr;
  const int length =
      LoadStringW(module, static_cast<UINT>(number), reinterpret_cast<LPWSTR>(&text), 0);
  return length <= 0 ? "" : NarrowText({text, static_cast<std::size_t>(length)});
}

/// Makes a language the thread's own. The call for that would put a country to a language without
/// one.
void UseLanguage(WORD language) {
  const DWORD locale = language;
  __asm__ volatile("movl %0, %%gs:0x108" : : "r"(locale));
}

/// All strings of a library, as the system finds them. Of a library in many languages it loads the
/// thread's; where it prefers another all the same, the block of the language is asked for.
TheirStrings LoadStrings(HMODULE module) {
  TheirStrings strings;
  for (int block = 1; block <= 0x10000 / blockStrings; ++block) {
    const WORD language = ReadLanguage(module, block);
    if (language != 0) UseLanguage(language);
    const HRSRC preferred = FindResourceW(module, MAKEINTRESOURCEW(block), stringType);
    if (preferred == nullptr) continue;
    const HRSRC read = FindResourceExW(module, stringType, MAKEINTRESOURCEW(block), language);
    auto* text = static_cast<const wchar_t*>(LockResource(LoadResource(module, read)));
    for (int i = 0; i < blockStrings; ++i) {
      const int number = (block - 1) * blockStrings + i;
      const std::size_t length = *text++;
      const bool byCall = read == preferred;
      std::string string = byCall ? Loaded(module, number) : NarrowText({text, length});
      text += length;
      if (string.empty()) continue;
      strings.all[number] = std::move(string);
      strings.loaded += byCall ? 1 : 0;
    }
  }
  return strings;
}

std::map<int, std::string> OurStrings(const StringTableFile& file) {
  std::map<int, std::string> strings;
  for (int number = 0; number <= 0xFFFF; ++number) {
    if (auto text = file.find(number)) strings[number] = *std::move(text);
  }
  return strings;
}

TEST(StringTableTest, EveryLibraryOfTheSystem) {
  std::size_t libraries = 0;
  std::size_t withStrings = 0;
  std::size_t strings = 0;
  std::size_t loaded = 0;
  for (const auto& entry : fs::directory_iterator(SystemFolder())) {
    if (!entry.is_regular_file()) continue;
    constexpr DWORD dataFileUnresolved = 3;
    const HMODULE module = LoadLibraryExW(entry.path().c_str(), nullptr, dataFileUnresolved);
    const auto file = StringTableFile::parse(ReadFile(entry.path()));
    const std::string name = entry.path().filename().string();
    EXPECT_EQ(file.has_value(), module != nullptr) << name;
    if (!file || module == nullptr) continue;
    const TheirStrings theirs = LoadStrings(module);
    EXPECT_EQ(OurStrings(*file), theirs.all) << name;
    FreeLibrary(module);
    ++libraries;
    withStrings += theirs.all.empty() ? 0 : 1;
    strings += theirs.all.size();
    loaded += theirs.loaded;
  }
  EXPECT_GT(withStrings, 20u);
  EXPECT_GT(loaded, 100u);
  std::printf("%zu strings (%zu by LoadStringW) of %zu libraries, out of %zu\n", strings, loaded,
              withStrings, libraries);
}

}  // namespace
}  // namespace dialwright
