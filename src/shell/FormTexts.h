#pragma once

namespace dialwright {

struct frmMain;

/// Sets the form's texts in the language of the moment.
void SetFormTexts(frmMain& form);

}  // namespace dialwright
