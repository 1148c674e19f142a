#include "WindowUser.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QHeaderView>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <stdexcept>

#include "MirrorCheck.h"
#include "desktop/AboutDialog.h"
#include "desktop/GridView.h"
#include "desktop/KeyEdit.h"
#include "desktop/KeyMapItems.h"
#include "desktop/QtText.h"
#include "desktop/SpinArrows.h"
#include "platform/Failure.h"
#include "shell/Program.h"

namespace dialwright {

namespace {

QString ToName(std::string_view name) { return ToQt(name); }

void TypeCharacter(QWidget& widget, const QString& character) {
  const char32_t code = character.toUcs4().front();
  const auto key =
      code < 0x80 ? static_cast<Qt::Key>(character.front().toUpper().unicode()) : Qt::Key_unknown;
  QTest::sendKeyEvent(QTest::Click, &widget, key, character, Qt::NoModifier);
}

}  // namespace

WindowUser::WindowUser(Program& theProgram)
    : program(theProgram), form(*theProgram.main), window(theProgram) {
  // The box is up and the next step goes on: the steps come from outside, not from an event loop.
  window.aboutHoldsUp = false;
  for (EditBox& box : form.txtKeyAssignment) {
    const auto validate = box.Validate;
    box.Validate = [this, validate](bool& Cancel) {
      validate(Cancel);
      if (Cancel) ++refusals;
    };
  }
}

void WindowUser::Started() {
  bool isSeen = false;
  window.seen = [&] { isSeen = true; };
  window.Open();
  window.activateWindow();
  while (!isSeen) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  window.seen = nullptr;
  Finished(Outcome::done);
}

Outcome WindowUser::Finished(Outcome outcome) {
  QCoreApplication::processEvents();
  if (window.Entry().Failure()) std::rethrow_exception(window.Entry().Failure());
  if (const std::string difference = MirrorDifference(form, window); !difference.empty())
    throw std::logic_error("the window shows something else: " + difference);
  if (window.Entry().Ended()) throw EndProgram{};
  return outcome;
}

bool WindowUser::MainIsBlocked() const { return QApplication::activeModalWidget() != nullptr; }

QWidget* WindowUser::Find(const Control& control) const {
  return window.findChild<QWidget*>(ToQt(control.Name));
}

bool WindowUser::Usable(const QWidget& widget) const {
  return widget.isEnabled() && widget.isVisibleTo(&window);
}

Outcome WindowUser::ClickOn(Control& control, QWidget& part) {
  return ClickOn(control, part, part.rect().center());
}

Outcome WindowUser::ClickOn(Control& control, QWidget& part, QPoint place) {
  if (MainIsBlocked() || !Usable(part)) return Outcome::refused;
  const int refusedBefore = refusals;
  QTest::mousePress(&part, Qt::LeftButton, Qt::NoModifier, place);
  const bool held = refusals != refusedBefore;
  // What works at once may have sent the focus on; what works at the release has it now.
  const bool atRelease = qobject_cast<QAbstractButton*>(&part) != nullptr;
  const bool came = !atRelease || form.focus.ActiveControl() == &control;
  QTest::mouseRelease(&part, Qt::LeftButton, Qt::NoModifier, place);
  if (held) return Finished(Outcome::held);
  return Finished(came ? Outcome::done : Outcome::refused);
}

Outcome WindowUser::Click(std::string_view name) {
  if (MainIsBlocked()) return ClickInAbout(name);
  if (auto* action = window.findChild<QAction*>(ToName(name))) return Pick(*action);
  auto* button = window.findChild<QPushButton*>(ToName(name));
  Control* control = form.Find(name);
  if (button == nullptr || control == nullptr) return Outcome::refused;
  return ClickOn(*control, *button);
}

Outcome WindowUser::Pick(QAction& action) {
  QMenuBar& bar = *window.menuBar();
  for (QAction* heading : bar.actions()) {
    QMenu* menu = heading->menu();
    if (!menu->actions().contains(&action)) continue;
    if (!heading->isVisible() || !heading->isEnabled() || !action.isVisible() ||
        !action.isEnabled())
      return Outcome::refused;
    QTest::mouseClick(&bar, Qt::LeftButton, Qt::NoModifier, bar.actionGeometry(heading).center());
    QTest::mouseMove(menu, menu->actionGeometry(&action).center());
    QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(&action).center());
    return Finished(Outcome::done);
  }
  return Outcome::refused;
}

Outcome WindowUser::ClickInAbout(std::string_view name) {
  AboutDialog& about = *window.AboutBox();
  if (auto* button = about.findChild<QPushButton*>(ToName(name));
      button != nullptr && name == "cmdOK") {
    QTest::mouseClick(button, Qt::LeftButton);
    return Finished(Outcome::done);
  }
  auto* language = about.findChild<QAction*>(ToName(name));
  auto* opener = about.findChild<QPushButton*>("lblChangeLanguage");
  auto* menu = about.findChild<QMenu*>("mnuSelectLanguage");
  if (language == nullptr || !language->isVisible() || !language->isEnabled())
    return Outcome::refused;
  QTest::mouseClick(opener, Qt::LeftButton);
  QTest::mouseMove(menu, menu->actionGeometry(language).center());
  QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(language).center());
  return Finished(Outcome::done);
}

Outcome WindowUser::Set(std::string_view name, int value) {
  auto* box = window.findChild<QCheckBox*>(ToName(name));
  Control* control = form.Find(name);
  if (box == nullptr || control == nullptr || MainIsBlocked() || !Usable(*box))
    return Outcome::refused;
  if (box->isChecked() == (value != 0)) return Outcome::done;
  // The middle of a wide box is no part of it: its sign and its text are.
  return ClickOn(*control, *box, {box->sizeHint().width() / 2, box->height() / 2});
}

