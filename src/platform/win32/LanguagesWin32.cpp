#include "platform/win32/LanguagesWin32.h"

#include <windows.h>

#include "platform/Failure.h"
#include "platform/win32/Win32Text.h"
#include "text/Ansi.h"
#include "text/Text.h"

namespace dialwright {
namespace {

constexpr int longestName = 256;

HMODULE Module(LibraryHandle library) { return reinterpret_cast<HMODULE>(library); }

}  // namespace

LibraryHandle LanguagesWin32::LoadLibraryExW(std::string_view path, unsigned flags) {
  try {
    return reinterpret_cast<LibraryHandle>(
        ::LoadLibraryExW(WidePath(path).c_str(), nullptr, flags));
  } catch (const RuntimeFailure&) {
    return 0;
  }
}

void LanguagesWin32::FreeLibrary(LibraryHandle library) {
  if (library != 0) ::FreeLibrary(Module(library));
}

std::string LanguagesWin32::LoadStringW(LibraryHandle library, int number, int size) {
  // Without a library the call would look into the program itself, and its number has 16 bits.
  if (library == 0 || number < 0 || number > 0xFFFF || size <= 0) return {};
  // With a size of 0 the call gives the text where it stands, whatever its length.
  const wchar_t* text = nullptr;
  const int length =
      ::LoadStringW(Module(library), static_cast<UINT>(number), reinterpret_cast<LPWSTR>(&text), 0);
  if (length <= 0) return {};
  const std::string whole = NarrowText({text, static_cast<std::size_t>(length)});
  return std::string(FirstCharacters(whole, static_cast<std::size_t>(size)));
}

std::int32_t LanguagesWin32::GetUserDefaultLangID() { return ::GetUserDefaultLangID(); }

std::optional<std::string> LanguagesWin32::GetLocaleInfoA(std::int32_t language, int information) {
  char text[longestName] = {};
  const int count = ::GetLocaleInfoA(static_cast<LCID>(language), static_cast<LCTYPE>(information),
                                     text, longestName);
  if (count <= 0) return std::nullopt;
  return AnsiToUtf8({text, static_cast<std::size_t>(count - 1)});
}

std::optional<std::string> LanguagesWin32::VerLanguageNameA(std::int32_t language) {
  char text[longestName + 1] = {};
  const DWORD count = ::VerLanguageNameA(static_cast<DWORD>(language), text, longestName);
  if (count == 0 || count > longestName) return std::nullopt;
  // To its zero: not every version of the system leaves that out of the count.
  return AnsiToUtf8(text);
}

}  // namespace dialwright
