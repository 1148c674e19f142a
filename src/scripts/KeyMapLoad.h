#pragma once

#include <string_view>

namespace dialwright {

struct frmMain;

/// The loads of the grids from the selected slot's files. A file that is missing is reported. The
/// main menu and the globals are emptied then; the others keep their former rows.
void LoadMainMenuKeyMapInfo(frmMain& form);
void LoadGlobalsKeyMapInfo(frmMain& form);

/// `strScript` is the full path of another script to read; empty means the slot's own.
void LoadVCRKeyMapInfo(frmMain& form, std::string_view strScript);
void LoadAfterMessageKeyMapInfo(frmMain& form, std::string_view strScript);

}  // namespace dialwright
