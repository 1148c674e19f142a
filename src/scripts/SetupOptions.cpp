#include "scripts/SetupOptions.h"

#include <string>

#include "files/PrivateProfile.h"
#include "scripts/modCommon.h"
#include "shell/Program.h"
#include "text/Text.h"

namespace dialwright {

namespace {

constexpr SetupOption setupOptions[] = {
    {&frmMain::chkMAIN_GREETINGS, "chkMAIN_GREETINGS", "MAIN_GREETINGS", "1"},
    {&frmMain::chkMAIN_MESSAGE_SETTINGS, "chkMAIN_MESSAGE_SETTINGS", "MAIN_MESSAGESETTINGS", "2"},
    {&frmMain::chkMAIN_PERSONAL_SETTINGS, "chkMAIN_PERSONAL_SETTINGS", "MAIN_PERSONALSETTINGS",
     "3"},
    {&frmMain::chkMAIN_TRANSFER, "chkMAIN_TRANSFER", "MAIN_TRANSFERSETTINGS", "4"},
    {&frmMain::chkMESSAGE_NOTIFICATION, "chkMESSAGE_NOTIFICATION", "MESSAGESETTINGS_NOTIFICATION",
     "1"},
    {&frmMain::chkMESSAGE_FAX, "chkMESSAGE_FAX", "MESSAGESETTINGS_FAXDELIVERY", "2"},
    {&frmMain::chkMESSAGE_MENU_STYLE, "chkMESSAGE_MENU_STYLE", "MESSAGESETTINGS_MENUSTYLE", "3"},
    {&frmMain::chkMESSAGE_PRIVATE_LISTS, "chkMESSAGE_PRIVATE_LISTS", "MESSAGESETTINGS_PRIVATELISTS",
     "4"},
};

/// Whether there is a setup script to work on; one that should be there and is not is reported.
bool HasSetupScript(frmMain& form) {
  Program& program = form.program;
  if (!form.SSTab1.TabVisible(setupTab) || form.strSetupMenuScript.empty()) return false;
  if (program.files.FileExists(form.strSetupMenuScript)) return true;
  program.MsgBox("Error - could not find stup menu definition file=" + form.strSetupMenuScript);
  return false;
}

}  // namespace

std::span<const SetupOption> SetupOptions() { return setupOptions; }

void SetAllSetupOptions(frmMain& form, int value) {
  for (const SetupOption& option : setupOptions) (form.*option.box).SetValue(value);
}

void LoadSetupInfo(frmMain& form) {
  if (!HasSetupScript(form)) return;
  PrivateProfile& profile = form.program.profile;
  const std::string path = form.strSetupMenuScript;
  SetAllSetupOptions(form, 0);
  const ProfileBatch batch(profile, path);
  for (const SetupOption& option : setupOptions)
    if (!Trim(strGetIniString(profile, macrosSection, option.key, path)).empty())
      (form.*option.box).SetValue(1);
}

void SaveSetupInfo(frmMain& form) {
  if (!HasSetupScript(form)) return;
  PrivateProfile& profile = form.program.profile;
  const ProfileBatch batch(profile, form.strSetupMenuScript);
  for (const SetupOption& option : setupOptions) {
    const bool offered = (form.*option.box).Value() == 1;
    profile.WritePrivateProfileStringA(macrosSection, option.key,
                                       Quoted(offered ? option.digit : std::string_view()),
                                       form.strSetupMenuScript);
  }
}

void chkMAIN_MESSAGE_SETTINGS_Click(frmMain& form) {
  form.cmdSave.Enabled = true;
  EnableMessageOptions(form);
}

void EnableMessageOptions(frmMain& form) {
  const bool offered = form.chkMAIN_MESSAGE_SETTINGS.Value() == 1;
  for (CheckBox* box : {&form.chkMESSAGE_FAX, &form.chkMESSAGE_MENU_STYLE,
                        &form.chkMESSAGE_NOTIFICATION, &form.chkMESSAGE_PRIVATE_LISTS})
    box->Enabled = offered;
}

}  // namespace dialwright
