#pragma once

#include "platform/Languages.h"

namespace dialwright {

/// The resource loader and the language names of Windows.
class LanguagesWin32 : public Languages {
 public:
  LibraryHandle LoadLibraryExW(std::string_view path, unsigned flags) override;
  void FreeLibrary(LibraryHandle library) override;
  std::string LoadStringW(LibraryHandle library, int number, int size) override;
  std::int32_t GetUserDefaultLangID() override;
  std::optional<std::string> GetLocaleInfoA(std::int32_t language, int information) override;
  std::optional<std::string> VerLanguageNameA(std::int32_t language) override;
};

}  // namespace dialwright
