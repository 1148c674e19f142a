#pragma once

#include <span>
#include <string_view>

#include "shell/frmMain.h"

namespace dialwright {

/// A stock conversation's card: its menu item and its stored key map in the program folder.
struct ReferenceCard {
  MenuItem frmMain::*item;
  std::string_view file;
};

std::span<const ReferenceCard> ReferenceCards();

/// Starts the card tool on an XML key map, which becomes the one in the program folder; an empty
/// path means the one that is there.
void GeneratePDFWalletCard(frmMain& form, std::string_view source);

}  // namespace dialwright
