#pragma once

#include <cstdint>

namespace dialwright {

struct frmMain;

/// The start-up sequence. Ends the program (EndProgram) on a server that is too old or without its
/// script files.
void Form_Load(frmMain& form);

/// The close box. Sets `Cancel` when the user wants to stay.
void Form_Unload(frmMain& form, std::int16_t& Cancel);

/// Sets the form's texts in the language of the moment, cuts the Setup tab and the internal preset
/// to the server, and loads the key map. Runs once at the start, and again when a language is
/// picked.
void frmMain_Auto_Init(frmMain& form);

/// Fills all grids and the setup check boxes from the selected slot's files.
void LoadKeyMapInfo(frmMain& form);

/// Shows the row that is selected on the new tab.
void SSTab1_Click(frmMain& form);

/// The switch to a custom slot, 1 to 3.
void SelectSlot(frmMain& form, int slot);

}  // namespace dialwright
