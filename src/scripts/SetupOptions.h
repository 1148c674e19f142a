#pragma once

#include <span>
#include <string_view>

#include "shell/frmMain.h"

namespace dialwright {

/// One option of the subscriber's setup conversation: its check box and that box's name, its key in
/// the setup script, and the digit that the key holds while the option is offered.
struct SetupOption {
  CheckBox frmMain::*box;
  std::string_view name;
  std::string_view key;
  std::string_view digit;
};

/// The eight options: the main setup menu, then the message settings menu.
std::span<const SetupOption> SetupOptions();

/// Sets all eight check boxes to a value.
void SetAllSetupOptions(frmMain& form, int value);

/// Fills the check boxes from the setup script: any value that is not blank checks its box. Nothing
/// happens without the Setup tab or a path.
void LoadSetupInfo(frmMain& form);
/// Writes the check boxes to the setup script, disabled ones as they stand.
void SaveSetupInfo(frmMain& form);

void chkMAIN_MESSAGE_SETTINGS_Click(frmMain& form);
/// Enables the boxes of the message settings menu while that menu is offered.
void EnableMessageOptions(frmMain& form);

}  // namespace dialwright
