#include "shell/events/SaveChain.h"

#include <algorithm>
#include <string>
#include <vector>

#include "documents/HTMLKeyMap.h"
#include "documents/SetupMenuDocument.h"
#include "documents/WalletCard.h"
#include "messages/FailureTrap.h"
#include "scripts/Backup.h"
#include "scripts/Checksum.h"
#include "scripts/KeyMapSave.h"
#include "scripts/ScriptWatch.h"
#include "scripts/SetupOptions.h"
#include "shell/Program.h"
#include "shell/frmMain.h"

namespace dialwright {

namespace {

using SaveProcedure = bool (*)(frmMain&, bool bCreateKeyDocument, bool second);

constexpr SaveProcedure menuSaves[] = {SaveMainMenuKeyInfo, SaveVCRKeyInfo, SaveAfterMessageKeyInfo,
                                       SaveGlobalsKeyInfo};

bool SaveMenus(frmMain& form, bool bCreateKeyDocument, bool second) {
  for (const SaveProcedure save : menuSaves)
    if (!save(form, bCreateKeyDocument, second)) return false;
  SaveSetupMenuKeyInfo(form, bCreateKeyDocument, second);
  SaveSetupInfo(form);
  return true;
}

/// Returns whether the file was rewritten.
bool UpdateChecksum(frmMain& form, const std::string& path) {
  return UpdateChecksumForFile(form.program,
                               strChecksumText(lngGetFileChecksum(form.program, path)), path);
}

/// Brings the checksums up to date; returns what came of the save.
SaveOutcome UpdateChecksums(frmMain& form) {
  const std::vector<std::string>& missed = form.program.profile.Missed();
  SaveOutcome outcome{SaveOutcome::Kind::complete, -1, {}};
  for (const std::string& path : SlotScripts(form))
    if (!UpdateChecksum(form, path) || std::ranges::find(missed, path) != missed.end())
      outcome.files.push_back(path);
  if (!outcome.files.empty()) outcome.kind = SaveOutcome::Kind::incomplete;
  return outcome;
}

/// Writes the menus, in one replacement a script. Returns false if one was refused.
bool WriteMenus(frmMain& form, bool bCreateKeyDocument, bool second) {
  const SlotBatch batch(form);
  return SaveMenus(form, bCreateKeyDocument, second) && form.iKeyMapErrorCount == 0;
}

void RemoveLeftovers(frmMain& form) {
  const std::string& script = form.strMainMenuScript;
  for (const std::string& folder : {script.substr(0, script.rfind('\\') + 1), form.program.folder,
                                    form.program.folder + "\\Backup"})
    form.program.services.files.RemoveLeftovers(folder);
}

/// All that a save writes into the scripts and their backup, with no other editor among them.
/// Returns false if a menu was refused.
bool WriteScripts(frmMain& form, bool bCreateKeyDocument, bool second) {
  ++form.safety.revision;
  const ScriptLock lock(form.program);
  RemoveLeftovers(form);
  form.lastSave = {};
  form.program.profile.ForgetMissed();
  FirstWrite firstWrite(form);
  const bool written = WriteMenus(form, bCreateKeyDocument, second);
  form.Pointer = MousePointer::standard;
  if (!written) return false;

  firstWrite.IsNext();
  form.lastSave = UpdateChecksums(form);
  if (form.program.keyMapSaved) form.program.keyMapSaved();
  BackupScriptFiles(form);
  return true;
}

void OfferDocuments(frmMain& form) {
  Program& program = form.program;
  const FailureTrap step{form.program, FailurePrefix::localized, "SaveKeyMapInfo"};
  if (form.chkGenerateHelp.Value() == 1 &&
      program.MsgBox(program.mymyLoadString(1022), MsgBoxButtons::YesNo) == MsgBoxAnswer::Yes)
    step([&] {
      program.Shell("Explorer \"" + program.folder + std::string(strHelpFileName) + "\"",
                    WindowState::minimizedFocus);
    });
  if (form.chkGeneratePDF.Value() == 1) GeneratePDFWalletCard(form, {});
}

}  // namespace

void cmdSave_Click(frmMain& form) {
  const FailureTrap step{form.program, FailurePrefix::fixed, "cmdSave_Click"};
  FileSystemObject& files = form.program.files;
  form.cmdSave.Enabled = false;
  if (files.FileExists(form.strXMLKeyMapFile))
    step([&] { files.DeleteFile(form.strXMLKeyMapFile, true); });
  // The failures of this copy are the button's to report: the procedure has no trap of its own.
  step([&] { CreateKeyMapHTMLFromTemplate(form); });
  form.Pointer = MousePointer::hourglass;
  form.Pointer = MousePointer::standard;
  const bool documents = form.chkGenerateHelp.Value() != 0 || form.chkGeneratePDF.Value() != 0;
  SaveKeyMapInfo(form, documents, documents);
}

void SaveKeyMapInfo(frmMain& form, bool bCreateKeyDocument, bool second) {
  Program& program = form.program;
  form.iKeyMapErrorCount = 0;
  form.Pointer = MousePointer::hourglass;
  if (!WriteScripts(form, bCreateKeyDocument, second)) return;
  if (form.chkGenerateHelp.Value() == 0 && form.chkGeneratePDF.Value() == 0)
    program.MarkedBox(MsgBoxMark::news, program.mymyLoadString(1023));
  else
    OfferDocuments(form);
}

}  // namespace dialwright
