#pragma once

namespace dialwright {

struct frmMain;

/// Sets the full paths of the selected slot's files and makes sure that they exist; ends the
/// program at the first that does not, unless the user wants to keep unsaved changes.
void LoadScriptPaths(frmMain& form);

}  // namespace dialwright
