#pragma once

namespace dialwright {

struct frmMain;

/// The save button: the preparations, then the chain.
void cmdSave_Click(frmMain& form);

/// Writes all of the selected slot's files, section by section, and runs the steps after a save. A
/// refused section stops the chain with the earlier ones written.
void SaveKeyMapInfo(frmMain& form, bool bCreateKeyDocument, bool second);

}  // namespace dialwright
