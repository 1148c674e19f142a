#include "scripts/KeyMapLoad.h"

#include <span>
#include <string>

#include "keymap/Catalogue.h"
#include "keymap/KeyMapGrid.h"
#include "messages/FailureTrap.h"
#include "scripts/modCommon.h"
#include "shell/Program.h"
#include "shell/frmMain.h"

namespace dialwright {

namespace {

/// Whether the server has the action. If that cannot be found out, the failure is reported and the
/// row is added.
bool ExistsHere(Program& program, const Action& action, const FailureTrap& step) {
  bool exists = true;
  step([&] { exists = ExistsOn(program.server, action); });
  return exists;
}

std::string OrderOf(Program& program, const Action& action, const std::string& token,
                    const std::string& path) {
  switch (action.order) {
    case OrderSource::fixed:
      return std::string(notVoiced);
    case OrderSource::key:
      return strGetIniString(program.profile, macrosSection, "ORDINAL_" + token, path);
    case OrderSource::none:
      break;
  }
  return {};
}

/// Reads the rows of one menu from a file that is there.
void AddRows(frmMain& form, int grid, std::span<const Action> actions, std::string_view prefix,
             const std::string& path, const FailureTrap& step) {
  Program& program = form.program;
  const ProfileBatch batch(program.profile, path);
  for (const Action& action : actions) {
    if (!ExistsHere(program, action, step)) continue;
    const std::string token = std::string(prefix) + std::string(action.name);
    AddKeyToGrid(form, grid, strGetIniString(program.profile, macrosSection, token, path),
                 OrderOf(program, action, token, path), ActionLabel(program, action), token);
  }
}

bool ReportedMissing(frmMain& form, std::string_view message, const std::string& path) {
  if (form.program.files.FileExists(path)) return false;
  form.program.MsgBox(std::string(message) + path);
  return true;
}

/// The macro file's menus empty their grid before they look for the file.
void LoadFromMacroFile(frmMain& form, int grid, std::span<const Action> actions) {
  const FailureTrap step{form.program, FailurePrefix::localized, "LoadMainMenuKeyMapInfo"};
  BeginFilling(form, grid);
  if (form.strMainMenuScript.empty() ||
      ReportedMissing(form, "Error - could not find menu definition file=", form.strMainMenuScript))
    return;
  AddRows(form, grid, actions, {}, form.strMainMenuScript, step);
  EndFilling(form, grid);
}

std::string ScriptToRead(const frmMain& form, std::string_view strScript) {
  return strScript.empty() ? form.strMessagePlaybackScript : std::string(strScript);
}

}  // namespace

void LoadMainMenuKeyMapInfo(frmMain& form) {
  LoadFromMacroFile(form, mainMenuGrid, MainMenuActions());
}

void LoadGlobalsKeyMapInfo(frmMain& form) { LoadFromMacroFile(form, globalsGrid, GlobalActions()); }

void LoadVCRKeyMapInfo(frmMain& form, std::string_view strScript) {
  const FailureTrap step{form.program, FailurePrefix::localized, "LoadVCRKeyMapInfo"};
  const std::string path = ScriptToRead(form, strScript);
  if (path.empty() ||
      ReportedMissing(form, "Error, could not load SubMsgPlayback script file=", path))
    return;
  for (const PlaybackSection& section : PlaybackSections()) {
    BeginFilling(form, section.grid);
    AddRows(form, section.grid, PlaybackActions(), section.prefix, path, step);
    EndFilling(form, section.grid);
  }
}

void LoadAfterMessageKeyMapInfo(frmMain& form, std::string_view strScript) {
  const FailureTrap step{form.program, FailurePrefix::localized, "LoadAfterMessageKeyMapInfo"};
  const std::string path = ScriptToRead(form, strScript);
  if (path.empty() || ReportedMissing(form, "SubMsgPlay script file could not be found=", path))
    return;
  BeginFilling(form, afterMessageGrid);
  AddRows(form, afterMessageGrid, AfterMessageActions(), {}, path, step);
  EndFilling(form, afterMessageGrid);
}

}  // namespace dialwright
