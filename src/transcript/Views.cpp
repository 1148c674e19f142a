#include "Views.h"

#include "scripts/EarlierVersions.h"
#include "scripts/SetupOptions.h"
#include "shell/Program.h"
#include "shell/frmAbout.h"
#include "shell/frmMain.h"

namespace dialwright {

namespace {

std::string OnOff(bool on) { return on ? "on" : "off"; }

/// The index in "NAME(3)", -1 where there is none.
int IndexIn(std::string_view name, std::string_view array) {
  if (!name.starts_with(array) || name.size() < array.size() + 3 || name[array.size()] != '(')
    return -1;
  return name[array.size() + 1] - '0';
}

std::string TextOf(Program& program, std::string_view name) {
  const frmMain& form = *program.main;
  if (const int tab = IndexIn(name, "SSTab1"); tab >= 0 && tab < TabStrip::tabCount)
    return form.SSTab1.TabCaption(tab);
  if (const int grid = IndexIn(name, "gridKeyMap"); grid >= 0 && grid < gridCount) {
    constexpr std::string_view columns[] = {"Action", "KeyAssignment", "ActionToken", "Order"};
    for (int column = 0; column < columnCount; ++column)
      if (name.ends_with("." + std::string(columns[column])))
        return At(form.gridKeyMap, grid).Text(0, static_cast<Column>(column));
  }
  if (name == form.Name) return form.Caption;
  for (const Form* loaded : program.loadedForms)
    for (const Control* control : loaded->Controls)
      if (control->Name == name) return control->Caption;
  throw TranscriptError{"no control " + std::string(name)};
}

void ShowCheckBox(const CheckBox& box, Printer& printer) {
  printer.Line(box.Name + " " + std::to_string(box.Value()) + " " + OnOff(box.Enabled));
}

}  // namespace

void ShowForm(const Program& program, Printer& printer) {
  const frmMain& form = *program.main;
  printer.Line("caption " + Shown(form.Caption()));
  printer.Line("tab " + std::to_string(form.SSTab1.Tab()));
  std::string tabs = "tabs";
  for (int tab = 0; tab < TabStrip::tabCount; ++tab)
    if (form.SSTab1.TabVisible(tab)) tabs += " " + std::to_string(tab);
  printer.Line(tabs);
  std::string slots = "slot";
  const MenuItem* items[] = {&form.mnuSelectDialwright, &form.mnuSelectDialwright2,
                             &form.mnuSelectDialwright3};
  for (int slot = 0; slot < slotCount; ++slot)
    if (items[slot]->Checked) slots += " " + std::to_string(slot + 1);
  printer.Line(slots);
  printer.Line("save " + OnOff(form.cmdSave.Enabled));
  std::string offered = "offered";
  for (const MenuItem* item :
       {&form.mnuWalletCard, &form.mnuSelectKeyMap, &form.mnuResetKeysToVarloInternal})
    if (item->Offered()) offered += " " + item->Name;
  printer.Line(offered);
}

void ShowGrid(const Program& program, int number, bool withLabels, Printer& printer) {
  const KeyGrid& grid = At(program.main->gridKeyMap, number);
  for (int row = 1; row < grid.Rows(); ++row)
    printer.Line((row == grid.Row() ? "*" : "") + std::to_string(row) + " " +
                 (withLabels ? Shown(grid.Text(row, Column::Action)) + " " : "") +
                 Shown(grid.Text(row, Column::KeyAssignment)) + " " +
                 grid.Text(row, Column::ActionToken) + " " + Shown(grid.Text(row, Column::Order)));
}

void ShowEdit(const Program& program, int grid, Printer& printer) {
  const frmMain& form = *program.main;
  const EditBox& box = At(form.txtKeyAssignment, grid);
  const CheckBox& voice = At(form.chkDontVoiceAction, grid);
  printer.Line("key " + Shown(box.Text()) + " max " + std::to_string(box.MaxLength()));
  printer.Line("voice " + std::to_string(voice.Value()) + " " + OnOff(voice.Enabled));
  printer.Line("spin " + OnOff(At(form.UpDownMenuOrder, grid).Enabled));
  printer.Line("description " + Shown(At(form.txtDescription, grid).Caption()));
}

void ShowSetup(const Program& program, Printer& printer) {
  const frmMain& form = *program.main;
  for (const SetupOption& option : SetupOptions()) ShowCheckBox(form.*option.box, printer);
  ShowCheckBox(form.chkGenerateHelp, printer);
  ShowCheckBox(form.chkGeneratePDF, printer);
}

void ShowText(Program& program, std::string_view name, Printer& printer) {
  printer.Line(Shown(TextOf(program, name)));
}

void ShowSaved(const Program& program, Printer& printer) {
  const SaveOutcome& outcome = program.main->lastSave;
  switch (outcome.kind) {
    case SaveOutcome::Kind::none:
      return printer.Line("none");
    case SaveOutcome::Kind::complete:
      return printer.Line("complete");
    case SaveOutcome::Kind::refused:
      return printer.Line("refused " + std::to_string(outcome.grid));
    case SaveOutcome::Kind::incomplete:
      break;
  }
  std::string line = "incomplete";
  for (const std::string& path : outcome.files) line += " " + Shown(path);
  printer.Line(line);
}

void ShowEarlier(const Program& program, Printer& printer) {
  int number = 0;
  for (const EarlierVersion& version : EarlierVersions(*program.main)) {
    std::string line = std::to_string(++number) + " " + version.time;
    for (const EarlierScript& script : version.scripts) line += " " + Shown(script.path);
    printer.Line(line);
  }
}

void ShowLanguages(Program& program, Printer& printer) {
  if (!program.AboutIsLoaded()) return;
  const auto& items = program.About().mnuLanguageList;
  for (std::size_t i = 0; i < items.size(); ++i)
    printer.Line(std::to_string(i) + " " + Shown(items[i]->Caption()) + " " + items[i]->Tag);
}

void ShowFonts(const Program& program, Printer& printer) {
  const ControlFont& font = program.main->cmdSave.Font;
  for (const Form* form : program.loadedForms)
    for (const Control* control : form->Controls)
      if (control->Font() != font)
        printer.Line("differs " + control->Name + " " + std::to_string(control->Font().Charset) +
                     " " + Shown(control->Font().Name));
  printer.Line("charset " + std::to_string(font.Charset) + " " + Shown(font.Name));
}

}  // namespace dialwright
