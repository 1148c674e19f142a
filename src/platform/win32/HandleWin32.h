#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace dialwright {

/// A handle of the kernel with its owner. The operations on files throw RuntimeFailure.
class HandleWin32 {
 public:
  /// What the operating system calls an invalid handle value.
  static inline void* const invalid = reinterpret_cast<void*>(-1);

  explicit HandleWin32(void* opened = invalid) : handle(opened) {}
  ~HandleWin32();
  HandleWin32(HandleWin32&& other) noexcept : handle(std::exchange(other.handle, invalid)) {}
  HandleWin32& operator=(HandleWin32&& other) noexcept {
    std::swap(handle, other.handle);
    return *this;
  }

  /// Opens a file that others may hold open, and may open, for reading, writing and renaming; an
  /// invalid one, with the last error set, if that fails. Not inherited by children.
  static HandleWin32 Open(const std::wstring& path, unsigned long access,
                          unsigned long disposition);

  explicit operator bool() const { return handle != invalid; }
  void* get() const { return handle; }

  /// All bytes from the file's start.
  std::string ReadWhole() const;
  /// At the place where the last operation has ended.
  void Write(std::string_view bytes) const;
  /// From the file's start, which is cut off behind the bytes once they are all there.
  void Overwrite(std::string_view bytes) const;
  /// Cuts the file off at its start.
  void Empty() const;
  void Flush() const;
  void Close();

 private:
  void* handle;
};

}  // namespace dialwright
