#include "keymap/Announced.h"

#include "keymap/KeyMapGrid.h"
#include "text/Text.h"

namespace dialwright {

namespace {

constexpr int mainMenu = 0;
constexpr int afterMessageMenu = 4;

/// The goto actions of the after message menu are saved as not voiced, whatever their order says.
bool IsAnnounced(const KeyGrid& grid, int row, int gridNumber) {
  const std::string& token = grid.Text(row, Column::ActionToken);
  if (gridNumber == afterMessageMenu &&
      (token == "MSGMENU_GOTO_ENABLE" || token == "MSGMENU_GOTO_JUMPBACK" ||
       token == "MSGMENU_GOTO_JUMPFORWARD"))
    return false;
  return Trim(grid.Text(row, Column::Order)) != notVoiced;
}

}  // namespace

bool AnnouncesActions(int gridNumber) {
  return gridNumber == mainMenu || gridNumber == afterMessageMenu;
}

std::vector<int> AnnouncedPlaces(const KeyGrid& grid, int gridNumber) {
  std::vector<int> places;
  int last = 0;
  for (int row = 1; row < grid.Rows(); ++row)
    places.push_back(AnnouncesActions(gridNumber) && IsAnnounced(grid, row, gridNumber) ? ++last
                                                                                        : 0);
  return places;
}

}  // namespace dialwright
