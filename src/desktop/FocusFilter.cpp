#include "desktop/FocusFilter.h"

#include <QApplication>
#include <QGroupBox>
#include <QKeyEvent>
#include <QMenuBar>
#include <QMouseEvent>
#include <QShortcutEvent>
#include <QTabBar>
#include <algorithm>

#include "desktop/ControlViews.h"
#include "desktop/Dispatch.h"
#include "desktop/GridView.h"
#include "desktop/KeyEdit.h"
#include "desktop/QtText.h"
#include "shell/frmMain.h"
#include "text/Text.h"

namespace dialwright {

FocusFilter::FocusFilter(QWidget& mainWindow, frmMain& mainForm, ControlViews& controlViews,
                         Dispatch& dispatch)
    : window(mainWindow), form(mainForm), views(controlViews), entry(dispatch) {
  qApp->installEventFilter(this);
  // Whatever else moves the keyboard, such as a page that is turned, it comes back.
  connect(
      qApp, &QApplication::focusChanged, this, [this] { MirrorFocus(); }, Qt::QueuedConnection);
}

void FocusFilter::MirrorFocus() {
  Control* active = form.focus.ActiveControl();
  if (active != nullptr) last = active;
  if (QApplication::activePopupWidget() != nullptr ||
      qobject_cast<QMenuBar*>(QApplication::focusWidget()) != nullptr)
    return;  // a menu gives the keyboard back by itself
  QWidget* wanted = views.FocusWidget(active);
  QWidget* present = window.focusWidget();
  if (wanted == present) return;
  const bool isGuest = present != nullptr && !views.HoldsKeyboard(*present);
  if (isGuest && !isStepping) return;
  if (wanted != nullptr)
    wanted->setFocus(stepReason);
  else
    present->clearFocus();
}

void FocusFilter::ComeBack() {
  isStepping = true;
  MirrorFocus();
  isStepping = false;
}

void FocusFilter::GoTo(int grid, const std::string& token) {
  if (form.SSTab1.Tab() != grid) StepToTab(grid);
  if (form.SSTab1.Tab() != grid) return;
  KeyGrid& keys = At(form.gridKeyMap, grid);
  // To leave the box may sort the rows: what is meant is the action.
  Step(keys, Qt::OtherFocusReason, [&keys, &token] {
    for (int row = 1; row < keys.Rows(); ++row)
      if (keys.Text(row, Column::ActionToken) == token) return keys.SetRow(row);
  });
}

void FocusFilter::TypeKey(char key) {
  const int tab = form.SSTab1.Tab();
  if (tab >= gridCount) return;
  EditBox& box = At(form.txtKeyAssignment, tab);
  Step(box, Qt::OtherFocusReason, [&box, key] {
    box.SelectAll();
    box.TypeCharacter(std::string_view(&key, 1));
  });
}

bool FocusFilter::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  const bool ours = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick ||
                    type == QEvent::KeyPress || type == QEvent::Shortcut || type == QEvent::Wheel;
  if (!ours || !watched->isWidgetType()) return false;
  entry.goesOn = false;
  auto* widget = static_cast<QWidget*>(watched);
  if (widget->window() != &window) return false;
  switch (type) {
    case QEvent::KeyPress:
      return Key(widget, static_cast<QKeyEvent*>(event));
    case QEvent::Shortcut:
      return Mnemonic(widget, static_cast<QShortcutEvent*>(event));
    // A turn of the wheel looks around; it is no choice of a tab.
    case QEvent::Wheel:
      return qobject_cast<QTabBar*>(widget) != nullptr;
    default:
      return Press(widget, static_cast<QMouseEvent*>(event));
  }
}

bool FocusFilter::Press(QWidget* widget, QMouseEvent* event) {
  heldOnSpin = 0;
  const ControlViews::Part* part = views.PartAt(widget);
  if (part == nullptr) return false;
  const auto* grid = dynamic_cast<const KeyGrid*>(part->control);
  if (grid != nullptr && event->type() == QEvent::MouseButtonDblClick) {
    // The first press has chosen the row.
    if (part->actionAt && grid->HasRowInHand()) StepToBox();
    return true;
  }
  if (event->button() != Qt::LeftButton && !part->anyButton) return false;
  if (!part->actionAt) {
    entry.goesOn = Step(*part->control, Qt::MouseFocusReason);
    return !entry.goesOn;
  }
  Step(*part->control, Qt::MouseFocusReason, part->actionAt(event->position().toPoint()));
  return true;
}

