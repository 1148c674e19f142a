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
#include "shell/frmMain.h"

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
  if (wanted != nullptr)
    wanted->setFocus(stepReason);
  else
    present->clearFocus();
}

bool FocusFilter::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  const bool ours = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick ||
                    type == QEvent::KeyPress || type == QEvent::Shortcut || type == QEvent::Wheel;
  if (!ours || !watched->isWidgetType()) return false;
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
  const ControlViews::Part* part = views.PartAt(widget);
  if (part == nullptr) return false;
  if (event->button() != Qt::LeftButton && !part->anyButton) return false;
  if (!part->actionAt) return !Step(*part->control, Qt::MouseFocusReason);
  Step(*part->control, Qt::MouseFocusReason, part->actionAt(event->position().toPoint()));
  return true;
}

bool FocusFilter::Key(QWidget* widget, QKeyEvent* event) {
  if (qobject_cast<QMenuBar*>(widget) != nullptr) return false;
  const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
  const bool shift = modifiers == Qt::ShiftModifier;
  const bool plain = modifiers == Qt::NoModifier;
  const bool control = (modifiers & ~Qt::ShiftModifier) == Qt::ControlModifier;
  const int pressed = event->key();
  const bool tab = pressed == Qt::Key_Tab || pressed == Qt::Key_Backtab;
  const bool backwards = pressed == Qt::Key_Backtab || (modifiers & Qt::ShiftModifier) != 0;
  const bool inEditBox = dynamic_cast<EditBox*>(form.focus.ActiveControl()) != nullptr;

  if (tab && (plain || shift))
    StepToNeighbour(backwards ? -1 : +1);
  else if (tab && control)
    StepToTab(backwards ? -1 : +1);
  else if (control && (pressed == Qt::Key_PageUp || pressed == Qt::Key_PageDown))
    StepToTab(pressed == Qt::Key_PageUp ? -1 : +1);
  else if (plain && inEditBox && (pressed == Qt::Key_Up || pressed == Qt::Key_Down))
    StepToRow(pressed == Qt::Key_Up ? -1 : +1);
  else
    return false;
  return true;
}

bool FocusFilter::Mnemonic(QWidget* widget, QShortcutEvent* event) {
  const auto target = views.MnemonicOf(widget, event->key());
  if (!target) return qobject_cast<QGroupBox*>(widget) != nullptr;
  // Of two controls with one letter the key only chooses, as it does everywhere.
  const bool moved = Step(*target->control, Qt::ShortcutFocusReason);
  if (moved && target->action && !event->isAmbiguous()) target->action();
  return true;
}

bool FocusFilter::Step(Control& to, Qt::FocusReason reason, const std::function<void()>& action) {
  bool moved = false;
  stepReason = reason;
  entry.Run([&] {
    moved = form.focus.Reachable(to) && form.focus.MoveByUser(to);
    if (moved && action) action();
  });
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

void FocusFilter::StepToRow(int direction) {
  const int tab = form.SSTab1.Tab();
  if (tab >= gridCount) return;
  KeyGrid& grid = At(form.gridKeyMap, tab);
  Step(grid, Qt::OtherFocusReason, [&grid, row = grid.Row() + direction] { grid.SetRow(row); });
}

void FocusFilter::StepToTab(int direction) {
  int tab = form.SSTab1.Tab();
  do {
    tab = (tab + direction + TabStrip::tabCount) % TabStrip::tabCount;
  } while (!form.SSTab1.TabVisible(tab));
  Step(form.SSTab1, Qt::OtherFocusReason, [this, tab] { form.SSTab1.SetTab(tab); });
}

}  // namespace dialwright
