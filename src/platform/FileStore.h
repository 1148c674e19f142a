#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dialwright {

/// What tells one state of a file from another: which file it is, how long, and when changed.
struct FileStamp {
  std::uint64_t device = 0;
  std::uint64_t identity = 0;
  std::uint64_t size = 0;
  std::int64_t modified = 0;  ///< in the platform's finest unit

  friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

/// A file open for writing. Going out of scope closes it without a report.
class OutputFile {
 public:
  virtual ~OutputFile() = default;
  /// Throws RuntimeFailure; some of the bytes may then stand in the file.
  virtual void Write(std::string_view bytes) = 0;
  /// Waits until what was written is on the disk. Throws RuntimeFailure.
  virtual void Flush() = 0;
  /// Throws RuntimeFailure when what was written could not be kept.
  virtual void Close() = 0;
};

/// Keeps other editors out of a folder while it lives.
class FolderLock {
 public:
  virtual ~FolderLock() = default;
};

/// The operating system's files, as bytes. Paths are the system's own, in UTF-8, with backslashes
/// ("C:\Telhost\a.cdh"). All operations but the questions throw RuntimeFailure.
class FileStore {
 public:
  enum class Kind { none, file, folder };
  enum class Opening { truncate, append };

  virtual ~FileStore() = default;

  /// What stands at the path. Never fails: what cannot be looked at is not there.
  virtual Kind KindOf(std::string_view path) = 0;
  /// The present state of a file; nothing where there is no file. Never fails.
  virtual std::optional<FileStamp> Stamp(std::string_view path) = 0;
  /// The names of the files (not folders) in a folder, in the order of their names without case.
  virtual std::vector<std::string> FileNames(std::string_view folder) = 0;

  /// The whole file.
  virtual std::string Read(std::string_view path) = 0;
  /// The whole file into a text whose room is used again, which spares a large one half of the
  /// work. After a failure the text is anything.
  virtual void ReadInto(std::string_view path, std::string& bytes) { bytes = Read(path); }
  /// Opens a file for writing, in place; makes it if it is not there and `create` is set.
  virtual std::unique_ptr<OutputFile> Open(std::string_view path, Opening opening, bool create) = 0;
  /// Gives an existing file new contents in one step: whatever fails, the file holds either the old
  /// bytes or the new ones, with its permissions and owner. A link is followed to its target.
  virtual void Replace(std::string_view path, std::string_view bytes) = 0;
  /// Copies the bytes. Fails with 58 if the target is there and `overwrite` is not set.
  virtual void Copy(std::string_view from, std::string_view to, bool overwrite) = 0;
  /// Removes a file; a read-only one too if `force` is set.
  virtual void Remove(std::string_view path, bool force) = 0;
  /// Makes one folder. Fails with 58 if something is there, with 76 if its parent is not.
  virtual void CreateFolder(std::string_view path) = 0;
  /// Makes one that nobody but its user may look into, where the folder above does not see to that.
  virtual void CreatePrivateFolder(std::string_view path) { CreateFolder(path); }

  /// Where a path really lies, as the machine's user would find it.
  virtual std::string RealPath(std::string_view path) { return std::string(path); }
  /// Whether a file may be written at present. Never fails.
  virtual bool IsWritable(std::string_view path) { return KindOf(path) == Kind::file; }
  /// Keeps other editors of this machine out of a folder, and the process from being ended in the
  /// middle. Waits at most so long for one that is in it, and goes on without the lock then, and
  /// where there is none to be had. A process that ends leaves none behind. Never fails.
  virtual std::unique_ptr<FolderLock> Lock(std::string_view, std::chrono::milliseconds) {
    return nullptr;
  }
  /// Removes what killed processes left behind of their replacing of files in a folder. Never
  /// fails.
  virtual void RemoveLeftovers(std::string_view) {}
};

}  // namespace dialwright
