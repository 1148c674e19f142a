#pragma once

#include <string>

namespace dialwright {

class MainWindow;
struct frmMain;

/// Holds what the window shows against what the controls of the form hold. Returns the first
/// difference, in words; empty if there is none.
std::string MirrorDifference(const frmMain& form, MainWindow& window);

}  // namespace dialwright
