#pragma once

#include <array>
#include <vector>

#include "beside/Changes.h"
#include "shell/frmMain.h"

namespace dialwright {

/// What replaces rows of the form at once. No handler runs, the focus stays, and the action in hand
/// stays in hand. If it was replaced the edit controls show it anew: a text that was typed there is
/// dropped.

/// Gives the row with the token of `before` its key and, where the menu says its actions, its
/// voice. A row that is voiced again comes last among the voiced ones, a silent one first among
/// the silent ones.
void RevertRow(frmMain& form, int grid, const CountedRow& before);

/// Replaces all rows of a grid. In a menu that says its actions the voiced rows, as they stand, are
/// numbered anew.
void ReplaceRows(frmMain& form, int grid, std::vector<KeyGrid::Cells> rows);

/// Sets the setup boxes, in the order of the setup table, and enables those that hang on another.
void ReplaceSetup(frmMain& form, const std::array<bool, setupOptionCount>& checked);

}  // namespace dialwright
