#include "platform/win32/FileStoreWin32.h"

#include <windows.h>

#include <algorithm>
#include <utility>

#include "platform/win32/FailureWin32.h"
#include "platform/win32/FolderLockWin32.h"
#include "platform/win32/HandleWin32.h"
#include "platform/win32/ReplaceFileWin32.h"
#include "platform/win32/Win32Text.h"
#include "text/Text.h"

namespace dialwright {
namespace {

bool IsThere(DWORD attributes) { return attributes != INVALID_FILE_ATTRIBUTES; }
bool IsFolder(DWORD attributes) {
  return IsThere(attributes) && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}
bool IsFile(DWORD attributes) { return IsThere(attributes) && !IsFolder(attributes); }
bool IsReadOnly(DWORD attributes) {
  return IsFile(attributes) && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

// Before the system is asked: where a file lies elsewhere than on its own drives, it may let the
// owner of the machine write.
void RefuseReadOnly(const std::wstring& path) {
  if (IsReadOnly(GetFileAttributesW(path.c_str()))) {
    throw RuntimeFailure(Failure::permissionDenied);
  }
}

// Opening a folder as a file is refused like a file without rights; it is no file at all.
HandleWin32 OpenFile(const std::wstring& path, DWORD access, DWORD disposition) {
  HandleWin32 file = HandleWin32::Open(path, access, disposition);
  if (file) return file;
  const DWORD error = GetLastError();
  if (IsFolder(GetFileAttributesW(path.c_str()))) throw RuntimeFailure(Failure::pathFileAccess);
  throw RuntimeFailure(FailureOfWin32(error));
}

// The file that a symbolic link leads to in the end.
std::wstring TargetOf(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  if (!IsThere(attributes)) ThrowLastError();
  if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return path;
  const HandleWin32 file = OpenFile(path, FILE_READ_ATTRIBUTES, OPEN_EXISTING);
  const DWORD size = GetFinalPathNameByHandleW(file.get(), nullptr, 0, FILE_NAME_NORMALIZED);
  std::wstring target(size, L'\0');
  const DWORD length =
      GetFinalPathNameByHandleW(file.get(), target.data(), size, FILE_NAME_NORMALIZED);
  if (length == 0 || length >= size) ThrowLastError();
  target.resize(length);
  return target;
}

void ReplaceExisting(const std::wstring& path, std::string_view bytes) {
  const std::wstring target = TargetOf(path);
  if (IsFolder(GetFileAttributesW(target.c_str()))) throw RuntimeFailure(Failure::pathFileAccess);
  RefuseReadOnly(target);
  ReplaceWithBytes(target, bytes);
}

class OutputFileWin32 : public OutputFile {
 public:
  explicit OutputFileWin32(HandleWin32 opened) : file(std::move(opened)) {}

  void Write(std::string_view bytes) override {
    if (!file) throw RuntimeFailure(Failure::badFileName);
    file.Write(bytes);
  }
  void Flush() override { file.Flush(); }
  void Close() override { file.Close(); }

 private:
  HandleWin32 file;
};

std::uint64_t Joined(DWORD high, DWORD low) { return std::uint64_t{high} << 32 | low; }

}  // namespace

FileStore::Kind FileStoreWin32::KindOf(std::string_view path) {
  try {
    const DWORD attributes = GetFileAttributesW(WidePath(path).c_str());
    return IsFile(attributes) ? Kind::file : IsFolder(attributes) ? Kind::folder : Kind::none;
  } catch (const RuntimeFailure&) {
    return Kind::none;
  }
}

std::optional<FileStamp> FileStoreWin32::Stamp(std::string_view path) {
  try {
    const HandleWin32 file = OpenFile(WidePath(path), GENERIC_READ, OPEN_EXISTING);
    BY_HANDLE_FILE_INFORMATION information{};
    FILE_BASIC_INFO times{};
    if (!GetFileInformationByHandle(file.get(), &information) ||
        !GetFileInformationByHandleEx(file.get(), FileBasicInfo, &times, sizeof times)) {
      return std::nullopt;
    }
    FileStamp result;
    result.device = information.dwVolumeSerialNumber;
    result.identity = Joined(information.nFileIndexHigh, information.nFileIndexLow);
    result.size = Joined(information.nFileSizeHigh, information.nFileSizeLow);
    // The time of the last change of any kind: a tool can set back the other one, but not this.
    // Old file systems have only the other.
    result.modified = std::max(times.ChangeTime.QuadPart, times.LastWriteTime.QuadPart);
    return result;
  } catch (const RuntimeFailure&) {
    return std::nullopt;
  }
}

std::vector<std::string> FileStoreWin32::FileNames(std::string_view folder) {
  const std::wstring path = WidePath(folder);
  const DWORD attributes = GetFileAttributesW(path.c_str());
  if (!IsFolder(attributes)) throw RuntimeFailure(Failure::pathNotFound);

  const std::wstring all = path + (path.ends_with(L'\\') ? L"*" : L"\\*");
  WIN32_FIND_DATAW entry{};
  const HANDLE search = FindFirstFileW(all.c_str(), &entry);
  std::vector<std::string> names;
  if (search == INVALID_HANDLE_VALUE) {
    // Of a drive's empty root, which has no entries for itself.
    if (GetLastError() == ERROR_FILE_NOT_FOUND) return names;
    ThrowLastError();
  }
  do {
    if (IsFile(entry.dwFileAttributes)) names.push_back(NarrowText(entry.cFileName));
  } while (FindNextFileW(search, &entry));
  FindClose(search);
  std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
    return std::pair(LowerCase(a), a) < std::pair(LowerCase(b), b);
  });
  return names;
}

