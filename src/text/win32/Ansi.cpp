#include "text/Ansi.h"

#include <windows.h>

#include "text/win32/CodePage.h"

namespace dialwright {
namespace {

constexpr unsigned westEuropean = 1252;

// A page that is itself a form of Unicode takes no flags.
DWORD FlagsFor(unsigned codePage) { return codePage == CP_UTF8 ? 0 : WC_NO_BEST_FIT_CHARS; }

}  // namespace

std::string CodePageToUtf8(unsigned codePage, std::string_view bytes) {
  const int size = static_cast<int>(bytes.size());
  const int length = MultiByteToWideChar(codePage, 0, bytes.data(), size, nullptr, 0);
  std::string utf16(2 * static_cast<std::size_t>(length), '\0');
  MultiByteToWideChar(codePage, 0, bytes.data(), size, reinterpret_cast<wchar_t*>(utf16.data()),
                      length);
  return Utf16ToUtf8(utf16);
}

std::string Utf8ToCodePage(unsigned codePage, std::string_view utf8) {
  const std::string utf16 = Utf8ToUtf16(utf8);
  const auto* wide = reinterpret_cast<const wchar_t*>(utf16.data());
  const int length = static_cast<int>(utf16.size() / 2);
  const DWORD flags = FlagsFor(codePage);
  const int size = WideCharToMultiByte(codePage, flags, wide, length, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(codePage, flags, wide, length, bytes.data(), size, nullptr, nullptr);
  return bytes;
}

std::string AnsiToUtf8(std::string_view ansi) {
  const unsigned codePage = GetACP();
  return codePage == westEuropean ? Windows1252ToUtf8(ansi) : CodePageToUtf8(codePage, ansi);
}

std::string Utf8ToAnsi(std::string_view utf8) {
  const unsigned codePage = GetACP();
  return codePage == westEuropean ? Utf8ToWindows1252(utf8) : Utf8ToCodePage(codePage, utf8);
}

}  // namespace dialwright
