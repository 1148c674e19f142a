#pragma once

namespace dialwright {

struct frmMain;

/// Writes the setup sections of the key map documents, on a server that has them, and ends the XML
/// key map. Always true.
bool SaveSetupMenuKeyInfo(frmMain& form, bool bCreateKeyDocument, bool second);

}  // namespace dialwright
