#pragma once

#include <array>

#include "shell/frmMain.h"
#include "validation/MenuRows.h"

namespace dialwright {

/// The grid whose edit box has the focus; -1 if none has.
int GridOfBoxInHand(const frmMain& form);

/// The rows of a grid as they would be if the edit box that has the focus were left now: its text
/// is the key of the row in hand, an empty one silences the row, and one that may not leave the box
/// counts for nothing. Nothing is sorted for that.
MenuRows EffectiveRows(const frmMain& form, int grid);

/// The same of all grids, those without a tab too.
using EffectiveGrids = std::array<MenuRows, gridCount>;
EffectiveGrids EffectiveGridsOf(const frmMain& form);

/// Whether the menu announces the row.
bool IsVoiced(int grid, const MenuRow& row);

}  // namespace dialwright
