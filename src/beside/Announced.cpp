#include "beside/Announced.h"

#include "beside/EffectiveRows.h"
#include "keymap/KeyMapGrid.h"
#include "scripts/KeyMapSave.h"
#include "shell/frmMain.h"

namespace dialwright {

bool AnnouncesActions(int gridNumber) {
  return gridNumber == mainMenuGrid || gridNumber == afterMessageGrid;
}

bool IsAnnounced(int gridNumber, std::string_view token, std::string_view order) {
  if (gridNumber == afterMessageGrid && IsSavedAsNotVoiced(token)) return false;
  return AnnouncesActions(gridNumber) && order != notVoiced;
}

std::vector<int> AnnouncedPlaces(const KeyGrid& grid, int gridNumber) {
  std::vector<int> places;
  int last = 0;
  for (const MenuRow& row : RowsOf(grid)) places.push_back(IsVoiced(gridNumber, row) ? ++last : 0);
  return places;
}

}  // namespace dialwright
