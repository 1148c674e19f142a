#include "platform/posix/FileStorePosix.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <utility>

#include "platform/posix/DescriptorPosix.h"
#include "platform/posix/FolderLockPosix.h"
#include "platform/posix/HostPath.h"
#include "platform/posix/ReplaceFilePosix.h"
#include "text/Text.h"

namespace dialwright {
namespace {

using Status = struct stat;

std::optional<Status> StatusOf(const std::string& hostPath) {
  Status status{};
  if (stat(hostPath.c_str(), &status) != 0) return std::nullopt;
  return status;
}

// What stands at a path.
struct Found {
  std::string path;
  std::optional<Status> status;  // none: nothing is there
};

// Most names are spelled as they are on the disk: another spelling is only looked for where nothing
// is found.
Found Look(const std::string& straightPath) {
  if (const std::optional<Status> status = StatusOf(straightPath)) return {straightPath, status};
  std::string spelled = ExistingSpelling(straightPath);
  const std::optional<Status> status = spelled == straightPath ? std::nullopt : StatusOf(spelled);
  return {std::move(spelled), status};
}

bool IsFile(const std::optional<Status>& status) { return status && S_ISREG(status->st_mode); }

bool IsReadOnly(const std::string& hostPath, const Status& status) {
  constexpr mode_t anyWriter = S_IWUSR | S_IWGRP | S_IWOTH;
  return (status.st_mode & anyWriter) == 0 ||
         faccessat(AT_FDCWD, hostPath.c_str(), W_OK, AT_EACCESS) != 0;
}

// Before the system is asked: it would let the owner of the machine write.
void RefuseReadOnly(const Found& found) {
  if (IsFile(found.status) && IsReadOnly(found.path, *found.status)) {
    throw RuntimeFailure(Failure::permissionDenied);
  }
}

// What stands at a path, or where a symbolic link there leads to in the end.
Found TargetOf(const std::string& straightPath) {
  Status status{};
  std::string hostPath = straightPath;
  if (lstat(hostPath.c_str(), &status) != 0) {
    hostPath = ExistingSpelling(straightPath);
    if (hostPath == straightPath || lstat(hostPath.c_str(), &status) != 0)
      return {hostPath, std::nullopt};
  }
  if (!S_ISLNK(status.st_mode)) return {hostPath, status};
  const std::unique_ptr<char, void (*)(void*)> target(realpath(hostPath.c_str(), nullptr),
                                                      std::free);
  if (!target) return {hostPath, std::nullopt};
  const std::string path = target.get();
  return {path, StatusOf(path)};
}

void ReplaceExisting(const Found& target, std::string_view bytes) {
  RefuseReadOnly(target);
  ReplaceFile(target.path, bytes);
}

void MakeFolder(const std::string& hostPath, mode_t permissions) {
  if (mkdir(hostPath.c_str(), permissions) == 0) return;
  if (errno == ENOENT) throw RuntimeFailure(Failure::pathNotFound);
  ThrowErrno(errno, hostPath);
}

class OutputFilePosix : public OutputFile {
 public:
  OutputFilePosix(std::string hostPath, Descriptor opened)
      : path(std::move(hostPath)), file(std::move(opened)) {}

  void Write(std::string_view bytes) override {
    if (!file) throw RuntimeFailure(Failure::badFileName);
    if (const int error = file.Write(bytes)) ThrowErrno(error, path);
  }
  void Flush() override {
    if (const int error = file.Flush()) ThrowErrno(error, path);
  }
  void Close() override {
    if (const int error = file.Close()) ThrowErrno(error, path);
  }

