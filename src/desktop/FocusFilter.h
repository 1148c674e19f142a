#pragma once

#include <QObject>
#include <functional>
#include <vector>

class QKeyEvent;
class QMouseEvent;
class QShortcutEvent;

namespace dialwright {

class ControlViews;
class Dispatch;
struct Control;
struct frmMain;

/// Stands in front of the window's widgets. Before a press of the mouse, a Tab or a mnemonic
/// reaches one, the form's focus makes the step; if the edit box that has the focus refuses to be
/// left, the event never arrives. The toolkit's keyboard focus follows the form's and never leads.
class FocusFilter : public QObject {
 public:
  FocusFilter(QWidget& mainWindow, frmMain& mainForm, ControlViews& controlViews,
              Dispatch& dispatch);

  /// The controls in the order in which Tab visits them.
  std::vector<Control*> tabOrder;

  /// Gives the keyboard to the control that has the form's focus.
  void MirrorFocus();

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool Press(QWidget* widget, QMouseEvent* event);
  bool Key(QWidget* widget, QKeyEvent* event);
  bool Mnemonic(QWidget* widget, QShortcutEvent* event);

  /// A user's step to a control, and what they do there. Returns whether the control has the focus,
  /// or had it when the action ran.
  bool Step(Control& to, Qt::FocusReason reason, const std::function<void()>& action = {});
  void StepToNeighbour(int direction);
  void StepToRow(int direction);
  void StepToTab(int direction);

  QWidget& window;
  frmMain& form;
  ControlViews& views;
  Dispatch& entry;
  Control* last = nullptr;  ///< where Tab goes on from when no control has the focus
  Qt::FocusReason stepReason = Qt::OtherFocusReason;
};

}  // namespace dialwright
