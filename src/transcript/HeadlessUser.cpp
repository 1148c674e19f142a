#include "HeadlessUser.h"

#include <cstdint>

#include "platform/Failure.h"
#include "shell/Program.h"
#include "shell/events/Lifecycle.h"
#include "shell/frmAbout.h"
#include "shell/frmMain.h"
#include "text/Text.h"

namespace dialwright {

namespace {

Outcome use(const std::function<void()>& handler) {
  if (handler) handler();
  return Outcome::done;
}

Outcome clickInAbout(frmAbout& about, std::string_view name) {
  for (Control* control : about.Controls) {
    if (control->Name != name) continue;
    if (control == &about.cmdOK) return use(about.cmdOK.Click);
    if (const auto* item = dynamic_cast<MenuItem*>(control)) return use(item->Click);
  }
  return Outcome::refused;
}

}  // namespace

HeadlessUser::HeadlessUser(Program& theProgram) : program(theProgram), form(*theProgram.main) {}

Outcome HeadlessUser::moveTo(Control& control) {
  if (!form.focus.Reachable(control)) return Outcome::refused;
  if (form.focus.MoveByUser(control)) return Outcome::done;
  return form.focus.Reachable(control) ? Outcome::held : Outcome::refused;
}

Outcome HeadlessUser::click(std::string_view name) {
  if (program.aboutIsUp()) return clickInAbout(program.about(), name);
  Control* control = form.Find(name);
  if (const auto* item = dynamic_cast<MenuItem*>(control))
    return item->Offered() && item->Enabled ? use(item->Click) : Outcome::refused;
  auto* button = dynamic_cast<CommandButton*>(control);
  if (button == nullptr) return Outcome::refused;
  const Outcome moved = moveTo(*button);
  return moved == Outcome::done ? use(button->Click) : moved;
}

Outcome HeadlessUser::set(std::string_view name, int value) {
  auto* box = dynamic_cast<CheckBox*>(form.Find(name));
  if (box == nullptr || program.aboutIsUp() || !form.focus.Reachable(*box)) return Outcome::refused;
  if (box->Value() == value) return Outcome::done;
  const Outcome moved = moveTo(*box);
  if (moved == Outcome::done) box->SetValue(box->Value() == 0 ? 1 : 0);
  return moved;
}

Outcome HeadlessUser::tab(int tab) {
  if (program.aboutIsUp() || tab < 0 || tab >= TabStrip::tabCount || !form.SSTab1.TabVisible(tab))
    return Outcome::refused;
  const Outcome moved = moveTo(form.SSTab1);
  if (moved == Outcome::done) form.SSTab1.SetTab(tab);
  return moved;
}

Outcome HeadlessUser::row(int grid, int row) {
  if (program.aboutIsUp() || grid < 0 || grid >= gridCount) return Outcome::refused;
  KeyGrid& keys = At(form.gridKeyMap, grid);
  if (row < 1 || row >= keys.Rows()) return Outcome::refused;
  const Outcome moved = moveTo(keys);
  if (moved == Outcome::done) keys.SetRow(row);
  return moved;
}

Outcome HeadlessUser::row(int grid, std::string_view token) {
  if (program.aboutIsUp() || grid < 0 || grid >= gridCount) return Outcome::refused;
  KeyGrid& keys = At(form.gridKeyMap, grid);
  const auto rowOf = [&] {
    for (int row = 1; row < keys.Rows(); ++row)
      if (keys.Text(row, Column::ActionToken) == token) return row;
    return 0;
  };
  if (rowOf() == 0) return Outcome::refused;
  const Outcome moved = moveTo(keys);
  if (moved == Outcome::done) keys.SetRow(rowOf());
  return moved;
}

Outcome HeadlessUser::type(std::string_view text, bool selectAll) {
  const int tab = form.SSTab1.Tab();
  if (program.aboutIsUp() || tab >= gridCount) return Outcome::refused;
  EditBox& box = At(form.txtKeyAssignment, tab);
  const Outcome moved = moveTo(box);
  if (moved != Outcome::done) return moved;
  if (selectAll)
    box.SelectAll();
  else
    box.MoveToEnd();
  if (text.empty() && selectAll) box.TypeBackspace();
  while (!text.empty()) {
    const std::string_view character = FirstCharacters(text, 1);
    box.TypeCharacter(character);
    text.remove_prefix(character.size());
  }
  return Outcome::done;
}

Outcome HeadlessUser::leave() {
  const int tab = form.SSTab1.Tab();
  if (program.aboutIsUp() || tab >= gridCount) return Outcome::refused;
  return moveTo(At(form.gridKeyMap, tab));
}

Outcome HeadlessUser::spin(bool up) {
  const int tab = form.SSTab1.Tab();
  if (program.aboutIsUp() || tab >= gridCount) return Outcome::refused;
  SpinButton& spin = At(form.UpDownMenuOrder, tab);
  const Outcome moved = moveTo(spin);
  return moved == Outcome::done ? use(up ? spin.UpClick : spin.DownClick) : moved;
}

Outcome HeadlessUser::close() {
  if (program.aboutIsUp()) return Outcome::refused;
  std::int16_t cancel = 0;
  Form_Unload(form, cancel);
  if (cancel == 0) throw EndProgram{};
  return Outcome::done;
}

}  // namespace dialwright
