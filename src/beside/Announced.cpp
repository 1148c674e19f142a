#include "beside/Announced.h"

#include "beside/EffectiveRows.h"
#include "shell/frmMain.h"

namespace dialwright {

bool AnnouncesActions(int gridNumber) {
  return gridNumber == mainMenuGrid || gridNumber == afterMessageGrid;
}

std::vector<int> AnnouncedPlaces(const KeyGrid& grid, int gridNumber) {
  std::vector<int> places;
  int last = 0;
  for (const MenuRow& row : RowsOf(grid)) places.push_back(IsVoiced(gridNumber, row) ? ++last : 0);
  return places;
}

}  // namespace dialwright
