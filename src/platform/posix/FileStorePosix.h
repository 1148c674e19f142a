#pragma once

#include <string>
#include <string_view>

#include "platform/FileStore.h"

namespace dialwright {

/// The host's files under the system's paths.
///
/// - "C:\a\b" is `drive_c/a/b` in the host folder; "." and ".." stay within the drive.
/// - "\a\b" is below the root of the current drive, without one below the host's root.
/// - In any other path backslashes become slashes and the rest is the host's affair.
/// - A name is found as it is spelled, or else without regard to the case of ASCII letters, folder
/// by
///   folder; the first by name if there are several. What is not found keeps its spelling, so that
///   a new file takes the spelled name in the folder that was found.
///
/// A file that nobody may write ("read-only") is not written, replaced, or copied over, and removed
/// only by force, whoever asks: the owner of the whole machine too.
///
/// `replace`: new bytes go to a temporary sibling of the same permissions, owner, access list and
/// user attributes, which is flushed and renamed over the file (over the target of a symbolic
/// link); the folder is flushed too. Where such a sibling cannot be made or renamed - the folder
/// may not be written, or the file belongs to somebody else - the file is written in place, and the
/// old bytes are put back if that fails half-way. So it is where the disk has no room for a
/// sibling: the file is not emptied first.
///
/// A file with several hard links is replaced like any other: the path then has the new bytes, and
/// the other names keep the old ones, whole. Writing in place would keep the link, but a crash in
/// the middle of it would tear the file under all its names at once, and a snapshot that was made
/// of links would change with it.
class FileStorePosix : public FileStore {
 public:
  /// `hostFolder` holds the folders `drive_*`. A drive letter of 0 is none.
  explicit FileStorePosix(std::string hostFolder, char currentDrive = 0);

  /// The host's path of a path of the system.
  std::string HostPath(std::string_view path) const;

  Kind KindOf(std::string_view path) override;
  std::optional<FileStamp> Stamp(std::string_view path) override;
  std::vector<std::string> FileNames(std::string_view folder) override;
  std::string Read(std::string_view path) override;
  void ReadInto(std::string_view path, std::string& bytes) override;
  std::unique_ptr<OutputFile> Open(std::string_view path, Opening opening, bool create) override;
  void Replace(std::string_view path, std::string_view bytes) override;
  void Copy(std::string_view from, std::string_view to, bool overwrite) override;
  void Remove(std::string_view path, bool force) override;
  void CreateFolder(std::string_view path) override;
  void CreatePrivateFolder(std::string_view path) override;
  std::string RealPath(std::string_view path) override;
  bool IsWritable(std::string_view path) override;
  std::unique_ptr<FolderLock> Lock(std::string_view folder,
                                   std::chrono::milliseconds patience) override;
  void RemoveLeftovers(std::string_view folder) override;

 private:
  /// The path as it is spelled; there may be one in another case.
  std::string StraightPath(std::string_view path) const;

  std::string root;
  char drive;
};

}  // namespace dialwright
