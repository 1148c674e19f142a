#pragma once

#include <cstdint>

namespace dialwright {

class Program;
struct frmMain;

/// The start-up sequence. Ends the program (EndProgram) on a server that is too old or without its
/// script files.
void Form_Load(frmMain& form);

/// The close box. Sets `Cancel` when the user wants to stay.
void Form_Unload(frmMain& form, std::int16_t& Cancel);

/// The common way out: asks when there are unsaved changes, and ends the program with EndProgram.
/// Returns only when the user answers No.
void RequestExit(Program& program);

/// Fills all grids and the setup check boxes from the selected slot's files.
void LoadKeyMapInfo(frmMain& form);

/// Shows the row that is selected on the new tab.
void SSTab1_Click(frmMain& form);

/// The switch to a custom slot, 1 to 3.
void SelectSlot(frmMain& form, int slot);

}  // namespace dialwright
