#pragma once

#include <span>
#include <string_view>

#include "keymap/Catalogue.h"
#include "shell/frmMain.h"

namespace dialwright {

/// A setup option as a mapping of the key map documents.
struct SetupMapping {
  CheckBox frmMain::*box;
  std::string_view token;
  std::string_view keys;
};

/// The version from which the documents have the two sections of setup options.
inline constexpr Gate setupSections{5, 0, 0, 1};
std::span<const SetupMapping> SetupMenu();
std::span<const SetupMapping> MessageSettingsMenu();

/// Writes the setup sections of the key map documents, on a server that has them, and ends the XML
/// key map. Always true.
bool SaveSetupMenuKeyInfo(frmMain& form, bool bCreateKeyDocument, bool second);

}  // namespace dialwright
