#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "WorldPlace.h"

namespace dialwright {

inline std::string BytesOf(const std::filesystem::path& hostFile) {
  std::ifstream file(hostFile, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// A folder of the host for one test, gone with it.
struct TempFolder : WorldFolder {
  std::filesystem::path operator/(std::string_view name) const { return path / name; }

  /// Writes a file below the folder and makes the folders that it needs.
  void Write(std::string_view name, std::string_view bytes) const {
    std::filesystem::create_directories((path / name).parent_path());
    std::ofstream(path / name, std::ios::binary) << bytes;
  }
  std::string Read(std::string_view name) const { return BytesOf(path / name); }
};

}  // namespace dialwright
