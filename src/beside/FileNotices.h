#pragma once

#include <string>
#include <vector>

namespace dialwright {

struct frmMain;

/// What the window says beside the form of the selected slot's scripts.
struct FileNotice {
  enum class Remedy { none, loadAnew, earlierVersions };
  std::string text;  ///< in the program's language, its lines divided by line feeds
  Remedy remedy = Remedy::none;
};

/// The notices of the present moment, what is worst first; looks at the files. The scripts are
/// named by their real places on this machine.
std::vector<FileNotice> FileNotices(const frmMain& form);

}  // namespace dialwright
