#pragma once

#include <cstddef>
#include <string>

namespace dialwright {

struct frmMain;

/// The texts of the status line, in the language of the moment.

/// "Merid 7.0(2.0), Slot 1"
std::string ServerStatus(const frmMain& form);
/// "No findings", "1 finding", "2 findings"
std::string FindingsStatus(const frmMain& form, std::size_t count);
/// What came of the last save: "saved 18:31", or why it was not; empty if there was none since the
/// last load. `time` is that of a complete save.
std::string SaveStatus(const frmMain& form, const std::string& time);

}  // namespace dialwright
