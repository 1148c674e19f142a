#pragma once

#include <string>
#include <string_view>

#include "platform/FileStore.h"

namespace dialwright {

/// The files of Windows, by its wide calls; a path may be longer than the old limit.
///
/// Every file is opened so that other programs may hold it open, and may open it, for whatever they
/// like. One that another program keeps to itself fails with 70, and has no stamp.
///
/// A file with the read-only attribute is not written, replaced, or copied over, and removed only
/// by force.
///
/// `replace`: new bytes go to a temporary sibling of the same attributes, named streams, owner and
/// access list, which is flushed and moved over the file (over the target of a symbolic link) in
/// one step. Where such a sibling cannot be made or moved - the folder may not be written, the file
/// belongs to somebody else, or a program that holds it open does not let it be renamed - the file
/// is written in place, and the old bytes are put back if that fails half-way. So it is where the
/// disk has no room for a sibling: the file is not emptied first.
class FileStoreWin32 : public FileStore {
 public:
  Kind KindOf(std::string_view path) override;
  std::optional<FileStamp> Stamp(std::string_view path) override;
  std::vector<std::string> FileNames(std::string_view folder) override;
  std::string Read(std::string_view path) override;
  std::unique_ptr<OutputFile> Open(std::string_view path, Opening opening, bool create) override;
  void Replace(std::string_view path, std::string_view bytes) override;
  void Copy(std::string_view from, std::string_view to, bool overwrite) override;
  void Remove(std::string_view path, bool force) override;
  void CreateFolder(std::string_view path) override;
  bool IsWritable(std::string_view path) override;
  std::unique_ptr<FolderLock> Lock(std::string_view folder,
                                   std::chrono::milliseconds patience) override;
  void RemoveLeftovers(std::string_view folder) override;
};

}  // namespace dialwright
