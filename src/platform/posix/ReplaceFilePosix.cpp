#include "platform/posix/ReplaceFilePosix.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <vector>

#include "platform/posix/DescriptorPosix.h"
#include "platform/posix/HostPath.h"

namespace dialwright {
namespace {

constexpr const char* accessList = "system.posix_acl_access";

// A temporary file beside the one to come; gone with its owner unless it was renamed.
class Sibling {
 public:
  // The name does not grow with that of the file, which may be as long as names can be. One that is
  // there already is another program's at work, or was left by one that ended in the middle.
  explicit Sibling(const std::string& hostPath) {
    const std::string start =
        FolderOf(hostPath) + "/" + std::string(siblingStart) + std::to_string(getpid()) + "-";
    for (int attempt = 0; attempt < 1000 && !file; ++attempt) {
      path = start + std::to_string(attempt);
      file = Descriptor::Open(path, O_WRONLY | O_CREAT | O_EXCL, 0600);
      error = file ? 0 : errno;
      if (error != EEXIST) break;
    }
    // What a folder hands on to new files in it would open this one to others than its model.
    if (file) fremovexattr(file.Number(), accessList);
  }
  ~Sibling() {
    if (file && !renamed) unlink(path.c_str());
  }
  Sibling(const Sibling&) = delete;
  Sibling& operator=(const Sibling&) = delete;

  int RenameTo(const std::string& target) {
    if (rename(path.c_str(), target.c_str()) != 0) return errno;
    renamed = true;
    return 0;
  }

  std::string path;
  Descriptor file;
  int error = 0;