namespace {

constexpr int keyEnter = 13;  // the codes that the keys have as characters
constexpr int keyEscape = 27;

Qt::KeyboardModifiers ModifiersOf(const QKeyEvent& event) {
  return event.modifiers() & ~Qt::KeypadModifier;
}

/// -1 for the key upwards, +1 for the key downwards, 0 for any other.
int ArrowOf(const QKeyEvent& event) {
  return event.key() == Qt::Key_Up ? -1 : event.key() == Qt::Key_Down ? +1 : 0;
}

bool IsEnter(const QKeyEvent& event) {
  return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

bool IsTelephoneKey(const QKeyEvent& event) {
  const QString text = event.text();
  return text.size() == 1 && QStringView(u"0123456789*#").contains(text.front()) &&
         (ModifiersOf(event) & ~Qt::ShiftModifier) == Qt::NoModifier;
}

}  // namespace

bool FocusFilter::Key(QWidget* widget, QKeyEvent* event) {
  if (qobject_cast<QMenuBar*>(widget) != nullptr) return false;
  if (!event->isAutoRepeat()) heldOnSpin = 0;
  if (WindowKey(*event)) return true;
  if (widget != &window && !views.HoldsKeyboard(*widget)) return false;  // a guest's

  const int pressed = event->key();
  const Qt::KeyboardModifiers modifiers = ModifiersOf(*event);
  if ((pressed == Qt::Key_Tab || pressed == Qt::Key_Backtab) &&
      (modifiers == Qt::NoModifier || modifiers == Qt::ShiftModifier)) {
    StepToNeighbour(pressed == Qt::Key_Backtab || modifiers != Qt::NoModifier ? -1 : +1);
    return true;
  }
  return form.SSTab1.Tab() < gridCount && RowKey(*event);
}

bool FocusFilter::WindowKey(const QKeyEvent& event) {
  const Qt::KeyboardModifiers modifiers = ModifiersOf(event);
  if ((modifiers & ~Qt::ShiftModifier) != Qt::ControlModifier) return false;
  const bool shift = (modifiers & Qt::ShiftModifier) != 0;
  switch (event.key()) {
    case Qt::Key_Tab:
      StepToNextTab(shift ? -1 : +1);
      return true;
    case Qt::Key_Backtab:
    case Qt::Key_PageUp:
      StepToNextTab(-1);
      return true;
    case Qt::Key_PageDown:
      StepToNextTab(+1);
      return true;
    case Qt::Key_S:
      if (shift) return false;
      Step(form.cmdSave, Qt::ShortcutFocusReason, [this] {
        if (form.cmdSave.Click) form.cmdSave.Click();
      });
      return true;
    default:
      if (event.key() < Qt::Key_1 || event.key() >= Qt::Key_1 + TabStrip::tabCount) return false;
      if (form.SSTab1.TabVisible(event.key() - Qt::Key_1)) StepToTab(event.key() - Qt::Key_1);
      return true;
  }
}

bool FocusFilter::RowKey(const QKeyEvent& event) {
  const int tab = form.SSTab1.Tab();
  const Control* active = form.focus.ActiveControl();
  const KeyGrid& grid = At(form.gridKeyMap, tab);
  const bool onSpin = active == &At(form.UpDownMenuOrder, tab);
  const bool inBox = active == &At(form.txtKeyAssignment, tab);
  const bool onGrid = active == &grid;
  const Qt::KeyboardModifiers modifiers = ModifiersOf(event);
  const bool isPlain = modifiers == Qt::NoModifier;

  // The step sends the focus on to the box; the key is held all the same.
  const bool isHeld = event.isAutoRepeat() && heldOnSpin == event.key();
  if (const int arrow = ArrowOf(event); arrow != 0 && (isHeld || (onSpin && isPlain))) {
    heldOnSpin = event.key();
    MoveRow(arrow);
    return true;
  }
  if (active != nullptr && !onSpin && !inBox && !onGrid) return false;
  if (const int arrow = ArrowOf(event); arrow != 0 && modifiers == Qt::AltModifier) {
    MoveRow(arrow);
    if (form.focus.ActiveControl() == &At(form.UpDownMenuOrder, tab) && inBox) StepToBox();
    return true;
  }
  if (onSpin) return false;
  if (inBox) return BoxKey(event);

  if (IsTelephoneKey(event)) {
    if (!StepToBox()) return true;
    QKeyEvent again(event.type(), event.key(), event.modifiers(), event.text());
    QCoreApplication::sendEvent(views.FocusWidget(&At(form.txtKeyAssignment, tab)), &again);
    return true;
  }
  if (isPlain && (event.key() == Qt::Key_F2 || (onGrid && IsEnter(event)))) {
    StepToBox();
    return true;
  }
  if (onGrid) return false;
  return ArrowOf(event) != 0 && isPlain && StepToBox() && BoxKey(event);
}

bool FocusFilter::BoxKey(const QKeyEvent& event) {
  const int tab = form.SSTab1.Tab();
  const KeyGrid& grid = At(form.gridKeyMap, tab);
  auto& edit = static_cast<KeyEdit&>(*views.FocusWidget(&At(form.txtKeyAssignment, tab)));
  const Qt::KeyboardModifiers modifiers = ModifiersOf(event);
  const int pressed = event.key();
  if (modifiers == Qt::NoModifier && IsEnter(event)) {
    edit.keyPress(keyEnter);
    StepToRow(grid.Row() + 1);
    return true;
  }
  if (modifiers == Qt::NoModifier && pressed == Qt::Key_Escape) {
    edit.keyPress(keyEscape);
    if (grid.HasRowInHand()) edit.Replace(ToQt(Trim(grid.Text(grid.Row(), Column::KeyAssignment))));
    return true;
  }
  const bool toAnEnd = pressed == Qt::Key_Home || pressed == Qt::Key_End;
  if (modifiers != (toAnEnd ? Qt::ControlModifier : Qt::NoModifier)) return false;
  const auto& view = static_cast<const GridView&>(*views.FocusWidget(&grid));
  const int row = view.RowByKey(pressed);
  if (row == 0) return false;
  if (row != grid.Row()) StepToRow(row);
  return true;
}

bool FocusFilter::Mnemonic(QWidget* widget, QShortcutEvent* event) {
  const auto target = views.MnemonicOf(widget, event->key());
  if (!target) return qobject_cast<QGroupBox*>(widget) != nullptr;
  // Of two controls with one letter the key only chooses, as it does everywhere.
  const bool moved = Step(*target->control, Qt::ShortcutFocusReason);
  if (moved && target->action && !event->isAmbiguous()) {
    entry.goesOn = true;
    target->action();
    entry.goesOn = false;
  }
  return true;
}

bool FocusFilter::Step(Control& to, Qt::FocusReason reason, const std::function<void()>& action) {
  bool moved = false;
  stepReason = reason;
  isStepping = true;
  entry.Run([&] {
    moved = form.focus.Reachable(to) && form.focus.MoveByUser(to);
    if (moved && action) action();
  });
  isStepping = false;
  stepReason = Qt::OtherFocusReason;
  return moved;
}

void FocusFilter::StepToNeighbour(int direction) {
  const Control* from = form.focus.ActiveControl() != nullptr ? form.focus.ActiveControl() : last;
  const auto count = static_cast<int>(tabOrder.size());
  const auto found = std::find(tabOrder.begin(), tabOrder.end(), from);
  int place = found == tabOrder.end() ? (direction > 0 ? -1 : 0)
                                      : static_cast<int>(found - tabOrder.begin());
  for (int tried = 0; tried < count; ++tried) {
    place = (place + direction + count) % count;
    Control& next = *tabOrder[static_cast<std::size_t>(place)];
    if (!form.focus.Reachable(next)) continue;
    Step(next, direction > 0 ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return;
  }
}

bool FocusFilter::StepToBox() {
  EditBox& box = At(form.txtKeyAssignment, form.SSTab1.Tab());
  return Step(box, Qt::OtherFocusReason, [&box] { box.SelectAll(); });
}

void FocusFilter::StepToRow(int row) {
  KeyGrid& grid = At(form.gridKeyMap, form.SSTab1.Tab());
  // To leave the box may sort the rows: what is meant is the action that stands there now.
  const bool isThere = row > 0 && row < grid.Rows();
  const std::string token = isThere ? grid.Text(row, Column::ActionToken) : "";
  Step(grid, Qt::OtherFocusReason, [&grid, isThere, token] {
    for (int present = 1; isThere && present < grid.Rows(); ++present)
      if (grid.Text(present, Column::ActionToken) == token) return grid.SetRow(present);
  });
}

void FocusFilter::StepToTab(int tab) {
  Step(form.SSTab1, Qt::OtherFocusReason, [this, tab] { form.SSTab1.SetTab(tab); });
}

void FocusFilter::StepToNextTab(int direction) {
  int tab = form.SSTab1.Tab();
  do {
    tab = (tab + direction + TabStrip::tabCount) % TabStrip::tabCount;
  } while (!form.SSTab1.TabVisible(tab));
  StepToTab(tab);
}

void FocusFilter::MoveRow(int direction) {
  SpinButton& spin = At(form.UpDownMenuOrder, form.SSTab1.Tab());
  const auto& click = direction < 0 ? spin.UpClick : spin.DownClick;
  Step(spin, Qt::OtherFocusReason, click);
}

}  // namespace dialwright
