#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "platform/FileStore.h"

namespace dialwright {

/// Files on which one can play what would be written: they read as those below, and whatever is
/// written, removed or made stays in memory.
class OverlayFiles : public FileStore {
 public:
  explicit OverlayFiles(FileStore& realFiles) : below(realFiles) {}

  /// What is not there in a folder is read from another one.
  void ReadAs(std::string folder, std::string other);

  /// A file that was touched, and its bytes now; nothing if it was removed.
  struct Change {
    std::string path;  ///< as it was spelled first
    std::optional<std::string> bytes;
  };
  /// What was touched, by path.
  std::map<std::string, Change> Changes() const;

  Kind KindOf(std::string_view path) override;
  std::optional<FileStamp> Stamp(std::string_view path) override;
  std::vector<std::string> FileNames(std::string_view folder) override;
  std::string Read(std::string_view path) override;
  std::unique_ptr<OutputFile> Open(std::string_view path, Opening opening, bool create) override;
  void Replace(std::string_view path, std::string_view bytes) override;
  void Copy(std::string_view from, std::string_view to, bool overwrite) override;
  void Remove(std::string_view path, bool force) override;
  void CreateFolder(std::string_view path) override;
  std::string RealPath(std::string_view path) override { return below.RealPath(path); }
  bool IsWritable(std::string_view path) override;

 private:
  class Output;
  struct Entry {
    Change change;
    std::int64_t revision = 0;
  };
  void Put(std::string_view path, std::optional<std::string> bytes);
  void NeedWritable(std::string_view path);
  void NeedFolderOf(std::string_view path);

  /// Where what was not touched is to be found below.
  std::string Below(std::string_view path);

  FileStore& below;
  std::string aliased, original;
  std::map<std::string, Entry> touched;  // by folded path
  std::set<std::string> folders;         // folded
  std::int64_t revisions = 0;
};

}  // namespace dialwright
