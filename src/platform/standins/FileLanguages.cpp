#include "platform/standins/FileLanguages.h"

#include "platform/Failure.h"
#include "platform/standins/LocaleTable.h"
#include "text/Text.h"

namespace dialwright {

namespace {

constexpr int abbreviatedLanguageName = 3;

}  // namespace

LibraryHandle FileLanguages::LoadLibraryExW(std::string_view path, unsigned) {
  try {
    auto table = StringTableFile::Parse(store.Read(path));
    if (!table) return 0;
    libraries.emplace(nextHandle, *std::move(table));
    return nextHandle++;
  } catch (const RuntimeFailure&) {
    return 0;
  }
}

void FileLanguages::FreeLibrary(LibraryHandle library) { libraries.erase(library); }

std::string FileLanguages::LoadStringW(LibraryHandle library, int number, int size) {
  const auto table = libraries.find(library);
  if (table == libraries.end()) return {};
  const std::string text = table->second.Find(number).value_or("");
  return std::string(FirstCharacters(text, static_cast<std::size_t>(size)));
}

std::optional<std::string> FileLanguages::GetLocaleInfoA(std::int32_t language, int information) {
  if (information != abbreviatedLanguageName) return {};
  const auto row = FindLocale(language == 0 ? defaultLanguage : language);
  if (!row) return {};
  return std::string(row->code);
}

std::optional<std::string> FileLanguages::VerLanguageNameA(std::int32_t language) {
  const auto row = FindLocale(language);
  if (!row) return {};
  return std::string(row->name);
}

}  // namespace dialwright
