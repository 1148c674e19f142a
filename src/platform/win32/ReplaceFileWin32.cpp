#include <windows.h>
// after windows.h
#include <aclapi.h>

#include <memory>

#include "platform/win32/FailureWin32.h"
#include "platform/win32/HandleWin32.h"
#include "platform/win32/ReplaceFileWin32.h"

namespace dialwright {
namespace {

std::wstring FolderOf(const std::wstring& path) {
  return path.substr(0, path.find_last_of(L"\\/") + 1);
}

// A temporary file beside the one to come; gone with its owner unless it was renamed.
class Sibling {
 public:
  // A name that is there already is another program's at work, or was left by one that ended in the
  // middle.
  explicit Sibling(const std::wstring& target) {
    const std::wstring start =
        FolderOf(target) + siblingStart + std::to_wstring(GetCurrentProcessId()) + L"-";
    bool made = false;
    for (int attempt = 0; attempt < 1000 && !made; ++attempt) {
      path = start + std::to_wstring(attempt);
      made = bool(HandleWin32::Open(path, GENERIC_WRITE, CREATE_NEW));
      const DWORD error = GetLastError();
      if (!made && error != ERROR_FILE_EXISTS && error != ERROR_ALREADY_EXISTS) break;
    }
    if (!made) ThrowLastError();
  }
  ~Sibling() {
    if (!renamed) DeleteFileW(path.c_str());
  }
  Sibling(const Sibling&) = delete;
  Sibling& operator=(const Sibling&) = delete;

  void Fill(std::string_view bytes) const {
    HandleWin32 file = HandleWin32::Open(path, GENERIC_WRITE, OPEN_EXISTING);
    if (!file) ThrowLastError();
    file.Empty();
    file.Write(bytes);
    file.Flush();
    file.Close();
  }

  void RenameTo(const std::wstring& target) {
    constexpr DWORD flags = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    if (!MoveFileExW(path.c_str(), target.c_str(), flags)) ThrowLastError();
    renamed = true;
  }

  std::wstring path;

 private:
  bool renamed = false;
};

struct LocalFreeing {
  void operator()(void* memory) const { LocalFree(memory); }
};

// A file's owner, group and access list.
struct Security {
  explicit Security(const std::wstring& path) {
    std::wstring name = path;
    PSECURITY_DESCRIPTOR read = nullptr;
    const DWORD error = GetNamedSecurityInfoW(
        name.data(), SE_FILE_OBJECT,
        OWNER_SECURITY_INFORMATION | GROUP_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION, &owner,
        &group, nullptr, nullptr, &read);
    descriptor.reset(read);
    if (error != ERROR_SUCCESS) throw RuntimeFailure(FailureOfWin32(error));
    // Entries that the file once took over from its folder stay known as such.
    SECURITY_DESCRIPTOR_CONTROL control = 0;
    DWORD revision = 0;
    if (GetSecurityDescriptorControl(read, &control, &revision) &&
        (control & SE_DACL_AUTO_INHERITED) != 0) {
      SetSecurityDescriptorControl(read, SE_DACL_AUTO_INHERIT_REQ, SE_DACL_AUTO_INHERIT_REQ);
    }
  }

  std::unique_ptr<void, LocalFreeing> descriptor;
  PSID owner = nullptr;
  PSID group = nullptr;
};

bool IsSame(PSID a, PSID b) { return a != nullptr && b != nullptr && EqualSid(a, b); }

// To give a file to another owner takes a right that few have: it is asked for only where it is
// needed. The access list is taken over as it is: what the folder hands on to new files in it would
// open this one to others than its model.
void CopySecurity(const std::wstring& from, const std::wstring& to) {
  const Security old(from);
  const Security fresh(to);
  SECURITY_INFORMATION parts = DACL_SECURITY_INFORMATION;
  if (!IsSame(old.owner, fresh.owner)) parts |= OWNER_SECURITY_INFORMATION;
  if (!IsSame(old.group, fresh.group)) parts |= GROUP_SECURITY_INFORMATION;
  if (!SetFileSecurityW(to.c_str(), parts, old.descriptor.get()))
    throw RuntimeFailure(Failure::permissionDenied);
}

// The copy brings the named streams, and on a new file the attributes too. It comes after the
// access list, so that nobody reads what he could not read before.
void ReplaceBySibling(const std::wstring& path, std::string_view bytes) {
  Sibling sibling(path);
  CopySecurity(path, sibling.path);
  if (!CopyFileW(path.c_str(), sibling.path.c_str(), FALSE) ||
      !SetFileAttributesW(sibling.path.c_str(), GetFileAttributesW(path.c_str()))) {
    ThrowLastError();
  }
  sibling.Fill(bytes);
  sibling.RenameTo(path);
}

void WriteWhole(const HandleWin32& file, std::string_view bytes) {
  file.Overwrite(bytes);
  file.Flush();
}

void ReplaceInPlace(const std::wstring& path, std::string_view bytes) {
  const HandleWin32 file = HandleWin32::Open(path, GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING);
  if (!file) ThrowLastError();
  const std::string old = file.ReadWhole();
  try {
    WriteWhole(file, bytes);
  } catch (const RuntimeFailure&) {
    // The old bytes need no room that the file does not have; if this fails too, nothing more can
    // be done, and the first failure tells what happened.
    try {
      WriteWhole(file, old);
    } catch (const RuntimeFailure&) {
    }
    throw;
  }
}

}  // namespace

void ReplaceWithBytes(const std::wstring& path, std::string_view bytes) {
  try {
    ReplaceBySibling(path, bytes);
  } catch (const RuntimeFailure& failure) {
    const bool mayTryInPlace = failure.number == static_cast<int>(Failure::permissionDenied) ||
                               failure.number == static_cast<int>(Failure::diskFull);
    if (!mayTryInPlace) throw;
    ReplaceInPlace(path, bytes);
  }
}

void MakeWithBytes(const std::wstring& path, std::string_view bytes) {
  Sibling sibling(path);
  sibling.Fill(bytes);
  sibling.RenameTo(path);
}

}  // namespace dialwright
