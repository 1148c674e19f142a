#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "platform/posix/FailurePosix.h"

namespace dialwright {

/// The failure for an error number at a host path: a missing file in a missing folder
/// is 76, an empty path 52.
[[noreturn]] void ThrowErrno(int error, const std::string& hostPath);

/// A file descriptor with its owner.
class Descriptor {
 public:
  explicit Descriptor(int number = -1) : fd(number) {}
  ~Descriptor();
  Descriptor(Descriptor&& other) noexcept : fd(std::exchange(other.fd, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(fd, other.fd);
    return *this;
  }

  /// Opens a host path, not inherited by children; an invalid one, with errno set, if that fails.
  static Descriptor Open(const std::string& hostPath, int flags, unsigned permissions = 0);

  explicit operator bool() const { return fd >= 0; }
  int Number() const { return fd; }

  /// The operations give 0 or an error number.
  int Write(std::string_view bytes) const;
  int Read(std::string& bytes) const;
  int Truncate(std::size_t size) const;
  int Flush() const;
  int Close();

 private:
  int fd;
};

}  // namespace dialwright
