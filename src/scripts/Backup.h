#pragma once

namespace dialwright {

struct frmMain;

/// Copies the selected slot's scripts to the "Backup" folder under the program folder.
void BackupScriptFiles(frmMain& form);

/// Copies all slots' scripts from there back to the server's script folder and tells how many.
/// Returns whether there was a backup to take them from.
bool RestoreScriptfiles(frmMain& form);

}  // namespace dialwright
