#include "shell/events/MainEvents.h"

#include "documents/WalletCard.h"
#include "keymap/RowEditing.h"
#include "presets/Presets.h"
#include "scripts/Backup.h"
#include "scripts/SetupOptions.h"
#include "shell/FormTexts.h"
#include "shell/Program.h"
#include "shell/events/Lifecycle.h"
#include "shell/events/SaveChain.h"
#include "shell/frmAbout.h"
#include "shell/frmMain.h"

namespace dialwright {

namespace {

void ConnectRowEditing(frmMain& form, int i) {
  At(form.gridKeyMap, i).BeforeRowColChange = [&form, i](int oldRow, int oldCol, int newRow,
                                                         int newCol, bool& Cancel) {
    gridKeyMap_BeforeRowColChange(form, i, oldRow, oldCol, newRow, newCol, Cancel);
  };
  At(form.gridKeyMap, i).AfterRowColChange = [&form, i](int oldRow, int oldCol, int newRow,
                                                        int newCol) {
    gridKeyMap_AfterRowColChange(form, i, oldRow, oldCol, newRow, newCol);
  };
  EditBox& box = At(form.txtKeyAssignment, i);
  box.KeyPress = [&form](int) { txtKeyAssignment_KeyPress(form); };
  box.LostFocus = [&form, i] { txtKeyAssignment_LostFocus(form, i); };
  box.Validate = [&form, i](bool& Cancel) { txtKeyAssignment_Validate(form, i, Cancel); };
  At(form.chkDontVoiceAction, i).Click = [&form, i] { chkDontVoiceAction_Click(form, i); };
  At(form.UpDownMenuOrder, i).UpClick = [&form, i] { UpDownMenuOrder_UpClick(form, i); };
  At(form.UpDownMenuOrder, i).DownClick = [&form, i] { UpDownMenuOrder_DownClick(form, i); };
}

/// `chkMAIN_TRANSFER` is missing here: changing it alone is no unsaved change.
void ConnectSetup(frmMain& form) {
  for (CheckBox* box :
       {&form.chkGenerateHelp, &form.chkGeneratePDF, &form.chkMAIN_GREETINGS,
        &form.chkMAIN_PERSONAL_SETTINGS, &form.chkMESSAGE_FAX, &form.chkMESSAGE_MENU_STYLE,
        &form.chkMESSAGE_NOTIFICATION, &form.chkMESSAGE_PRIVATE_LISTS})
    box->Click = [&form] { form.cmdSave.Enabled = true; };
  form.chkMAIN_MESSAGE_SETTINGS.Click = [&form] { chkMAIN_MESSAGE_SETTINGS_Click(form); };
}

void ConnectMenus(frmMain& form) {
  Program& program = form.program;
  form.mnuExit.Click = [&program] { RequestExit(program); };
  form.mnuRestoreScripts.Click = [&form] {
    if (RestoreScriptfiles(form)) LoadKeyMapInfo(form);
  };
  form.mnuSelectDialwright.Click = [&form] { SelectSlot(form, 1); };
  form.mnuSelectDialwright2.Click = [&form] { SelectSlot(form, 2); };
  form.mnuSelectDialwright3.Click = [&form] { SelectSlot(form, 3); };
  form.mnuAbout.Click = [&program] { ShowAbout(program); };
  form.mnuHelp.Click = [&form, &program] {
    program.help.showCHMHelp(program.help.getHelpFileName(), form.hWnd);
  };
  for (const Preset& preset : Presets())
    (form.*preset.item).Click = [&form, &preset] { SelectPreset(form, preset); };
  for (const ReferenceCard& card : ReferenceCards())
    (form.*card.item).Click = [&form, &card] {
      GeneratePDFWalletCard(form, form.program.folder + std::string(card.file));
    };
}

}  // namespace

void ConnectEvents(frmMain& form) {
  for (int i = 0; i < gridCount; ++i) ConnectRowEditing(form, i);
  ConnectSetup(form);
  ConnectMenus(form);
  form.Auto_Init = [&form] { frmMain_Auto_Init(form); };
  form.SSTab1.Click = [&form](int) { SSTab1_Click(form); };
  form.cmdSave.Click = [&form] { cmdSave_Click(form); };
  form.cmdExit.Click = [&form] { RequestExit(form.program); };
}

}  // namespace dialwright