std::string FileStoreWin32::Read(std::string_view path) {
  return OpenFile(WidePath(path), GENERIC_READ, OPEN_EXISTING).ReadWhole();
}

std::unique_ptr<OutputFile> FileStoreWin32::Open(std::string_view path, Opening opening,
                                                 bool create) {
  // Emptied once it is open, which leaves the attributes as they are; a new file has none yet.
  const bool appending = opening == Opening::append;
  const std::wstring wide = WidePath(path);
  RefuseReadOnly(wide);
  HandleWin32 file = OpenFile(wide, appending ? FILE_APPEND_DATA : GENERIC_WRITE,
                              create ? OPEN_ALWAYS : OPEN_EXISTING);
  if (!appending) file.Empty();
  return std::make_unique<OutputFileWin32>(std::move(file));
}

void FileStoreWin32::Replace(std::string_view path, std::string_view bytes) {
  ReplaceExisting(WidePath(path), bytes);
}

void FileStoreWin32::Copy(std::string_view from, std::string_view to, bool overwrite) {
  const std::wstring target = WidePath(to);
  const std::string bytes = Read(from);
  if (IsThere(GetFileAttributesW(target.c_str()))) {
    if (!overwrite) throw RuntimeFailure(Failure::fileAlreadyExists);
    ReplaceExisting(target, bytes);
    return;
  }
  // Without the source's attributes: a copy of a read-only file could not be renewed.
  MakeWithBytes(target, bytes);
}

void FileStoreWin32::Remove(std::string_view path, bool force) {
  const std::wstring wide = WidePath(path);
  const DWORD attributes = GetFileAttributesW(wide.c_str());
  if (!IsThere(attributes)) ThrowLastError();
  if (IsFolder(attributes)) throw RuntimeFailure(Failure::fileNotFound);
  if (!force) RefuseReadOnly(wide);
  if (IsReadOnly(attributes)) {
    SetFileAttributesW(wide.c_str(), attributes & ~DWORD{FILE_ATTRIBUTE_READONLY});
  }
  if (!DeleteFileW(wide.c_str())) ThrowLastError();
}

void FileStoreWin32::CreateFolder(std::string_view path) {
  if (CreateDirectoryW(WidePath(path).c_str(), nullptr)) return;
  if (GetLastError() == ERROR_FILE_NOT_FOUND) throw RuntimeFailure(Failure::pathNotFound);
  ThrowLastError();
}

bool FileStoreWin32::IsWritable(std::string_view path) {
  try {
    const std::wstring wide = WidePath(path);
    RefuseReadOnly(wide);
    return KindOf(path) == Kind::file &&
           bool(HandleWin32::Open(wide, GENERIC_WRITE, OPEN_EXISTING));
  } catch (const RuntimeFailure&) {
    return false;
  }
}

std::unique_ptr<FolderLock> FileStoreWin32::Lock(std::string_view folder,
                                                 std::chrono::milliseconds patience) {
  try {
    return LockFolder(WidePath(folder), patience);
  } catch (const RuntimeFailure&) {
    return nullptr;
  }
}

void FileStoreWin32::RemoveLeftovers(std::string_view folder) {
  try {
    dialwright::RemoveLeftovers(WidePath(folder));
  } catch (const RuntimeFailure&) {
    // What has no path has nothing left in it.
  }
}

}  // namespace dialwright
