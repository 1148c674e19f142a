#include "presets/Presets.h"

#include <string>

#include "keymap/KeyMapGrid.h"
#include "language/EnglishStrings.h"
#include "scripts/KeyMapLoad.h"
#include "scripts/SetupOptions.h"
#include "shell/Program.h"

namespace dialwright {

namespace {

constexpr Preset presets[] = {
    {&frmMain::mnuResetKeysToStandardConversation,
     "This will reset all key mappings to match the standard Merid conversation.  Are you sure you "
     "want to do this?",
     StandardMainMenu, PresetSource::tables, "", 1170, false},
    {&frmMain::mnuResetKeysToOptionalConversation1,
     "This will reset all key mappings to match the Optional 1 conversation.  Are you sure you "
     "want "
     "to do this?",
     StandardMainMenu, PresetSource::scriptFolder, "SubMsgPlay_OptConv1.cde", 1176, true},
    {&frmMain::mnuResetKeysToAlternateKeyMappingN,
     "This will reset all key mappings to match the Alternate Key Maping (N) conversation.  Are "
     "you "
     "sure you want to do this?",
     StandardMainMenu, PresetSource::scriptFolder, "SubMsgPlay_AlternateN.cde", 1179, true},
    {&frmMain::mnuResetKeysToAlternateKeyMappingS,
     "This will reset all key mappings to match the Alternate Key Maping (S) conversation.  Are "
     "you "
     "sure you want to do this?",
     AlternateSMainMenu, PresetSource::scriptFolder, "SubMsgPlay_AlternateS.cde", 1178, true},
    {&frmMain::mnuResetKeysToAlternateKeyMappingX,
     "This will reset all key mappings to match the Alternate Key Maping (X) conversation.  Are "
     "you "
     "sure you want to do this?",
     AlternateXMainMenu, PresetSource::scriptFolder, "SubMsgPlay_AlternateX.cde", 1177, true},
    {&frmMain::mnuResetKeysToVarloInternal,
     "This will reset all key mappings to match what Varlo uses internally.  Are you sure you want "
     "to do this?",
     StandardMainMenu, PresetSource::programFolder, "\\SubMsgPlay_Alternate_Custom_Internal.cde",
     1215, false},
};

std::string Label(Program& program, std::span<const Action> actions, const PresetRow& row) {
  if (row.label != 0 && gotoForAllMessages.IsOpen(program.server))
    return program.mymyLoadString(row.label);
  const Action* action = FindAction(actions, row.name);
  return action != nullptr ? ActionLabel(program, *action) : std::string();
}

void FillGrid(frmMain& form, int grid, std::span<const PresetRow> rows,
              std::span<const Action> actions, std::string_view prefix = {}) {
  Program& program = form.program;
  BeginFilling(form, grid);
  for (const PresetRow& row : rows)
    if (row.gate.IsOpen(program.server))
      AddKeyToGrid(form, grid, row.key, row.order, Label(program, actions, row),
                   std::string(prefix) + std::string(row.name));
  EndFilling(form, grid);
}

void ResetFromTables(frmMain& form) {
  for (const PlaybackSection& section : PlaybackSections())
    FillGrid(form, section.grid, StandardPlayback(), PlaybackActions(), section.prefix);
  FillGrid(form, afterMessageGrid, StandardAfterMessage(), AfterMessageActions());
}

void ResetFromScript(frmMain& form, const std::string& path) {
  LoadVCRKeyMapInfo(form, path);
  LoadAfterMessageKeyMapInfo(form, path);
}

}  // namespace

std::span<const Preset> Presets() { return presets; }

void SelectPreset(frmMain& form, const Preset& preset) {
  Program& program = form.program;
  if (program.MarkedBox(MsgBoxMark::loss, preset.confirmation, MsgBoxButtons::YesNo) ==
      MsgBoxAnswer::No)
    return;
  form.cmdSave.Enabled = true;
  FillGrid(form, mainMenuGrid, preset.mainMenu(), MainMenuActions());
  if (preset.source == PresetSource::tables)
    ResetFromTables(form);
  else
    ResetFromScript(form,
                    (preset.source == PresetSource::scriptFolder ? program.server.strGetScriptPath()
                                                                 : program.folder) +
                        std::string(preset.stockScript));
  SetAllSetupOptions(form, 1);
  program.MarkedBox(MsgBoxMark::news,
                    preset.closesInEnglish
                        ? std::string(EnglishString(preset.closingMessage).value_or(""))
                        : program.mymyLoadString(preset.closingMessage));
}

}  // namespace dialwright
