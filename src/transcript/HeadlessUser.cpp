#include "HeadlessUser.h"

#include <cstdint>

#include "beside/KeyMapExchange.h"
#include "platform/Failure.h"
#include "shell/Program.h"
#include "shell/events/BringBack.h"
#include "shell/events/Lifecycle.h"
#include "shell/frmAbout.h"
#include "shell/frmMain.h"
#include "text/Text.h"

namespace dialwright {

namespace {

Outcome Use(const std::function<void()>& handler) {
  if (handler) handler();
  return Outcome::done;
}

Outcome ClickInAbout(frmAbout& about, std::string_view name) {
  for (Control* control : about.Controls) {
    if (control->Name != name) continue;
    if (control == &about.cmdOK) return Use(about.cmdOK.Click);
    if (const auto* item = dynamic_cast<MenuItem*>(control)) return Use(item->Click);
  }
  return Outcome::refused;
}

}  // namespace

HeadlessUser::HeadlessUser(Program& theProgram)
    : program(theProgram), form(*theProgram.main), history(form) {}

Outcome HeadlessUser::MoveTo(Control& control) {
  if (!form.focus.Reachable(control)) return Outcome::refused;
  if (form.focus.MoveByUser(control)) return Outcome::done;
  return form.focus.Reachable(control) ? Outcome::held : Outcome::refused;
}

Outcome HeadlessUser::Click(std::string_view name) {
  history.StepBegins();
  if (program.AboutIsUp()) return ClickInAbout(program.About(), name);
  Control* control = form.Find(name);
  if (const auto* item = dynamic_cast<MenuItem*>(control))
    return item->Offered() && item->Enabled ? Use(item->Click) : Outcome::refused;
  auto* button = dynamic_cast<CommandButton*>(control);
  if (button == nullptr) return Outcome::refused;
  const Outcome moved = MoveTo(*button);
  return moved == Outcome::done ? Use(button->Click) : moved;
}

Outcome HeadlessUser::Set(std::string_view name, int value) {
  history.StepBegins();
  auto* box = dynamic_cast<CheckBox*>(form.Find(name));
  if (box == nullptr || program.AboutIsUp() || !form.focus.Reachable(*box)) return Outcome::refused;
  if (box->Value() == value) return Outcome::done;
  const Outcome moved = MoveTo(*box);
  if (moved == Outcome::done) box->SetValue(box->Value() == 0 ? 1 : 0);
  return moved;
}

Outcome HeadlessUser::Tab(int tab) {
  history.StepBegins();
  if (program.AboutIsUp() || tab < 0 || tab >= TabStrip::tabCount || !form.SSTab1.TabVisible(tab))
    return Outcome::refused;
  const Outcome moved = MoveTo(form.SSTab1);
  if (moved == Outcome::done) form.SSTab1.SetTab(tab);
  return moved;
}

Outcome HeadlessUser::Row(int grid, int row) {
  history.StepBegins();
  if (program.AboutIsUp() || grid < 0 || grid >= gridCount) return Outcome::refused;
  KeyGrid& keys = At(form.gridKeyMap, grid);
  if (row < 1 || row >= keys.Rows()) return Outcome::refused;
  const Outcome moved = MoveTo(keys);
  if (moved == Outcome::done) keys.SetRow(row);
  return moved;
}

Outcome HeadlessUser::Row(int grid, std::string_view token) {
  history.StepBegins();
  if (program.AboutIsUp() || grid < 0 || grid >= gridCount) return Outcome::refused;
  KeyGrid& keys = At(form.gridKeyMap, grid);
  const auto rowOf = [&] {
    for (int row = 1; row < keys.Rows(); ++row)
      if (keys.Text(row, Column::ActionToken) == token) return row;
    return 0;
  };
  if (rowOf() == 0) return Outcome::refused;
  const Outcome moved = MoveTo(keys);
  if (moved == Outcome::done) keys.SetRow(rowOf());
  return moved;
}

Outcome HeadlessUser::Type(std::string_view text, bool selectAll) {
  history.StepBegins();
  const int tab = form.SSTab1.Tab();
  if (program.AboutIsUp() || tab >= gridCount) return Outcome::refused;
  EditBox& box = At(form.txtKeyAssignment, tab);
  const Outcome moved = MoveTo(box);
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

Outcome HeadlessUser::Leave() {
  history.StepBegins();
  const int tab = form.SSTab1.Tab();
  if (program.AboutIsUp() || tab >= gridCount) return Outcome::refused;
  return MoveTo(At(form.gridKeyMap, tab));
}

Outcome HeadlessUser::Spin(bool up) {
  history.StepBegins();
  const int tab = form.SSTab1.Tab();
  if (program.AboutIsUp() || tab >= gridCount) return Outcome::refused;
  SpinButton& spin = At(form.UpDownMenuOrder, tab);
  const Outcome moved = MoveTo(spin);
  return moved == Outcome::done ? Use(up ? spin.UpClick : spin.DownClick) : moved;
}

Outcome HeadlessUser::Bring(int number) {
  history.StepBegins();
  if (program.AboutIsUp()) return Outcome::refused;
  return BringEarlierVersion(form, number) ? Outcome::done : Outcome::refused;
}

Outcome HeadlessUser::Edit(bool (History::*command)()) {
  history.StepBegins();
  return !program.AboutIsUp() && (history.*command)() ? Outcome::done : Outcome::refused;
}

Outcome HeadlessUser::Undo() { return Edit(&History::Undo); }

Outcome HeadlessUser::Redo() { return Edit(&History::Redo); }

Outcome HeadlessUser::Revert() { return Edit(&History::Revert); }

Outcome HeadlessUser::Export(std::string_view path, KeyMapNews& news) {
  history.StepBegins();
  if (program.AboutIsUp()) return Outcome::refused;
  news = ExportKeyMap(form, path);
  return Outcome::done;
}

Outcome HeadlessUser::Import(std::string_view path, KeyMapNews& news) {
  history.StepBegins();
  if (program.AboutIsUp()) return Outcome::refused;
  news = ImportKeyMap(history, form, path);
  return Outcome::done;
}

History& HeadlessUser::Steps() { return history; }

Outcome HeadlessUser::Close() {
  history.StepBegins();
  if (program.AboutIsUp()) return Outcome::refused;
  std::int16_t cancel = 0;
  Form_Unload(form, cancel);
  if (cancel == 0) throw EndProgram{};
  return Outcome::done;
}

}  // namespace dialwright
