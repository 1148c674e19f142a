#pragma once

#include <string_view>

namespace dialwright {

struct frmMain;

/// The order of an action that is not voiced in its menu.
inline constexpr std::string_view notVoiced = "99999";

/// Voiced actions are numbered in these steps.
inline constexpr int orderStep = 10;

/// Adds a row at the end of a grid, with key and order trimmed. Adds nothing, silently, when the
/// order is neither empty nor a number, or there is no such grid.
void AddKeyToGrid(frmMain& form, int grid, std::string_view key, std::string_view order,
                  std::string_view label, std::string_view token);

/// Numbers the voiced rows of a menu 10, 20, 30 and so on as they stand, puts the others below
/// them, and keeps the selected action selected. Only the main menu, the after message menu and the
/// globals have an order; other grids are left alone.
void SortGrid(frmMain& form, int Index);

/// Begins the filling of a grid: suspends its drawing and cuts it down to its heading.
void BeginFilling(frmMain& form, int Index);
/// Ends it: selects the first row and draws again. A voiced menu is sorted first by the orders that
/// it was given.
void EndFilling(frmMain& form, int Index);

}  // namespace dialwright
