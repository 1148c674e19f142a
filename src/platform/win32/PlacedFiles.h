#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/win32/FileStoreWin32.h"

namespace dialwright {

/// The files of Windows with a system's drives laid elsewhere: nothing on the machine's own drives
/// is touched but what `Placed` leads to.
class PlacedFiles : public FileStore {
 public:
  Kind KindOf(std::string_view path) override { return files.KindOf(Placed(path)); }
  std::optional<FileStamp> Stamp(std::string_view path) override {
    return files.Stamp(Placed(path));
  }
  std::vector<std::string> FileNames(std::string_view path) override {
    return files.FileNames(Placed(path));
  }
  std::string Read(std::string_view path) override { return files.Read(Placed(path)); }
  std::unique_ptr<OutputFile> Open(std::string_view path, Opening opening, bool create) override {
    return files.Open(Placed(path), opening, create);
  }
  void Replace(std::string_view path, std::string_view bytes) override {
    files.Replace(Placed(path), bytes);
  }
  void Copy(std::string_view from, std::string_view to, bool overwrite) override {
    files.Copy(Placed(from), Placed(to), overwrite);
  }
  void Remove(std::string_view path, bool force) override { files.Remove(Placed(path), force); }
  void CreateFolder(std::string_view path) override { files.CreateFolder(Placed(path)); }
  std::string RealPath(std::string_view path) override { return Placed(path); }
  bool IsWritable(std::string_view path) override { return files.IsWritable(Placed(path)); }
  std::unique_ptr<FolderLock> Lock(std::string_view path,
                                   std::chrono::milliseconds patience) override {
    return files.Lock(Placed(path), patience);
  }
  void RemoveLeftovers(std::string_view path) override { files.RemoveLeftovers(Placed(path)); }

 protected:
  /// Where a path of the system really lies.
  virtual std::string Placed(std::string_view path) const = 0;

 private:
  FileStoreWin32 files;
};

}  // namespace dialwright
