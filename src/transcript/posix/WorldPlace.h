#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "platform/posix/FileStorePosix.h"
#include "platform/standins/FileLanguages.h"
#include "platform/standins/RegistryFile.h"

namespace dialwright {

/// What a transcript's world has from the operating system: on each, the same names.

/// A new folder for the files of one transcript, gone with it.
struct WorldFolder {
  WorldFolder();
  ~WorldFolder();
  WorldFolder(const WorldFolder&) = delete;
  WorldFolder& operator=(const WorldFolder&) = delete;

  std::filesystem::path path;
};

/// The files of such a folder, under the system's paths.
struct WorldDisk : FileStorePosix {
  explicit WorldDisk(const WorldFolder& folder) : FileStorePosix(folder.path.string(), 'C') {}
};

using WorldRegistry = MemoryRegistry;

struct WorldLanguages : FileLanguages {
  WorldLanguages(const WorldFolder&, FileStore& files, std::int32_t userLanguage)
      : FileLanguages(files, userLanguage) {}
};

}  // namespace dialwright
