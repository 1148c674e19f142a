#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "beside/Telephone.h"

namespace dialwright {

/// What a key of the telephone is in a menu.
enum class KeyState {
  free,    ///< no row's key begins with it
  direct,  ///< one row has it as its whole key, and nothing else begins with it
  opens,   ///< only longer keys begin with it
  waits,   ///< both
  clash,   ///< two rows bear the same key, and that begins with it
};

/// "free", "direct", "opens", "waits" or "clash".
std::string_view StateName(KeyState state);

/// One key of the keypad and the rows of the grid that begin with it.
struct KeypadKey {
  char key = '1';
  KeyState state = KeyState::free;
  std::vector<int> exact;   ///< rows with it as their whole key
  std::vector<int> longer;  ///< rows whose longer keys begin with it
};

/// The twelve keys in the order in which they lie on a telephone.
using Keypad = std::array<KeypadKey, telephoneKeys.size()>;
Keypad KeypadOf(const MenuRows& rows);

/// The rows that the menu announces, in their order. Only the main menu and the after message menu
/// announce any.
std::vector<const MenuRow*> VoicedRows(int grid, const MenuRows& rows);

}  // namespace dialwright
