#pragma once

#include <string>
#include <vector>

#include "beside/KeyMap.h"

namespace dialwright {

class History;

/// Takes a key map in as one step of the user's of that name: the rows in hand and the focus stay,
/// and `cmdSave` is on. Returns the actions that this server does not have: they are left out.
std::vector<SkippedAction> TakeIn(History& history, const frmMain& form, const KeyMap& map,
                                  const std::string& name);

}  // namespace dialwright
