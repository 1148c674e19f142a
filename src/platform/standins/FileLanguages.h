#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "platform/FileStore.h"
#include "platform/Languages.h"
#include "platform/standins/StringTableFile.h"

namespace dialwright {

/// Language libraries read out of their files, and the languages' names out of a table of our own:
/// what stands in for the system's calls where there are none.
class FileLanguages : public Languages {
 public:
  FileLanguages(FileStore& fileStore, std::int32_t userLanguage)
      : defaultLanguage(userLanguage), store(fileStore) {}

  LibraryHandle LoadLibraryExW(std::string_view path, unsigned flags) override;
  void FreeLibrary(LibraryHandle library) override;
  std::string LoadStringW(LibraryHandle library, int number, int size) override;
  std::int32_t GetUserDefaultLangID() override { return defaultLanguage; }
  std::optional<std::string> GetLocaleInfoA(std::int32_t language, int information) override;
  std::optional<std::string> VerLanguageNameA(std::int32_t language) override;

  std::int32_t defaultLanguage;

 private:
  FileStore& store;
  std::map<LibraryHandle, StringTableFile> libraries;
  LibraryHandle nextHandle = 1;
};

}  // namespace dialwright
