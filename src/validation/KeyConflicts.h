#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace dialwright {

class KeyGrid;
struct frmMain;

/// The keys that must not be the first digit of a two-key sequence; empty ones never conflict.
using ConflictKeys = std::array<std::string, 7>;

/// Whether one of the keys is the first digit of a two-character key of the list.
bool bKeyConflicts(std::string_view keyList, const ConflictKeys& keys);

/// One section of a save and what its duplicate rule does.
struct MenuSection {
  int grid;                       ///< also the tab that a duplicate brings to the front
  std::string_view documentName;  ///< its name in the key map documents
  int duplicateMessage;           ///< string number
  bool countsErrors;              ///< a duplicate raises `iKeyMapErrorCount`
};

/// The trimmed keys of a grid in row order, each followed by a comma.
std::string KeyList(const KeyGrid& grid);

/// The duplicate rule: a row's key may stand on no other row. Returns whether the row breaks it,
/// after telling the user and bringing the section's tab to the front.
bool RefusedAsDuplicate(frmMain& form, const MenuSection& section, int row);

}  // namespace dialwright
