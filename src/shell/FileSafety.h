#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/FileStore.h"

namespace dialwright {

/// What the program knows of the selected slot's scripts besides what they hold; the form itself
/// says nothing of it.
struct FileSafety {
  /// A script and its state when it was last loaded or written by this program.
  struct Seen {
    std::string path;
    std::optional<FileStamp> stamp;
    bool isReadable = false;
  };
  std::vector<Seen> seen;

  std::vector<std::string> overwritten;     ///< by the last save, changed by somebody else before
  std::vector<std::string> notBroughtBack;  ///< of the version brought back last
  int revision = 0;                         ///< goes up with whatever happens to the scripts
  bool notKept = false;                     ///< what stood before the last save or restore
};

}  // namespace dialwright
