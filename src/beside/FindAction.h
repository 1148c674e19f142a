#pragma once

#include <string_view>
#include <vector>

#include "beside/EffectiveRows.h"

namespace dialwright {

/// A row that a search has found.
struct Match {
  int grid = 0;
  MenuRow row;
};

/// The rows of all tabs that are there whose label or token holds the text, without regard to case,
/// or, if it is made of keys of a telephone alone, whose key begins with it; by tab and row.
std::vector<Match> FindActions(const frmMain& form, std::string_view text);

}  // namespace dialwright
