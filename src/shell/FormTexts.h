#pragma once

namespace dialwright {

struct frmMain;

/// Sets the form's texts in the language of the moment, cuts the Setup tab and the internal preset
/// to the server, and loads the key map. Runs once at the start, and again when a language is
/// picked.
void frmMain_Auto_Init(frmMain& form);

}  // namespace dialwright
