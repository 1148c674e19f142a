#pragma once

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <map>
#include <string>

#include "Desk.h"
#include "Tracer.h"
#include "platform/FileStorePosix.h"
#include "TempFolder.h"

namespace dialwright {

/// A server on the host's own files, and a user's program over it.
class RealServer {
 public:
  using Snapshot = std::map<std::string, std::string>;  // bytes by host path

  RealServer() {
    LayOut([this](std::string_view path, std::string_view bytes) {
      folder.write(std::filesystem::relative(disk.HostPath(path), folder.path).string(), bytes);
    });
  }

  std::string script(std::size_t which) const {
    return disk.HostPath(std::string(scriptFolder) + std::string(slotScripts[which]));
  }
  std::string backup(std::size_t which) const {
    return disk.HostPath(std::string(programFolder) + "Backup\\" +
                         std::string(slotScripts[which]));
  }
  std::string bytesOf(const std::string& hostPath) const {
    return folder.read(std::filesystem::relative(hostPath, folder.path).string());
  }

  Snapshot snapshot() const {
    Snapshot files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path))
      if (entry.is_regular_file()) files[entry.path()] = bytesOf(entry.path());
    return files;
  }
  void putBack(const Snapshot& files) const {
    for (const auto& [path, bytes] : snapshot())
      if (!files.contains(path)) std::filesystem::remove(path);
    for (const auto& [path, bytes] : files)
      if (bytesOf(path) != bytes) std::ofstream(path, std::ios::binary) << bytes;
  }

  /// Everything belongs to the user that an owner of the machine becomes.
  void giveToOrdinaryUser() const {
    if (geteuid() != 0) return;
    const auto give = [](const std::filesystem::path& path) {
      return lchown(path.c_str(), ordinaryUser, ordinaryUser) == 0;
    };
    bool given = give(folder.path);
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path))
      given = give(entry.path()) && given;
    if (!given) throw std::runtime_error("the files cannot be given away");
  }

  TempFolder folder;
  FileStorePosix disk{folder.path.string(), 'C'};
  Desk desk{disk};
};

}  // namespace dialwright
