#pragma once

#include <span>
#include <string_view>

#include "presets/PresetTables.h"
#include "shell/frmMain.h"

namespace dialwright {

/// Where a preset's playback and after message keys come from.
enum class PresetSource { tables, scriptFolder, programFolder };

/// One stock conversation that the key map can be reset to.
struct Preset {
  MenuItem frmMain::*item;
  std::string_view confirmation;
  std::span<const PresetRow> (*mainMenu)();
  PresetSource source;
  std::string_view stockScript;  ///< file name; empty for the tables
  int closingMessage;            ///< string number
  bool closesInEnglish;          ///< whichever language is chosen
};

std::span<const Preset> Presets();

/// Asks, and resets the key map on the form; nothing is written before the next save.
void SelectPreset(frmMain& form, const Preset& preset);

}  // namespace dialwright
