#pragma once

#include <iosfwd>
#include <string_view>
#include <vector>

#include "beside/Findings.h"
#include "beside/KeyMap.h"
#include "messages/Messages.h"

namespace dialwright {

/// A finding as one line: its kind, its menu, what is wrong and the actions.
void PrintFinding(const frmMain& form, const Finding& finding, std::ostream& out, bool colour);

/// The actions that a server does not have, if there are any.
void PrintSkipped(const std::vector<SkippedAction>& skipped, Messages& strings,
                  std::ostream& words);

}  // namespace dialwright
