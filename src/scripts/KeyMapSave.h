#pragma once

#include <string_view>

namespace dialwright {

struct frmMain;

/// The saves of the menus: each judges its section whole, then writes it to the slot's files, and
/// feeds the key map documents if `bCreateKeyDocument` is set. `second` is only handed down.
/// Returns false when a section was refused: it is untouched then, and what was written before
/// stays.
bool SaveMainMenuKeyInfo(frmMain& form, bool bCreateKeyDocument, bool second);
bool SaveVCRKeyInfo(frmMain& form, bool bCreateKeyDocument, bool second);
bool SaveAfterMessageKeyInfo(frmMain& form, bool bCreateKeyDocument, bool second);
bool SaveGlobalsKeyInfo(frmMain& form, bool bCreateKeyDocument, bool second);

/// Whether the save of the after message menu writes an action as not voiced, whatever its order.
bool IsSavedAsNotVoiced(std::string_view token);

}  // namespace dialwright
