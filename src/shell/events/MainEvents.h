#pragma once

namespace dialwright {

struct frmMain;

/// Joins the events of the form's controls to the procedures that handle them.
void ConnectEvents(frmMain& form);

}  // namespace dialwright