 private:
  std::string path;
  Descriptor file;
};

}  // namespace

FileStorePosix::FileStorePosix(std::string hostFolder, char currentDrive)
    : root(std::filesystem::absolute(std::move(hostFolder)).string()), drive(currentDrive) {}

std::string FileStorePosix::StraightPath(std::string_view path) const {
  // No name holds a zero; the system's calls would take the text before it for the path.
  if (path.find('\0') != std::string_view::npos) return {};
  return SpelledHostPath(path, root, drive);
}

std::string FileStorePosix::HostPath(std::string_view path) const {
  return ExistingSpelling(StraightPath(path));
}

FileStore::Kind FileStorePosix::KindOf(std::string_view path) {
  const std::optional<Status> status = Look(StraightPath(path)).status;
  if (IsFile(status)) return Kind::file;
  return status && S_ISDIR(status->st_mode) ? Kind::folder : Kind::none;
}

std::optional<FileStamp> FileStorePosix::Stamp(std::string_view path) {
  const std::optional<Status> status = Look(StraightPath(path)).status;
  if (!IsFile(status)) return std::nullopt;
  FileStamp result;
  result.device = status->st_dev;
  result.identity = status->st_ino;
  result.size = static_cast<std::uint64_t>(status->st_size);
  // The time of the last change of any kind: a tool can set back the other one, but not this.
  result.modified = std::int64_t{status->st_ctim.tv_sec} * 1'000'000'000 + status->st_ctim.tv_nsec;
  return result;
}

std::vector<std::string> FileStorePosix::FileNames(std::string_view folder) {
  const std::string hostFolder = HostPath(folder);
  const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(hostFolder.c_str()), closedir);
  if (!entries) {
    const int error = errno;
    if (error == ENOENT) throw RuntimeFailure(Failure::pathNotFound);
    ThrowErrno(error, hostFolder);
  }
  std::vector<std::string> names;
  while (const dirent* entry = readdir(entries.get())) {
    if (IsFile(StatusOf(hostFolder + "/" + entry->d_name))) names.emplace_back(entry->d_name);
  }
  std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
    return std::pair(LowerCase(a), a) < std::pair(LowerCase(b), b);
  });
  return names;
}

std::string FileStorePosix::Read(std::string_view path) {
  std::string bytes;
  ReadInto(path, bytes);
  return bytes;
}

void FileStorePosix::ReadInto(std::string_view path, std::string& bytes) {
  std::string hostPath = StraightPath(path);
  // Without waiting: nothing may be at the other end of what is not a file.
  constexpr int flags = O_RDONLY | O_NONBLOCK;
  Descriptor file = Descriptor::Open(hostPath, flags);
  if (!file && errno == ENOENT) {
    hostPath = ExistingSpelling(hostPath);
    file = Descriptor::Open(hostPath, flags);
  }
  if (!file) ThrowErrno(errno, hostPath);
  if (const int error = file.Read(bytes)) ThrowErrno(error, hostPath);
}

std::unique_ptr<OutputFile> FileStorePosix::Open(std::string_view path, Opening opening,
                                                 bool create) {
  const Found found = Look(StraightPath(path));
  RefuseReadOnly(found);
  const int flags = O_WRONLY | O_NONBLOCK | (opening == Opening::truncate ? O_TRUNC : O_APPEND) |
                    (create ? O_CREAT : 0);
  Descriptor file = Descriptor::Open(found.path, flags, 0666);
  if (!file) ThrowErrno(errno, found.path);
  return std::make_unique<OutputFilePosix>(found.path, std::move(file));
}

void FileStorePosix::Replace(std::string_view path, std::string_view bytes) {
  ReplaceExisting(TargetOf(StraightPath(path)), bytes);
}

void FileStorePosix::Copy(std::string_view from, std::string_view to, bool overwrite) {
  const Found target = TargetOf(StraightPath(to));
  const std::string bytes = Read(from);
  if (!target.status) return MakeFile(target.path, bytes, HostPath(from));
  if (!overwrite) throw RuntimeFailure(Failure::fileAlreadyExists);
  ReplaceExisting(target, bytes);
}

void FileStorePosix::Remove(std::string_view path, bool force) {
  if (KindOf(path) == Kind::folder) throw RuntimeFailure(Failure::fileNotFound);
  const std::string hostPath = HostPath(path);
  if (!force) RefuseReadOnly({hostPath, StatusOf(hostPath)});
  if (unlink(hostPath.c_str()) != 0) ThrowErrno(errno, hostPath);
}

void FileStorePosix::CreateFolder(std::string_view path) { MakeFolder(HostPath(path), 0777); }

void FileStorePosix::CreatePrivateFolder(std::string_view path) {
  MakeFolder(HostPath(path), 0700);
}

std::string FileStorePosix::RealPath(std::string_view path) { return HostPath(path); }

bool FileStorePosix::IsWritable(std::string_view path) {
  const Found found = Look(StraightPath(path));
  return IsFile(found.status) && !IsReadOnly(found.path, *found.status);
}

std::unique_ptr<FolderLock> FileStorePosix::Lock(std::string_view folder,
                                                 std::chrono::milliseconds patience) {
  return LockFolder(HostPath(folder), patience);
}

void FileStorePosix::RemoveLeftovers(std::string_view folder) {
  dialwright::RemoveLeftovers(HostPath(folder));
}

}  // namespace dialwright
