#include "shell/frmMain.h"

#include <utility>

namespace dialwright {

namespace {

std::string Element(std::string_view name, int index) {
  return std::string(name) + "(" + std::to_string(index) + ")";
}

}  // namespace

frmMain::frmMain(Program& theProgram) : Form("frmMain"), program(theProgram) {
  Adopt(SSTab1, "SSTab1", -1);
  for (int i = 0; i < gridCount; ++i) {
    Adopt(At(gridKeyMap, i), Element("gridKeyMap", i), i);
    At(gridKeyMap, i).SetText(0, Column::Action, "Action");
    At(gridKeyMap, i).SetText(0, Column::KeyAssignment, "Key Assignment");
    At(gridKeyMap, i).SetText(0, Column::ActionToken, "ActionToken");
    At(gridKeyMap, i).SetText(0, Column::Order, "Order");
    Adopt(At(labelKeyMap, i), Element("labelKeyMap", i), i, "Key map");
    Adopt(At(txtKeyAssignment, i), Element("txtKeyAssignment", i), i);
    Adopt(At(lblKeyMap, i), Element("lblKeyMap", i), i, "(blank means disable option)");
    Adopt(At(chkDontVoiceAction, i), Element("chkDontVoiceAction", i), i,
          "Don't voice action in menu");
    Adopt(At(frameMenuOrder, i), Element("frameMenuOrder", i), i, "Menu order");
    Adopt(At(UpDownMenuOrder, i), Element("UpDownMenuOrder", i), i);
    Adopt(At(frameDescription, i), Element("frameDescription", i), i, "Action description");
    Adopt(At(txtDescription, i), Element("txtDescription", i), i);
    Adopt(At(LabelTabDescription, i), Element("LabelTabDescription", i), i);
  }
  Adopt(frameSetup, "frameSetup", setupTab);
  Adopt(chkMAIN_GREETINGS, "chkMAIN_GREETINGS", setupTab);
  Adopt(chkMAIN_MESSAGE_SETTINGS, "chkMAIN_MESSAGE_SETTINGS", setupTab);
  Adopt(chkMAIN_PERSONAL_SETTINGS, "chkMAIN_PERSONAL_SETTINGS", setupTab);
  Adopt(chkMAIN_TRANSFER, "chkMAIN_TRANSFER", setupTab);
  Adopt(chkMESSAGE_NOTIFICATION, "chkMESSAGE_NOTIFICATION", setupTab);
  Adopt(chkMESSAGE_FAX, "chkMESSAGE_FAX", setupTab);
  Adopt(chkMESSAGE_MENU_STYLE, "chkMESSAGE_MENU_STYLE", setupTab);
  Adopt(chkMESSAGE_PRIVATE_LISTS, "chkMESSAGE_PRIVATE_LISTS", setupTab);
  Adopt(Label1, "Label1", setupTab);
  Adopt(chkGenerateHelp, "chkGenerateHelp", setupTab);
  Adopt(chkGeneratePDF, "chkGeneratePDF", setupTab);
  Adopt(cmdSave, "cmdSave", -1);
  Adopt(cmdExit, "cmdExit", -1);
  AdoptMenus();

  cmdSave.Enabled = false;
  mnuSelectDialwright.Checked = true;
}

void frmMain::Adopt(Control& control, std::string name, int tab, std::string_view caption) {
  control.Name = std::move(name);
  control.HomeTab = tab;
  control.HomeFocus = &focus;
  control.Caption = std::string(caption);
  Controls.push_back(&control);
}

void frmMain::AdoptMenus() {
  struct MenuRow {
    MenuItem& item;
    std::string_view name;
    MenuItem* parent;
    std::string_view caption;
  };
  const MenuRow rows[] = {
      {mnuFile, "mnuFile", nullptr, ""},
      {mnuRestoreScripts, "mnuRestoreScripts", &mnuFile, ""},
      {mnuExit, "mnuExit", &mnuFile, ""},
      {mnuSelectKeyMap, "mnuSelectKeyMap", nullptr, "Select Key Map"},
      {mnuSelectDialwright, "mnuSelectDialwright", &mnuSelectKeyMap, "Dialwright"},
      {mnuSelectDialwright2, "mnuSelectDialwright2", &mnuSelectKeyMap, "Dialwright 2"},
      {mnuSelectDialwright3, "mnuSelectDialwright3", &mnuSelectKeyMap, "Dialwright 3"},
      {mnuResetKeyMaps, "mnuResetKeyMaps", nullptr, "Reset Key Mappings"},
      {mnuResetKeysToStandardConversation, "mnuResetKeysToStandardConversation", &mnuResetKeyMaps,
       "Standard Conversation"},
      {mnuResetKeysToOptionalConversation1, "mnuResetKeysToOptionalConversation1", &mnuResetKeyMaps,
       "Optional Conversation 1"},
      {mnuResetKeysToAlternateKeyMappingN, "mnuResetKeysToAlternateKeyMappingN", &mnuResetKeyMaps,
       "Alternate Key Mapping (N)"},
      {mnuResetKeysToAlternateKeyMappingS, "mnuResetKeysToAlternateKeyMappingS", &mnuResetKeyMaps,
       "Alternate Key Mapping (S)"},
      {mnuResetKeysToAlternateKeyMappingX, "mnuResetKeysToAlternateKeyMappingX", &mnuResetKeyMaps,
       "Alternate Key Mapping (X)"},
      {mnuResetKeysToVarloInternal, "mnuResetKeysToVarloInternal", &mnuResetKeyMaps, ""},
      {mnuWalletCard, "mnuWalletCard", nullptr, "Generate User Guide PDF"},
      {mnuWKWStandard, "mnuWKWStandard", &mnuWalletCard, "Standard Conversation"},
      {mnuWKWOptional1, "mnuWKWOptional1", &mnuWalletCard, "Optional Conversation 1"},
      {mnuWKWAlternateN, "mnuWKWAlternateN", &mnuWalletCard, "Alternate Keypad Mapping (N)"},
      {mnuWKWAlternateS, "mnuWKWAlternateS", &mnuWalletCard, "Alternate Keypad Mapping (S)"},
      {mnuWKWAlternateX, "mnuWKWAlternateX", &mnuWalletCard, "Alternate Keypad Mapping (X)"},
      {mnuHelpMenu, "mnuHelpMenu", nullptr, ""},
      {mnuHelp, "mnuHelp", &mnuHelpMenu, ""},
      {mnuAbout, "mnuAbout", &mnuHelpMenu, ""},
  };
  for (const MenuRow& row : rows) {
    Adopt(row.item, std::string(row.name), -1, row.caption);
    row.item.HomeFocus = nullptr;  // menus take no focus
    row.item.Parent = row.parent;
  }
}

Control* frmMain::Find(std::string_view name) const {
  for (Control* control : Controls)
    if (control->Name == name) return control;
  return nullptr;
}

std::vector<std::string> SlotScripts(const frmMain& form) {
  std::vector<std::string> paths{form.strMainMenuScript, form.strMessagePlaybackScript};
  if (form.SSTab1.TabVisible(setupTab)) paths.push_back(form.strSetupMenuScript);
  return paths;
}

int SelectedSlot(const frmMain& form) {
  if (form.mnuSelectDialwright.Checked) return 1;
  return form.mnuSelectDialwright2.Checked ? 2 : 3;
}

void RemoveTab(frmMain& form, int tab) {
  form.SSTab1.SetTabVisible(tab, false);
  if (tab != setupTab) return;
  form.chkGenerateHelp.HomeTab = -1;
  form.chkGeneratePDF.HomeTab = -1;
}

}  // namespace dialwright
