#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

namespace dialwright {

/// A folder of the host for one test, gone with it.
class TempFolder {
 public:
  TempFolder() {
    std::random_device random;
    do {
      path =
          std::filesystem::temp_directory_path() / ("dialwright-test-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(path));
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  std::filesystem::path operator/(std::string_view name) const { return path / name; }

  /// Writes a file below the folder and makes the folders that it needs.
  void write(std::string_view name, std::string_view bytes) const {
    std::filesystem::create_directories((path / name).parent_path());
    std::ofstream(path / name, std::ios::binary) << bytes;
  }
  std::string read(std::string_view name) const {
    std::ifstream file(path / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }

  std::filesystem::path path;
};

}  // namespace dialwright
