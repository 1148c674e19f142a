#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace dialwright {

/// A loaded language library; 0 is none.
using LibraryHandle = std::intptr_t;

/// Language libraries and the system's language names.
class Languages {
 public:
  virtual ~Languages() = default;
  /// Loads a library's resources; 0 when it cannot be loaded.
  virtual LibraryHandle LoadLibraryExW(std::string_view path, unsigned flags) = 0;
  virtual void FreeLibrary(LibraryHandle library) = 0;
  /// A text of the library's string table, cut to `size` characters; empty when there is none.
  virtual std::string LoadStringW(LibraryHandle library, int number, int size) = 0;
  virtual std::int32_t GetUserDefaultLangID() = 0;
  /// A text of locale information (3 is the abbreviated language name), for language 0 that of the
  /// user's default; nothing for a language that the system does not know.
  virtual std::optional<std::string> GetLocaleInfoA(std::int32_t language, int information) = 0;
  /// The system's name of a language; nothing when it has none.
  virtual std::optional<std::string> VerLanguageNameA(std::int32_t language) = 0;
};

}  // namespace dialwright
