#include "beside/Keypad.h"

#include <algorithm>

#include "beside/EffectiveRows.h"

namespace dialwright {

namespace {

/// Whether two of the rows bear the same key.
bool HoldsTwins(const std::vector<const MenuRow*>& rows) {
  for (auto row = rows.begin(); row != rows.end(); ++row)
    if (std::any_of(row + 1, rows.end(),
                    [row](const MenuRow* other) { return IsSameKey((*row)->key, other->key); }))
      return true;
  return false;
}

KeyState StateOf(const Reached& reached) {
  if (reached.exact.size() > 1 || HoldsTwins(reached.longer)) return KeyState::clash;
  if (reached.exact.empty()) return reached.longer.empty() ? KeyState::free : KeyState::opens;
  return reached.longer.empty() ? KeyState::direct : KeyState::waits;
}

}  // namespace

std::string_view StateName(KeyState state) {
  constexpr std::string_view names[] = {"free", "direct", "opens", "waits", "clash"};
  return names[static_cast<std::size_t>(state)];
}

Keypad KeypadOf(const MenuRows& rows) {
  Keypad keypad;
  for (std::size_t i = 0; i < keypad.size(); ++i) {
    const Reached reached = Reach(rows, telephoneKeys.substr(i, 1));
    keypad[i] = {telephoneKeys[i], StateOf(reached), RowNumbers(reached.exact),
                 RowNumbers(reached.longer)};
  }
  return keypad;
}

std::vector<const MenuRow*> VoicedRows(int grid, const MenuRows& rows) {
  std::vector<const MenuRow*> voiced;
  for (const MenuRow& row : rows)
    if (IsVoiced(grid, row)) voiced.push_back(&row);
  return voiced;
}

}  // namespace dialwright
