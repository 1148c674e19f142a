#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/win32/PlacedFiles.h"

namespace dialwright {

/// The files of a copied server on Windows: its drives are folders `drive_x` of its folder, and
/// nothing on the machine's own drives is touched but what lies in that folder.
class FolderFiles : public PlacedFiles {
 public:
  /// Folders are absolute, without a backslash at their end; paths in the server's own and in
  /// `realFolders` are taken as they are.
  FolderFiles(std::string serverFolder, std::vector<std::string> realFolders)
      : folder(std::move(serverFolder)), real(std::move(realFolders)) {
    real.push_back(folder);
  }

 private:
  std::string Placed(std::string_view path) const override;

  std::string folder;
  std::vector<std::string> real;
};

}  // namespace dialwright