 private:
  bool renamed = false;
};

// Errors of a step that needs more than the file itself: the folder, somebody else's rights, or
// room for a second one.
bool MayTryInPlace(int error) {
  return error == EACCES || error == EPERM || error == EROFS || error == EBUSY || error == EXDEV ||
         error == ENOSPC || error == EDQUOT;
}

// The access list and the user's attributes; the system sets its own for each new file.
bool IsKept(std::string_view attribute) {
  return attribute.starts_with("user.") || attribute == accessList;
}

std::vector<std::string> AttributeNames(int file) {
  std::vector<std::string> names;
  const ssize_t size = flistxattr(file, nullptr, 0);
  if (size <= 0) return names;
  std::string list(static_cast<std::size_t>(size), '\0');
  const ssize_t length = flistxattr(file, list.data(), list.size());
  if (length <= 0) return names;
  list.resize(static_cast<std::size_t>(length));
  for (std::size_t at = 0; at < list.size(); at += names.back().size() + 1) {
    names.emplace_back(list.c_str() + at);
  }
  return names;
}

int CopyAttribute(int from, int to, const char* name) {
  const ssize_t size = fgetxattr(from, name, nullptr, 0);
  if (size < 0) return errno;
  std::string value(static_cast<std::size_t>(size), '\0');
  const ssize_t length = fgetxattr(from, name, value.data(), value.size());
  if (length < 0) return errno;
  return fsetxattr(to, name, value.data(), static_cast<std::size_t>(length), 0) == 0 ? 0 : errno;
}

int CopyAttributes(int from, int to) {
  for (const std::string& name : AttributeNames(from)) {
    if (!IsKept(name)) continue;
    if (const int error = CopyAttribute(from, to, name.c_str())) return error;
  }
  return 0;
}

// The owner before the permissions: a change of owner takes permissions away.
int CopyOwnership(const Descriptor& from, const struct stat& status, const Descriptor& to) {
  struct stat fresh {};
  if (fstat(to.Number(), &fresh) != 0) return errno;
  const bool sameOwner = status.st_uid == fresh.st_uid && status.st_gid == fresh.st_gid;
  if (!sameOwner && fchown(to.Number(), status.st_uid, status.st_gid) != 0) return errno;
  if (fchmod(to.Number(), status.st_mode & 07777) != 0) return errno;
  return CopyAttributes(from.Number(), to.Number());
}

// A copy of a read-only file could not be renewed if its owner might not write it. Where the access
// list cannot be taken over, the group's permission, which is the most that the list allows, does
// not go to the group itself.
int CopyReaders(const Descriptor& from, const Descriptor& to) {
  struct stat status {};
  if (fstat(from.Number(), &status) != 0) return errno;
  const bool hasList = fgetxattr(from.Number(), accessList, nullptr, 0) > 0;
  const bool isTaken = hasList && CopyAttribute(from.Number(), to.Number(), accessList) == 0;
  const mode_t kept = hasList && !isTaken ? 0707 : 0777;
  return fchmod(to.Number(), (status.st_mode & kept) | 0200) == 0 ? 0 : errno;
}

// A folder that cannot be opened or flushed at all leaves the rename to the system's own time.
int FlushFolder(const std::string& hostPath) {
  const Descriptor folder = Descriptor::Open(FolderOf(hostPath), O_RDONLY | O_DIRECTORY);
  if (!folder) return 0;
  const int error = folder.Flush();
  return error == EIO || error == ENOSPC || error == EDQUOT ? error : 0;
}

int WriteAndRename(Sibling& sibling, const std::string& hostPath, std::string_view bytes) {
  if (const int error = sibling.file.Write(bytes)) return error;
  if (const int error = sibling.file.Flush()) return error;
  return sibling.RenameTo(hostPath);
}

struct Attempt {
  int error = 0;
  bool renamed = false;
};

Attempt ReplaceBySibling(const std::string& hostPath, const Descriptor& old,
                         const struct stat& status, std::string_view bytes) {
  Sibling sibling(hostPath);
  if (sibling.error != 0) return {sibling.error};
  if (const int error = CopyOwnership(old, status, sibling.file)) return {error};
  if (const int error = WriteAndRename(sibling, hostPath, bytes)) return {error};
  return {FlushFolder(hostPath), true};
}

int WriteWhole(const Descriptor& file, std::string_view bytes) {
  if (lseek(file.Number(), 0, SEEK_SET) != 0) return errno;
  if (const int error = file.Write(bytes)) return error;
  if (const int error = file.Truncate(bytes.size())) return error;
  return file.Flush();
}

int WriteBehind(const Descriptor& file, std::size_t size, std::string_view bytes) {
  if (bytes.size() <= size) return 0;
  if (lseek(file.Number(), static_cast<off_t>(size), SEEK_SET) < 0) return errno;
  return file.Write(bytes.substr(size));
}

int ReplaceInPlace(const std::string& hostPath, std::string_view bytes) {
  const Descriptor file = Descriptor::Open(hostPath, O_RDWR);
  if (!file) return errno;
  std::string old;
  if (const int error = file.Read(old)) return error;
  // What the file grows by comes first: without room for it nothing else has been touched.
  if (const int error = WriteBehind(file, old.size(), bytes)) {
    file.Truncate(old.size());
    return error;
  }
  const int error = WriteWhole(file, bytes);
  // The old bytes need no room that the file does not have; if this fails too, nothing more can be
  // done, and the first failure tells what happened.
  if (error != 0) WriteWhole(file, old);
  return error;
}

}  // namespace

void ReplaceFile(const std::string& hostPath, std::string_view bytes) {
  const Descriptor old = Descriptor::Open(hostPath, O_RDONLY | O_NONBLOCK);
  // A file that may be written but not read: neither can its rights be taken over nor its bytes
  // kept.
  if (!old) ThrowErrno(errno, hostPath);
  struct stat status {};
  if (fstat(old.Number(), &status) != 0) ThrowErrno(errno, hostPath);
  if (S_ISDIR(status.st_mode)) throw RuntimeFailure(Failure::pathFileAccess);
  if (!S_ISREG(status.st_mode)) throw RuntimeFailure(Failure::deviceUnavailable);

  const Attempt attempt = ReplaceBySibling(hostPath, old, status, bytes);
  int error = attempt.error;
  if (!attempt.renamed && MayTryInPlace(error)) error = ReplaceInPlace(hostPath, bytes);
  if (error != 0) ThrowErrno(error, hostPath);
}

void MakeFile(const std::string& hostPath, std::string_view bytes, const std::string& model) {
  const Descriptor old = Descriptor::Open(model, O_RDONLY | O_NONBLOCK);
  if (!old) ThrowErrno(errno, model);
  Sibling sibling(hostPath);
  if (sibling.error != 0) ThrowErrno(sibling.error, hostPath);
  if (const int error = CopyReaders(old, sibling.file)) ThrowErrno(error, hostPath);
  if (const int error = WriteAndRename(sibling, hostPath, bytes)) ThrowErrno(error, hostPath);
  if (const int error = FlushFolder(hostPath)) ThrowErrno(error, hostPath);
}

}  // namespace dialwright
