#pragma once

#include <string>
#include <string_view>

#include "beside/Snapshot.h"

namespace dialwright {

/// What a step has done, as a name in the language of the moment: "Key of Help".
std::string StepName(const frmMain& form, const Snapshot& before, const Snapshot& after);

/// The name of the step that gives a row its key and voice back.
std::string RevertName(const frmMain& form, std::string_view label);

/// The name of the step that a menu item takes; empty if it is told from what it changes. Of the
/// form's own items the stock conversations alone have one.
std::string ItemStepName(const frmMain& form, const MenuItem& item);

}  // namespace dialwright
