#include "scripts/Backup.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "messages/FailureTrap.h"
#include "platform/Failure.h"
#include "scripts/EarlierVersions.h"
#include "shell/Program.h"
#include "shell/ScriptPaths.h"
#include "shell/frmMain.h"
#include "text/Text.h"

namespace dialwright {

namespace {

/// What the names of the three kinds of script hold, in every slot.
constexpr std::array<std::string_view, 3> scriptNames{
    "Macros_MenuAlternate_Custom", "SubMsgPlay_Alternate_Custom", "SubSetupMenu_Alternate"};

std::string BackupFolder(const Program& program) { return program.folder + "\\Backup\\"; }

std::string FileName(const std::string& path) { return path.substr(path.rfind('\\') + 1); }

/// Both directions need the paths, and say so with the same texts.
bool HasPaths(frmMain& form) {
  Program& program = form.program;
  const int missing = form.strMainMenuScript.empty()          ? 1099
                      : form.strMessagePlaybackScript.empty() ? 1100
                                                              : 0;
  if (missing != 0) program.MsgBox(program.mymyLoadString(missing));
  return missing == 0;
}

bool IsScript(std::string_view name) {
  return std::ranges::any_of(
      scriptNames, [name](std::string_view part) { return ContainsIgnoringCase(name, part); });
}

void Restore(Program& program, const std::string& name) {
  const std::string folder = program.server.strGetScriptPath();
  if (folder.empty()) throw RuntimeFailure(Failure::pathNotFound);
  program.files.CopyFile(BackupFolder(program) + name, folder + name, true);
}

/// Keeps the scripts of each slot that a restore writes into, as they stand.
void KeepSlotsOf(frmMain& form, const std::vector<std::string>& names) {
  bool areKept = true;
  for (int slot = 1; slot <= slotCount; ++slot) {
    const std::vector<std::string> paths = PathsOfSlot(form, slot);
    const bool isMeant = std::ranges::any_of(paths, [&](const std::string& path) {
      return std::ranges::any_of(
          names, [&](const std::string& name) { return EqualsIgnoringCase(name, FileName(path)); });
    });
    if (isMeant) areKept = KeepEarlierVersion(form.program, slot, paths) && areKept;
  }
  form.safety.notKept = !areKept;
}

}  // namespace

void BackupScriptFiles(frmMain& form) {
  if (!HasPaths(form)) return;
  const FailureTrap step{form.program, FailurePrefix::localized, "BackupScriptFiles"};
  FileSystemObject& files = form.program.files;
  const std::string folder = BackupFolder(form.program);
  if (!files.FolderExists(folder) && !step([&] { files.CreateFolder(folder); })) return;
  std::vector<std::string> scripts{form.strMainMenuScript, form.strMessagePlaybackScript};
  if (files.FileExists(form.strSetupMenuScript)) scripts.push_back(form.strSetupMenuScript);
  for (const std::string& script : scripts)
    step([&] { files.CopyFile(script, folder + FileName(script), true); });
}

bool RestoreScriptfiles(frmMain& form) {
  Program& program = form.program;
  if (!HasPaths(form)) return false;
  if (!program.files.FolderExists(BackupFolder(program))) {
    program.MsgBox(program.mymyLoadString(1087));
    return false;
  }
  const FailureTrap step{form.program, FailurePrefix::localized, "RestoreScriptfiles"};
  int restored = 0;
  std::optional<ScriptLock> lock(program);
  step([&] {
    const std::vector<std::string> names = program.files.FileNames(BackupFolder(program));
    KeepSlotsOf(form, names);
    for (const std::string& name : names)
      if (IsScript(name) && step([&] { Restore(program, name); })) ++restored;
  });
  lock.reset();
  program.MarkedBox(MsgBoxMark::news, std::to_string(restored) + program.mymyLoadString(1175));
  return true;
}

}  // namespace dialwright
