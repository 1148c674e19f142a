#include "Views.h"

#include "scripts/SetupOptions.h"
#include "shell/Program.h"
#include "shell/frmAbout.h"
#include "shell/frmMain.h"

namespace dialwright {

namespace {

std::string onOff(bool on) { return on ? "on" : "off"; }

/// The index in "NAME(3)", -1 where there is none.
int indexIn(std::string_view name, std::string_view array) {
  if (!name.starts_with(array) || name.size() < array.size() + 3 || name[array.size()] != '(')
    return -1;
  return name[array.size() + 1] - '0';
}

std::string textOf(Program& program, std::string_view name) {
  const frmMain& form = *program.main;
  if (const int tab = indexIn(name, "SSTab1"); tab >= 0 && tab < TabStrip::tabCount)
    return form.SSTab1.TabCaption(tab);
  if (const int grid = indexIn(name, "gridKeyMap"); grid >= 0 && grid < gridCount) {
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

void showCheckBox(const CheckBox& box, Printer& printer) {
  printer.line(box.Name + " " + std::to_string(box.Value()) + " " + onOff(box.Enabled));
}

}  // namespace

void ShowForm(const Program& program, Printer& printer) {
  const frmMain& form = *program.main;
  printer.line("caption " + Shown(form.Caption()));
  printer.line("tab " + std::to_string(form.SSTab1.Tab()));
  std::string tabs = "tabs";
  for (int tab = 0; tab < TabStrip::tabCount; ++tab)
    if (form.SSTab1.TabVisible(tab)) tabs += " " + std::to_string(tab);
  printer.line(tabs);
  std::string slots = "slot";
  const MenuItem* items[] = {&form.mnuSelectDialwright, &form.mnuSelectDialwright2,
                             &form.mnuSelectDialwright3};
  for (int slot = 0; slot < slotCount; ++slot)
    if (items[slot]->Checked) slots += " " + std::to_string(slot + 1);
  printer.line(slots);
  printer.line("save " + onOff(form.cmdSave.Enabled));
  std::string offered = "offered";
  for (const MenuItem* item :
       {&form.mnuWalletCard, &form.mnuSelectKeyMap, &form.mnuResetKeysToVarloInternal})
    if (item->Offered()) offered += " " + item->Name;
  printer.line(offered);
}

void ShowGrid(const Program& program, int number, bool withLabels, Printer& printer) {
  const KeyGrid& grid = At(program.main->gridKeyMap, number);
  for (int row = 1; row < grid.Rows(); ++row)
    printer.line((row == grid.Row() ? "*" : "") + std::to_string(row) + " " +
                 (withLabels ? Shown(grid.Text(row, Column::Action)) + " " : "") +
                 Shown(grid.Text(row, Column::KeyAssignment)) + " " +
                 grid.Text(row, Column::ActionToken) + " " + Shown(grid.Text(row, Column::Order)));
}

void ShowEdit(const Program& program, int grid, Printer& printer) {
  const frmMain& form = *program.main;
  const EditBox& box = At(form.txtKeyAssignment, grid);
  const CheckBox& voice = At(form.chkDontVoiceAction, grid);
  printer.line("key " + Shown(box.Text()) + " max " + std::to_string(box.MaxLength()));
  printer.line("voice " + std::to_string(voice.Value()) + " " + onOff(voice.Enabled));
  printer.line("spin " + onOff(At(form.UpDownMenuOrder, grid).Enabled));
  printer.line("description " + Shown(At(form.txtDescription, grid).Caption()));
}

void ShowSetup(const Program& program, Printer& printer) {
  const frmMain& form = *program.main;
  for (const SetupOption& option : SetupOptions()) showCheckBox(form.*option.box, printer);
  showCheckBox(form.chkGenerateHelp, printer);
  showCheckBox(form.chkGeneratePDF, printer);
}

void ShowText(Program& program, std::string_view name, Printer& printer) {
  printer.line(Shown(textOf(program, name)));
}

void ShowLanguages(Program& program, Printer& printer) {
  if (!program.aboutIsLoaded()) return;
  const auto& items = program.about().mnuLanguageList;
  for (std::size_t i = 0; i < items.size(); ++i)
    printer.line(std::to_string(i) + " " + Shown(items[i]->Caption()) + " " + items[i]->Tag);
}

void ShowFonts(const Program& program, Printer& printer) {
  const ControlFont& font = program.main->cmdSave.Font;
  for (const Form* form : program.loadedForms)
    for (const Control* control : form->Controls)
      if (control->Font() != font)
        printer.line("differs " + control->Name + " " + std::to_string(control->Font().Charset) +
                     " " + Shown(control->Font().Name));
  printer.line("charset " + std::to_string(font.Charset) + " " + Shown(font.Name));
}

}  // namespace dialwright
