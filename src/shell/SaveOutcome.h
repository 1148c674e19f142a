#pragma once

#include <string>
#include <vector>

namespace dialwright {

/// What came of the last save since the last load of the form from the files.
struct SaveOutcome {
  enum class Kind {
    none,
    complete,
    refused,    ///< by the rules of a grid; what was written before it stands
    incomplete  ///< some of what the form holds did not reach its file
  };

  static SaveOutcome Refused(int grid) { return {Kind::refused, grid, {}}; }

  Kind kind = Kind::none;
  int grid = -1;                   ///< that refused
  std::vector<std::string> files;  ///< that were not reached, in the order of the slot's files
};

}  // namespace dialwright
