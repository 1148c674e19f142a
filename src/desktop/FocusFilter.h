#pragma once

#include <QObject>
#include <functional>
#include <string>
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
///
/// A widget that shows no control may have the keyboard too, as a guest, until the user's next step
/// to a control; the form's focus stays where it is meanwhile.
class FocusFilter : public QObject {
 public:
  FocusFilter(QWidget& mainWindow, frmMain& mainForm, ControlViews& controlViews,
              Dispatch& dispatch);

  /// The controls in the order in which Tab visits them.
  std::vector<Control*> tabOrder;

  /// Gives the keyboard to the control that has the form's focus.
  void MirrorFocus();
  /// A guest gives the keyboard back.
  void ComeBack();

  /// Goes to the tab of a grid and to the row that bears a token, as by clicks.
  void GoTo(int grid, const std::string& token);
  /// Types a key into the box of the current tab in place of what it holds.
  void TypeKey(char key);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool Press(QWidget* widget, QMouseEvent* event);
  bool Key(QWidget* widget, QKeyEvent* event);
  bool Mnemonic(QWidget* widget, QShortcutEvent* event);

  /// The keys of the whole window, of the rows of a grid, and of the box that edits one.
  bool WindowKey(const QKeyEvent& event);
  bool RowKey(const QKeyEvent& event);
  bool BoxKey(const QKeyEvent& event);

  /// A user's step to a control, and what they do there. Returns whether the control has the focus,
  /// or had it when the action ran.
  bool Step(Control& to, Qt::FocusReason reason, const std::function<void()>& action = {});
  void StepToNeighbour(int direction);
  bool StepToBox();
  void StepToRow(int row);
  void StepToTab(int tab);
  void StepToNextTab(int direction);
  /// Moves the row in hand by the arrows of its spin control.
  void MoveRow(int direction);

  QWidget& window;
  frmMain& form;
  ControlViews& views;
  Dispatch& entry;
  Control* last = nullptr;  ///< where Tab goes on from when no control has the focus
  int heldOnSpin = 0;       ///< an arrow key that was pressed on a spin control and is held since
  bool isStepping = false;
  Qt::FocusReason stepReason = Qt::OtherFocusReason;
};

}  // namespace dialwright
