#include "platform/win32/Win32Text.h"

#include <windows.h>

#include "platform/Failure.h"
#include "text/Ansi.h"

namespace dialwright {
namespace {

// From this length on the file calls refuse a path without the prefix: a folder has to leave room
// for a name of the old form.
constexpr std::size_t longPath = MAX_PATH - 12;

constexpr std::wstring_view literalPrefix = L"\\\\?\\";
constexpr std::wstring_view devicePrefix = L"\\\\.\\";

std::wstring FullPath(const std::wstring& path) {
  const DWORD size = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
  std::wstring full(size, L'\0');
  const DWORD length = size == 0 ? 0 : GetFullPathNameW(path.c_str(), size, full.data(), nullptr);
  if (length == 0 || length >= size) throw RuntimeFailure(Failure::badFileName);
  full.resize(length);
  return full;
}

}  // namespace

std::wstring WideText(std::string_view utf8) {
  const std::string bytes = Utf8ToUtf16(utf8);
  std::wstring wide(bytes.size() / 2, L'\0');
  for (std::size_t i = 0; i < wide.size(); ++i) {
    wide[i] = static_cast<wchar_t>(static_cast<unsigned char>(bytes[2 * i]) |
                                   static_cast<unsigned char>(bytes[2 * i + 1]) << 8);
  }
  return wide;
}

std::string NarrowText(std::wstring_view wide) {
  return Utf16ToUtf8({reinterpret_cast<const char*>(wide.data()), 2 * wide.size()});
}

std::wstring WidePath(std::string_view path) {
  // No name holds a zero; the system's calls would take the text before it for the path.
  if (path.empty() || path.find('\0') != std::string_view::npos) {
    throw RuntimeFailure(Failure::badFileName);
  }
  std::wstring wide = WideText(path);
  if (wide.starts_with(literalPrefix) || wide.starts_with(devicePrefix)) return wide;
  const std::wstring full = FullPath(wide);
  if (full.size() < longPath || full.starts_with(devicePrefix)) return full;
  if (full.starts_with(L"\\\\")) return std::wstring(literalPrefix) + L"UNC" + full.substr(1);
  return std::wstring(literalPrefix) + full;
}

}  // namespace dialwright
