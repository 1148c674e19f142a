#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileStore.h"

namespace dialwright {

/// The private profile calls: single keys of a section of a text file are read and written, and no
/// other byte of the file is touched. Text is UTF-8 inside and ANSI in the file.
///
/// A file is read once and indexed; before each use outside a batch its stamp is looked at again,
/// so that a change by somebody else is seen.
class PrivateProfile {
 public:
  explicit PrivateProfile(FileStore& fileStore);
  ~PrivateProfile();
  PrivateProfile(const PrivateProfile&) = delete;
  PrivateProfile& operator=(const PrivateProfile&) = delete;

  /// The value of a key, at most `size` - 1 ANSI bytes of it, blanks around it and one pair of
  /// quotation marks dropped; `defaultText` (cut alike) where file, section or key is missing or
  /// the file cannot be read. `size` counts bytes with the terminating zero.
  std::string GetPrivateProfileStringA(std::string_view section, std::string_view key,
                                       std::string_view defaultText, std::size_t size,
                                       std::string_view path);

  /// Puts `value` literally behind the key's equals sign; adds the key, and the section, if they
  /// are not there. A file that is not there is not made. Returns whether the file now holds the
  /// value (inside a batch: whether it will).
  bool WritePrivateProfileStringA(std::string_view section, std::string_view key,
                                  std::string_view value, std::string_view path);

  /// Writes what the open batches hold so far, so that whoever looks at the disk now sees what
  /// single writes would have left there.
  void FlushBatches();

  /// The state of a file that reads and writes of its keys go by.
  std::optional<FileStamp> Seen(std::string_view path);

  /// The bytes of a file where they are known without reading it again: nobody has been at it since
  /// it was read, and nothing waits to be written. Valid until the next call.
  std::optional<std::string_view> BytesOnDisk(std::string_view path);

  /// Whether the keys of a file can be seen: it is there, can be opened and is no UTF-16.
  bool CanRead(std::string_view path);

  /// The paths of the files that a write, in a batch or by itself, did not reach since the last
  /// call of `ForgetMissed`; each once.
  const std::vector<std::string>& Missed() const { return missed; }
  void ForgetMissed() { missed.clear(); }

  /// Called right before a file is written.
  std::function<void()> beforeWrite;

 private:
  friend class ProfileBatch;
  struct File;
  void BeginBatch(std::string_view path);
  void EndBatch(std::string_view path);
  File& FileAt(std::string_view path);
  File& Current(std::string_view path);
  void Read(std::string_view path, const std::optional<FileStamp>& stamp, File& file);
  bool Flush(std::string_view path, File& file);

  bool Miss(std::string_view path);

  FileStore& store;
  std::vector<std::string> missed;
  std::map<std::string, std::unique_ptr<File>, std::less<>> files;
};

/// While it lives, reads and writes of one file work on the copy in memory; its end writes the file
/// once, if anything has changed. A failure of that write is silent, like that of a single one, and
/// stands in `Missed` afterwards.
class ProfileBatch {
 public:
  ProfileBatch(PrivateProfile& privateProfile, std::string_view filePath);
  ~ProfileBatch();
  ProfileBatch(const ProfileBatch&) = delete;
  ProfileBatch& operator=(const ProfileBatch&) = delete;

 private:
  PrivateProfile& profile;
  std::string path;
};

}  // namespace dialwright
