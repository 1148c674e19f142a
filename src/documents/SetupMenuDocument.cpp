#include "documents/SetupMenuDocument.h"

#include "documents/XMLKeyMap.h"
#include "shell/Program.h"

namespace dialwright {

namespace {

/// The transfer settings have no mapping.
constexpr SetupMapping setupMenu[] = {
    {&frmMain::chkMAIN_GREETINGS, "MAIN_GREETINGS", "1"},
    {&frmMain::chkMAIN_MESSAGE_SETTINGS, "MAIN_MESSAGE_SETTINGS", "2"},
    {&frmMain::chkMAIN_PERSONAL_SETTINGS, "MAIN_PERSONAL_SETTINGS", "3"},
};

constexpr SetupMapping messageSettingsMenu[] = {
    {&frmMain::chkMESSAGE_NOTIFICATION, "MESSAGE_SETTINGS_NOTIFICATION", "1"},
    {&frmMain::chkMESSAGE_FAX, "MESSAGE_SETTINGS_FAX", "2"},
    {&frmMain::chkMESSAGE_MENU_STYLE, "MESSAGE_SETTINGS_MENU_STYLE", "3"},
    {&frmMain::chkMESSAGE_PRIVATE_LISTS, "MESSAGE_SETTINGS_PRIVATE_LIST", "4"},
};

void WriteSection(frmMain& form, std::string_view name, std::span<const SetupMapping> mappings,
                  bool second) {
  bool firstRow = true;
  for (const SetupMapping& mapping : mappings) {
    if ((form.*mapping.box).Value() != 1) continue;
    ConstructKeyDocument(form, mapping.token, mapping.keys, name, firstRow, second);
    firstRow = false;
  }
  if (firstRow)
    AddEmptySection(form, name);
  else
    FinishXMLMappingSection(form);
}

}  // namespace

std::span<const SetupMapping> SetupMenu() { return setupMenu; }
std::span<const SetupMapping> MessageSettingsMenu() { return messageSettingsMenu; }

bool SaveSetupMenuKeyInfo(frmMain& form, bool bCreateKeyDocument, bool second) {
  if (!bCreateKeyDocument) return true;
  if (setupSections.IsOpen(form.program.server)) {
    const bool hasMessageSettings = form.chkMAIN_MESSAGE_SETTINGS.Value() == 1;
    WriteSection(form, "Setup Menu", setupMenu, second);
    WriteSection(form, "Message Settings Menu",
                 hasMessageSettings ? std::span<const SetupMapping>(messageSettingsMenu)
                                    : std::span<const SetupMapping>(),
                 second);
  }
  FinishXMLDocument(form);
  return true;
}

}  // namespace dialwright
