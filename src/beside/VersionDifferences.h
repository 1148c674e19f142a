#pragma once

#include <string>
#include <vector>

#include "scripts/EarlierVersions.h"

namespace dialwright {

/// One action that has another key, or is voiced otherwise, in an earlier version than in the form.
struct VersionDifference {
  int grid = 0;
  std::string action;  ///< its label
  std::string then;    ///< the key, empty for none
  std::string now;
  bool wasVoiced = true;  ///< in the menus that are announced
  bool isVoiced = true;
};

/// What an earlier version holds otherwise than the form does, by grid and row. Scripts that the
/// version does not have are left out.
std::vector<VersionDifference> VersionDifferences(frmMain& form, const EarlierVersion& version);

}  // namespace dialwright
