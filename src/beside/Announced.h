#pragma once

#include <string_view>
#include <vector>

#include "controls/KeyGrid.h"

namespace dialwright {

/// Whether the telephone announces the actions of a grid's menu, one behind the other: the main
/// menu and the after message menu. In the others voicing and order mean nothing to it.
bool AnnouncesActions(int gridNumber);

/// Whether a save writes a row as one that its menu announces: the goto actions of the after
/// message menu never are.
bool IsAnnounced(int gridNumber, std::string_view token, std::string_view order);

/// The place of each data row among those that the telephone announces, counted from 1; 0 for a row
/// that it does not announce.
std::vector<int> AnnouncedPlaces(const KeyGrid& grid, int gridNumber);

}  // namespace dialwright
