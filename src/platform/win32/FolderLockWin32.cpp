#include "platform/win32/FolderLockWin32.h"

#include <windows.h>

#include <cstdint>
#include <cwchar>
#include <cwctype>
#include <string_view>

#include "platform/win32/HandleWin32.h"
#include "platform/win32/ReplaceFileWin32.h"

namespace dialwright {
namespace {

/// A name holds no backslash and is short: it has a number made of the folder's path.
std::wstring MutexName(const std::wstring& folder) {
  std::uint64_t hash = 14695981039346656037u;
  for (const wchar_t c : folder.substr(0, folder.find_last_not_of(L"\\/") + 1)) {
    hash =
        (hash ^ static_cast<std::uint64_t>(c == L'/' ? L'\\' : std::towlower(c))) * 1099511628211u;
  }
  return L"Global\\Dialwright-" + std::to_wstring(hash);
}

class FolderLockWin32 : public FolderLock {
 public:
  FolderLockWin32(const std::wstring& folder, std::chrono::milliseconds patience) {
    // Whoever is logged on may wait for it.
    SECURITY_DESCRIPTOR everybody{};
    InitializeSecurityDescriptor(&everybody, SECURITY_DESCRIPTOR_REVISION);
    SetSecurityDescriptorDacl(&everybody, TRUE, nullptr, FALSE);
    SECURITY_ATTRIBUTES attributes{sizeof attributes, &everybody, FALSE};
    HANDLE made = CreateMutexW(&attributes, FALSE, MutexName(folder).c_str());
    if (made == nullptr) return;
    mutex = HandleWin32(made);
    const DWORD result = WaitForSingleObject(made, static_cast<DWORD>(patience.count()));
    isHeld = result == WAIT_OBJECT_0 || result == WAIT_ABANDONED;
  }
  ~FolderLockWin32() override {
    if (isHeld) ReleaseMutex(mutex.get());
  }
  FolderLockWin32(const FolderLockWin32&) = delete;
  FolderLockWin32& operator=(const FolderLockWin32&) = delete;

 private:
  HandleWin32 mutex;
  bool isHeld = false;
};

bool IsRunning(DWORD process) {
  const HANDLE opened = OpenProcess(SYNCHRONIZE, FALSE, process);
  if (opened == nullptr) return GetLastError() != ERROR_INVALID_PARAMETER;
  const HandleWin32 handle(opened);
  return WaitForSingleObject(opened, 0) == WAIT_TIMEOUT;
}

}  // namespace

std::unique_ptr<FolderLock> LockFolder(const std::wstring& folder,
                                       std::chrono::milliseconds patience) {
  return std::make_unique<FolderLockWin32>(folder, patience);
}

void RemoveLeftovers(const std::wstring& folder) {
  const std::wstring start = folder + (folder.ends_with(L'\\') ? L"" : L"\\");
  WIN32_FIND_DATAW entry{};
  const HANDLE search = FindFirstFileW((start + siblingStart + L"*").c_str(), &entry);
  if (search == INVALID_HANDLE_VALUE) return;
  do {
    wchar_t* end = nullptr;
    const std::wstring name = entry.cFileName;
    const DWORD maker = std::wcstoul(name.c_str() + siblingStart.size(), &end, 10);
    if (maker != 0 && *end == L'-' && !IsRunning(maker)) DeleteFileW((start + name).c_str());
  } while (FindNextFileW(search, &entry));
  FindClose(search);
}

}  // namespace dialwright
