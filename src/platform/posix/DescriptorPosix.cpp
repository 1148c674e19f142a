#include "platform/posix/DescriptorPosix.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>

#include "platform/posix/HostPath.h"

namespace dialwright {
namespace {

bool IsFolder(const std::string& hostPath) {
  struct stat status {};
  return stat(hostPath.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

int ErrorOf(int result) { return result < 0 ? errno : 0; }

}  // namespace

void ThrowErrno(int error, const std::string& hostPath) {
  if (hostPath.empty()) throw RuntimeFailure(Failure::badFileName);
  if (error == ENOENT && !IsFolder(FolderOf(hostPath))) {
    throw RuntimeFailure(Failure::pathNotFound);
  }
  throw RuntimeFailure(FailureOfErrno(error));
}

Descriptor::~Descriptor() { Close(); }

Descriptor Descriptor::Open(const std::string& hostPath, int flags, unsigned permissions) {
  int fd = -1;
  do {
    fd = ::open(hostPath.c_str(), flags | O_CLOEXEC, permissions);
  } while (fd < 0 && errno == EINTR);
  return Descriptor(fd);
}

int Descriptor::Write(std::string_view bytes) const {
  while (!bytes.empty()) {
    const ssize_t written = ::write(fd, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return errno;
    if (written == 0) return EIO;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return 0;
}

int Descriptor::Read(std::string& bytes) const {
  struct stat status {};
  if (fstat(fd, &status) != 0) return errno;
  if (S_ISDIR(status.st_mode)) return EISDIR;
  if (!S_ISREG(status.st_mode)) return ENODEV;
  // One byte more than the file has, so that its end is seen in the same call; it may also grow or
  // shrink while it is read.
  const auto expected = static_cast<std::size_t>(status.st_size);
  if (bytes.capacity() <= expected) bytes.clear();
  bytes.resize(expected + 1);
  std::size_t length = 0;
  while (length != expected || expected == 0) {
    if (length == bytes.size()) bytes.resize(bytes.size() * 2);
    const ssize_t count = ::read(fd, bytes.data() + length, bytes.size() - length);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return errno;
    if (count == 0) break;
    length += static_cast<std::size_t>(count);
  }
  bytes.resize(length);
  return 0;
}

int Descriptor::Truncate(std::size_t size) const {
  int result = 0;
  do {
    result = ftruncate(fd, static_cast<off_t>(size));
  } while (result < 0 && errno == EINTR);
  return ErrorOf(result);
}

int Descriptor::Flush() const {
  int result = 0;
  do {
    result = fsync(fd);
  } while (result < 0 && errno == EINTR);
  return ErrorOf(result);
}

int Descriptor::Close() {
  if (fd < 0) return 0;
  // Not tried again after EINTR: the descriptor is gone by then.
  const int error = ErrorOf(::close(std::exchange(fd, -1)));
  return error == EINTR ? 0 : error;
}

}  // namespace dialwright
