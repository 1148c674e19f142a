#include "platform/win32/HandleWin32.h"

#include <windows.h>

#include <algorithm>

#include "platform/win32/FailureWin32.h"

namespace dialwright {
namespace {

// One call counts in 32 bits, and some drivers take less.
constexpr std::size_t largestStep = std::size_t{1} << 26;

void MoveToStart(HANDLE handle) {
  if (!SetFilePointerEx(handle, {}, nullptr, FILE_BEGIN)) ThrowLastError();
}

}  // namespace

HandleWin32::~HandleWin32() {
  if (handle != invalid) CloseHandle(handle);
}

HandleWin32 HandleWin32::Open(const std::wstring& path, unsigned long access,
                              unsigned long disposition) {
  constexpr DWORD shared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  return HandleWin32(CreateFileW(path.c_str(), access, shared, nullptr, disposition,
                                 FILE_ATTRIBUTE_NORMAL, nullptr));
}

std::string HandleWin32::ReadWhole() const {
  LARGE_INTEGER size{};
  if (!GetFileSizeEx(handle, &size)) ThrowLastError();
  MoveToStart(handle);
  // Until nothing more comes: the file may grow, and a device has no size.
  std::string bytes(static_cast<std::size_t>(size.QuadPart) + 1, '\0');
  std::size_t end = 0;
  for (DWORD count = 1; count > 0; end += count) {
    if (end == bytes.size()) bytes.resize(2 * bytes.size());
    const auto step = static_cast<DWORD>(std::min(bytes.size() - end, largestStep));
    if (!ReadFile(handle, bytes.data() + end, step, &count, nullptr)) ThrowLastError();
  }
  bytes.resize(end);
  return bytes;
}

void HandleWin32::Write(std::string_view bytes) const {
  while (!bytes.empty()) {
    const auto step = static_cast<DWORD>(std::min(bytes.size(), largestStep));
    DWORD count = 0;
    if (!WriteFile(handle, bytes.data(), step, &count, nullptr)) ThrowLastError();
    if (count == 0) throw RuntimeFailure(Failure::diskFull);
    bytes.remove_prefix(count);
  }
}

void HandleWin32::Overwrite(std::string_view bytes) const {
  MoveToStart(handle);
  Write(bytes);
  if (!SetEndOfFile(handle)) ThrowLastError();
}

void HandleWin32::Empty() const {
  MoveToStart(handle);
  if (!SetEndOfFile(handle)) ThrowLastError();
}

void HandleWin32::Flush() const {
  if (!FlushFileBuffers(handle)) ThrowLastError();
}

void HandleWin32::Close() {
  if (handle != invalid && !CloseHandle(std::exchange(handle, invalid))) ThrowLastError();
}

}  // namespace dialwright
