#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "shell/frmMain.h"

namespace dialwright {

/// The menus as key map files name them, by the numbers of their grids.
inline constexpr ControlArray<std::string_view> menuNames{"main",   "header", "body",
                                                          "footer", "after",  "globals"};

/// Whether the conversation announces a menu's actions: only there are rows voiced or not.
constexpr bool Announces(int grid) { return grid == 0 || grid == 4; }

/// One action of a key map. Nothing in a key or a voice leaves it as it stands where the map is
/// taken in.
struct KeyMapRow {
  std::string action;
  std::optional<std::string> key;
  std::optional<bool> voiced;  ///< only where the menu announces its actions

  friend bool operator==(const KeyMapRow&, const KeyMapRow&) = default;
};

using KeyMapMenu = std::vector<KeyMapRow>;

/// A setup box by its name, and whether it is checked.
struct KeyMapBox {
  std::string name;
  bool checked = false;

  friend bool operator==(const KeyMapBox&, const KeyMapBox&) = default;
};

/// A key map apart from its editor: what a save would write of it, and where it comes from.
struct KeyMap {
  std::string edition;  ///< "Merid" or "Tessel"
  std::string server;   ///< its version, as 7.0(2.0)
  int slot = 1;
  ControlArray<KeyMapMenu> menus;
  std::optional<std::vector<KeyMapBox>> setup;  ///< only where there is a Setup tab
};

/// An action of a menu that a server does not have.
struct SkippedAction {
  int grid = 0;
  std::string action;

  friend bool operator==(const SkippedAction&, const SkippedAction&) = default;
};

/// The rows of a grid behind the taking in of a menu: rows that it names take their keys. Where
/// actions are announced the rows that it voices come first, in its order, then the other voiced
/// ones; an action that is never voiced and is silent stays so. What the grid does not have is
/// added to `skipped`.
std::vector<KeyGrid::Cells> TakenIn(std::vector<KeyGrid::Cells> rows, int grid,
                                    const KeyMapMenu& menu, std::vector<SkippedAction>& skipped);

/// The form's key map as it would be if the edit box that has the focus were left now.
KeyMap KeyMapOf(const frmMain& form);

/// The name of the edition that the form's server is of, as documents and key map files give it.
std::string_view EditionName(const frmMain& form);

}  // namespace dialwright
