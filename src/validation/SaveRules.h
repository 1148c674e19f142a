#pragma once

#include <string>
#include <vector>

#include "validation/MenuRows.h"

namespace dialwright {

class MeridVersion;
class Messages;
struct frmMain;

/// What a save refuses a menu for.
enum class SaveRule {
  keyForVoiced,  ///< an action that the main menu announces has a key
  oneRowAKey,    ///< a key stands on one row only
  keysApart,     ///< some actions' keys are not the first digit of a two-key sequence
};

/// One breach of a rule.
struct Refusal {
  int grid = 0;
  SaveRule rule = SaveRule::keyForVoiced;
  std::vector<int> rows;  ///< those concerned, the one that the rule is broken at first
  std::string key;        ///< of a key on several rows
};

/// All that a save would refuse a menu for, in the order in which it looks: row by row, then the
/// rule about the menu as a whole. Empty if a save takes the menu.
std::vector<Refusal> Refusals(int grid, const MenuRows& rows, const MeridVersion& server);

/// What a save tells the user of it.
std::string RefusalText(Messages& texts, const Refusal& refusal);

/// The save's own look at a menu: tells the user of the first refusal, and brings the tab of a key
/// on several rows to the front. Returns whether there was one.
bool RefusedBySave(frmMain& form, int grid, const MenuRows& rows);

}  // namespace dialwright
