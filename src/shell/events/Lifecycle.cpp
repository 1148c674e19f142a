#include "shell/events/Lifecycle.h"

#include <array>
#include <string>

#include "keymap/RowEditing.h"
#include "language/EnglishStrings.h"
#include "platform/Failure.h"
#include "scripts/KeyMapLoad.h"
#include "scripts/ScriptWatch.h"
#include "scripts/SetupOptions.h"
#include "shell/FormTexts.h"
#include "shell/Program.h"
#include "shell/ScriptPaths.h"
#include "shell/frmMain.h"

namespace dialwright {

namespace {

void CutToServer(frmMain& form) {
  const MeridVersion& server = form.program.server;
  if (server.currentVersion.bIsTessel != false16) {
    form.mnuSelectKeyMap.Visible = false;
    RemoveTab(form, setupTab);
    RemoveTab(form, globalsGrid);
    return;
  }
  const bool severalSlots = server.bIsVersionGreaterThanOrEqualTo(4, 2, 0, 20, 0);
  form.mnuSelectKeyMap.Visible = severalSlots;
  if (severalSlots) form.bSingleKeyMap = false16;
}

}  // namespace

void Form_Load(frmMain& form) {
  Program& program = form.program;
  MeridVersion& server = program.server;
  server.currentVersion = server.getVersion();
  if (server.currentVersion.bIsTessel == false16 &&
      !server.bIsVersionGreaterThanOrEqualTo(4, 0, 4, 101, 0)) {
    // No language is settled yet, so this text is the program's own.
    program.MsgBox(EnglishString(1151).value_or(""));
    RequestExit(program);
  }
  frmMain_Auto_Init(form);
  form.mnuWalletCard.Visible = server.bIsVersionGreaterThanOrEqualTo(4, 2, 0, 1, 0) ||
                               server.currentVersion.bIsTessel != false16;
  form.strXMLKeyMapFile = program.folder + "\\XMLKeyMap.XML";
  form.bSingleKeyMap = true16;
  // The third item stays unchecked by its design value alone.
  form.mnuSelectDialwright.Checked = true;
  form.mnuSelectDialwright2.Checked = false;
  CutToServer(form);
  LoadScriptPaths(form);
  LoadKeyMapInfo(form);
  // Last, since the load changes check boxes, whose handlers mark the form changed.
  form.cmdSave.Enabled = false;
}

void frmMain_Auto_Init(frmMain& form) {
  Program& program = form.program;
  SetFormTexts(form);
  if (!program.server.bIsVersionGreaterThanOrEqualTo(4, 3, 0, 15, 0)) RemoveTab(form, setupTab);

  const bool internal = program.server.bIsVersionGreaterThanOrEqualTo(4, 2, 0, 1, 0);
  form.mnuResetKeysToVarloInternal.Visible = internal;
  if (internal) form.mnuResetKeysToVarloInternal.Caption = program.mymyLoadString(1214);

  LoadKeyMapInfo(form);
  const int tab = form.SSTab1.Tab();
  if (tab < gridCount)
    gridKeyMap_AfterRowColChange(form, tab, 1, 1, At(form.gridKeyMap, tab).Row(), 1);
}

void Form_Unload(frmMain& form, std::int16_t& Cancel) {
  Program& program = form.program;
  if (form.cmdSave.Enabled &&
      program.MarkedBox(MsgBoxMark::loss, program.mymyLoadString(1150), MsgBoxButtons::YesNo,
                        program.mymyLoadString(1155)) == MsgBoxAnswer::No) {
    Cancel = true16;
    return;
  }
  program.help.CloseHelpWindow();
}

void LoadKeyMapInfo(frmMain& form) {
  const ScriptLock lock(form.program);
  const SlotBatch batch(form);
  ++form.loads;
  form.lastSave = {};
  LoadMainMenuKeyMapInfo(form);
  LoadVCRKeyMapInfo(form, {});
  LoadAfterMessageKeyMapInfo(form, {});
  LoadGlobalsKeyMapInfo(form);
  LoadSetupInfo(form);
  NoteScripts(form);
}

void SSTab1_Click(frmMain& form) {
  const int tab = form.SSTab1.Tab();
  if (tab == setupTab) return;
  gridKeyMap_AfterRowColChange(form, tab, 0, 0, At(form.gridKeyMap, tab).Row(), 1);
}

void SelectSlot(frmMain& form, int slot) {
  struct SlotRow {
    MenuItem& item;
    int caption;
  };
  const std::array<SlotRow, slotCount> slots{{{form.mnuSelectDialwright, 1024},
                                              {form.mnuSelectDialwright2, 1167},
                                              {form.mnuSelectDialwright3, 1168}}};
  Program& program = form.program;
  const SlotRow& chosen = slots.at(static_cast<std::size_t>(slot - 1));
  if (chosen.item.Checked) return;
  if (form.cmdSave.Enabled && program.MarkedBox(MsgBoxMark::loss, program.mymyLoadString(1174),
                                                MsgBoxButtons::YesNo) == MsgBoxAnswer::No)
    return;
  for (const SlotRow& row : slots) row.item.Checked = &row == &chosen;
  form.Caption = program.mymyLoadString(chosen.caption);
  LoadScriptPaths(form);
  LoadKeyMapInfo(form);
}

}  // namespace dialwright
