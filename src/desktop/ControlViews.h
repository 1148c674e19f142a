#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTextEdit>
#include <functional>
#include <map>
#include <optional>
#include <vector>

#include "controls/Control.h"

class QCheckBox;
class QTabWidget;

namespace dialwright {

class GridView;
class KeyEdit;
class KeyGrid;
class SpinArrows;
struct EditBox;
struct TabStrip;

/// Joins the controls of a form to the widgets that show them: each widget bears its control's
/// name, shows its state at a refresh, and turns what the user does into an action on the control.
class ControlViews {
 public:
  using Action = std::function<void()>;
  /// Takes a user's action on a control: it is run if the control can be used now.
  using Act = std::function<void(Control&, const Action&)>;

  explicit ControlViews(Act actOn) : act(std::move(actOn)) {}

  void Join(Label& label, QLabel& widget);
  void Join(Label& label, QGroupBox& widget);
  void Join(Label& label, QTextEdit& widget);
  void Join(CommandButton& button, QPushButton& widget);
  void Join(CheckBox& box, QCheckBox& widget);
  void Join(EditBox& box, KeyEdit& widget);
  void Join(KeyGrid& grid, GridView& widget);
  void Join(SpinButton& spin, SpinArrows& widget);
  void Join(TabStrip& tabs, QTabWidget& widget);
  /// A widget that shows nothing of its control but its name, font and state.
  void JoinPlain(const Control& control, QWidget& widget);
  /// The label that names a control: its mnemonic leads there.
  void Name(Control& control, QLabel& label);

  /// Whatever else shows something of the form: called at each refresh.
  void Show(std::function<void()> show) { shows.push_back(std::move(show)); }

  /// Shows what the controls hold now.
  void Refresh();

  /// A widget that takes the mouse for a control. Where it has an action of its own, that is fixed
  /// by the place that was pressed, before anything moves.
  struct Part {
    Control* control = nullptr;
    std::function<Action(QPoint)> actionAt;
    bool anyButton = false;  ///< the other buttons of the mouse act on it too
  };
  const Part* PartAt(const QWidget* widget) const;

  /// What a mnemonic of a widget is meant for. The action is empty where it only leads to the
  /// control.
  struct Mnemonic {
    Control* control = nullptr;
    Action action;
  };
  std::optional<Mnemonic> MnemonicOf(QWidget* widget, const QKeySequence& key) const;

  /// The widget that has the keyboard for a control; null if it has none here.
  QWidget* FocusWidget(const Control* control) const;
  /// Whether a widget has the keyboard for some control. Another one is a guest in the window.
  bool HoldsKeyboard(const QWidget& widget) const;

 private:
  void AddPart(Control& control, QWidget& widget, std::function<Action(QPoint)> actionAt = {},
               bool anyButton = false);
  void TakesFocus(Control& control, QWidget& widget);

  Act act;
  bool refreshing = false;
  std::vector<std::function<void()>> shows;
  std::map<const QWidget*, Part> parts;
  std::map<const Control*, QWidget*> focusWidgets;
};

}  // namespace dialwright
