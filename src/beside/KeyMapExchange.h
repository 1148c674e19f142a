#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "beside/KeyMap.h"

namespace dialwright {

class History;

/// What came of a key map's leaving the editor or coming into it.
struct KeyMapNews {
  std::string fault;  ///< why nothing has happened, for the user; empty if it has
  std::vector<SkippedAction> skipped;
};

/// Writes the form's key map as a key map file; `path` is one of the system's.
KeyMapNews ExportKeyMap(const frmMain& form, std::string_view path);

/// Takes a key map file in, as one step of the user's.
KeyMapNews ImportKeyMap(History& history, const frmMain& form, std::string_view path);

/// Takes the keys of another of the server's slots in, as one step of the user's.
KeyMapNews CopyKeysFrom(History& history, const frmMain& form, int slot);

/// What a user is told of actions that were left out; empty if there are none.
std::string SkippedText(const frmMain& form, const std::vector<SkippedAction>& skipped);

/// The number of slots that the form's server has.
int SlotsOf(const frmMain& form);

}  // namespace dialwright
