#pragma once

#include <string>
#include <vector>

namespace dialwright {

struct frmMain;

/// Sets the full paths of the selected slot's files and makes sure that they exist; ends the
/// program at the first that does not, unless the user wants to keep unsaved changes.
void LoadScriptPaths(frmMain& form);

/// The paths that the files of a slot have: the setup script's only where there is a Setup tab.
std::vector<std::string> PathsOfSlot(const frmMain& form, int slot);

}  // namespace dialwright