Outcome WindowUser::Tab(int tab) {
  auto& bar = static_cast<QTabBar&>(*Find(form.SSTab1));
  if (tab < 0 || tab >= bar.count() || !bar.isTabVisible(tab)) return Outcome::refused;
  return ClickOn(form.SSTab1, bar, bar.tabRect(tab).center());
}

Outcome WindowUser::ClickPlace(int grid, int row) {
  KeyGrid& keys = At(form.gridKeyMap, grid);
  auto& view = static_cast<GridView&>(*Find(keys));
  const QModelIndex place = view.model()->index(row - 1, 0);
  view.scrollTo(place);
  return ClickOn(keys, *view.viewport(), view.visualRect(place).center());
}

Outcome WindowUser::Row(int grid, int row) {
  const auto& view = static_cast<GridView&>(*Find(At(form.gridKeyMap, grid)));
  if (row < 1 || row > view.model()->rowCount()) return Outcome::refused;
  return ClickPlace(grid, row);
}

Outcome WindowUser::Row(int grid, std::string_view token) {
  const KeyGrid& keys = At(form.gridKeyMap, grid);
  const auto rowOf = [&] {
    for (int row = 1; row < keys.Rows(); ++row)
      if (keys.Text(row, Column::ActionToken) == token) return row;
    return 0;
  };
  if (rowOf() == 0 || form.SSTab1.Tab() != grid) return Outcome::refused;
  const Outcome left = Leave();
  return left == Outcome::done ? ClickPlace(grid, rowOf()) : left;
}

Outcome WindowUser::Type(std::string_view text, bool selectAll) {
  const int tab = form.SSTab1.Tab();
  if (MainIsBlocked() || tab >= gridCount) return Outcome::refused;
  EditBox& box = At(form.txtKeyAssignment, tab);
  auto& edit = static_cast<KeyEdit&>(*Find(box));
  if (form.focus.ActiveControl() != &box) {
    const Outcome moved = ClickOn(box, edit);
    if (moved != Outcome::done) return moved;
  }
  QTest::keyClick(&edit, selectAll ? Qt::Key_A : Qt::Key_End,
                  selectAll ? Qt::ControlModifier : Qt::NoModifier);
  if (text.empty() && selectAll) QTest::keyClick(&edit, Qt::Key_Backspace);
  for (const char32_t character : ToName(text).toStdU32String())
    TypeCharacter(edit, QString::fromUcs4(&character, 1));
  return Finished(Outcome::done);
}

Outcome WindowUser::Leave() {
  const int tab = form.SSTab1.Tab();
  if (MainIsBlocked() || tab >= gridCount) return Outcome::refused;
  KeyGrid& keys = At(form.gridKeyMap, tab);
  auto& view = static_cast<GridView&>(*Find(keys));
  // The heading is the grid's as well, and no row.
  return ClickOn(keys, *view.horizontalHeader()->viewport());
}

Outcome WindowUser::Spin(bool up) {
  const int tab = form.SSTab1.Tab();
  if (MainIsBlocked() || tab >= gridCount) return Outcome::refused;
  SpinButton& spin = At(form.UpDownMenuOrder, tab);
  auto& arrows = static_cast<SpinArrows&>(*Find(spin));
  return ClickOn(spin, up ? arrows.UpButton() : arrows.DownButton());
}

Outcome WindowUser::Bring(int number) {
  if (MainIsBlocked()) return Outcome::refused;
  window.findChild<QAction*>("earlierVersions")->trigger();
  auto* dialog = window.findChild<QDialog*>("earlierVersionsDialog");
  auto* times = dialog->findChild<QListWidget*>("earlierVersionsTimes");
  const bool isThere = number >= 1 && number <= times->count();
  if (isThere)
    QTest::mouseClick(times->viewport(), Qt::LeftButton, Qt::NoModifier,
                      times->visualItemRect(times->item(number - 1)).center());
  const QString button = isThere ? "bringBack" : "closeEarlier";
  QTest::mouseClick(dialog->findChild<QPushButton*>(button), Qt::LeftButton);
  QCoreApplication::sendPostedEvents(dialog, QEvent::DeferredDelete);
  return Finished(isThere ? Outcome::done : Outcome::refused);
}

Outcome WindowUser::PickBeside(const char* name) {
  return MainIsBlocked() ? Outcome::refused : Pick(*window.findChild<QAction*>(name));
}

Outcome WindowUser::Undo() { return PickBeside("mnuUndo"); }

Outcome WindowUser::Redo() { return PickBeside("mnuRedo"); }

Outcome WindowUser::Revert() { return PickBeside("mnuRevertRow"); }

Outcome WindowUser::PickWithFile(const char* name, std::string_view path, KeyMapNews& news) {
  // The dialogs are the toolkit's own, or the machine's.
  window.KeyMaps().askPath = [path](KeyMapItems::Asked) { return std::string(path); };
  window.KeyMaps().tell = [&news](const KeyMapNews& told) { news = told; };
  return PickBeside(name);
}

Outcome WindowUser::Export(std::string_view path, KeyMapNews& news) {
  return PickWithFile("mnuExportKeyMap", path, news);
}

Outcome WindowUser::Import(std::string_view path, KeyMapNews& news) {
  return PickWithFile("mnuImportKeyMap", path, news);
}

History& WindowUser::Steps() { return window.Steps(); }

Outcome WindowUser::Close() {
  if (MainIsBlocked()) return Outcome::refused;
  window.close();
  return Finished(Outcome::done);
}

}  // namespace dialwright
