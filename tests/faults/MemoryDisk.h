#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileStore.h"

namespace dialwright {

/// A whole disk in memory, fast enough to play a save once for each of its operations. Names are
/// taken without case; a folder is there when it was made or holds a file.
class MemoryDisk : public FileStore {
 public:
  using Snapshot = std::map<std::string, std::string>;  // bytes by path, in lower case

  /// Makes or changes a file as somebody else would.
  void put(std::string_view path, std::string_view bytes);
  /// The bytes of all files.
  Snapshot snapshot() const;

  Kind kind(std::string_view path) override;
  std::optional<FileStamp> stamp(std::string_view path) override;
  std::vector<std::string> fileNames(std::string_view folder) override;
  std::string read(std::string_view path) override;
  std::unique_ptr<OutputFile> open(std::string_view path, Opening opening, bool create) override;
  void replace(std::string_view path, std::string_view bytes) override;
  void copy(std::string_view from, std::string_view to, bool overwrite) override;
  void remove(std::string_view path, bool force) override;
  void createFolder(std::string_view path) override;

 private:
  struct Entry {
    std::string name;
    std::string bytes;
    std::int64_t revision = 0;
  };
  class Output;
  Entry& at(std::string_view path);

  std::map<std::string, Entry> files;  // by path in lower case
  std::map<std::string, bool> folders;
  std::int64_t revisions = 0;
};

}  // namespace dialwright
