#pragma once

#include <optional>
#include <string>

#include "beside/KeyMap.h"

namespace dialwright {

/// Why the files of a slot give no key map, for the user.
struct SlotFault {
  std::string text;
};

/// The key map of a slot, read from its files as a switch to it would read them. The program's own
/// form stays as it is. Throws SlotFault.
KeyMap KeyMapOfSlot(Program& program, int slot);

/// Which of the form's scripts cannot be read and why, as one line; nothing if all can. A load
/// shows such a script as one without keys.
std::optional<std::string> UnreadableScript(const frmMain& form);

}  // namespace dialwright
