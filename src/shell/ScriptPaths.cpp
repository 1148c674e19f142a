#include "shell/ScriptPaths.h"

#include <array>
#include <string>
#include <string_view>

#include "shell/Program.h"
#include "shell/frmMain.h"

namespace dialwright {

namespace {

struct SlotFiles {
  std::string_view mainMenu;
  std::string_view messagePlayback;
  std::string_view setupMenu;
};

constexpr std::array<SlotFiles, slotCount> slotFiles{{
    {"Macros_MenuAlternate_Custom.cdh", "SubMsgPlay_Alternate_Custom.cde",
     "SubSetupMenu_Alternate1.cde"},
    {"Macros_MenuAlternate_Custom2.cdh", "SubMsgPlay_Alternate_Custom2.cde",
     "SubSetupMenu_Alternate2.cde"},
    {"Macros_MenuAlternate_Custom3.cdh", "SubMsgPlay_Alternate_Custom3.cde",
     "SubSetupMenu_Alternate3.cde"},
}};

/// The path of one of the slot's files. Returns only when the file is there, or when the user did
/// not want to exit.
std::string ExistingScript(Program& program, std::string_view name) {
  std::string path = program.server.strGetScriptPath() + std::string(name);
  if (!program.files.FileExists(path)) {
    program.MsgBox(program.mymyLoadString(1012) + path + "\r\n" + program.mymyLoadString(1152));
    RequestExit(program);
  }
  return path;
}

}  // namespace

void LoadScriptPaths(frmMain& form) {
  Program& program = form.program;
  form.strMainMenuScript.clear();
  form.strMessagePlaybackScript.clear();
  form.strSetupMenuScript.clear();
  if (program.server.strGetInstallPath().empty()) {
    program.MsgBox(program.mymyLoadString(1013));
    RequestExit(program);
  }
  const SlotFiles& names = slotFiles.at(static_cast<std::size_t>(SelectedSlot(form) - 1));
  form.strMainMenuScript = ExistingScript(program, names.mainMenu);
  form.strMessagePlaybackScript = ExistingScript(program, names.messagePlayback);
  if (form.SSTab1.TabVisible(setupTab))
    form.strSetupMenuScript = ExistingScript(program, names.setupMenu);
}

std::vector<std::string> PathsOfSlot(const frmMain& form, int slot) {
  const std::string folder = form.program.server.strGetScriptPath();
  const SlotFiles& names = slotFiles.at(static_cast<std::size_t>(slot - 1));
  std::vector<std::string> paths{folder + std::string(names.mainMenu),
                                 folder + std::string(names.messagePlayback)};
  if (form.SSTab1.TabVisible(setupTab)) paths.push_back(folder + std::string(names.setupMenu));
  return paths;
}

}  // namespace dialwright
