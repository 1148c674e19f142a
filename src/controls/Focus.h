#pragma once

#include <functional>

namespace dialwright {

struct Control;
struct EditBox;
struct TabStrip;

/// Which control of a form has the focus. The form's rules about edit boxes hang on it: a user's
/// step out of a box validates it, the program's own giving of the focus does not.
class Focus {
 public:
  explicit Focus(const TabStrip& tabStrip) : tabs(tabStrip) {}

  Control* ActiveControl() const { return active; }

  /// Whether a user can act on the control now: visible, enabled, and on the current tab if it
  /// stands on one.
  bool Reachable(const Control& control) const;

  /// A user's step to a control. An edit box that is left runs its validate handler and, if that
  /// does not cancel, its lost focus handler. Returns whether the control has the focus now: false
  /// when the box refused to be left, and when the validation has made the control unreachable.
  bool MoveByUser(Control& to);

  /// The program gives the focus, without validation; a control that cannot be reached does not get
  /// it.
  void Give(Control& to);

  /// A control was disabled or hidden.
  void Withdraw(const Control& control);
  /// Another tab became the current one.
  void TabChanged();

  std::function<void()> changed;  ///< for whoever shows the form
  /// For what stands beside the form: a user's step has validated a box, and its text is taken.
  std::function<void(const EditBox&)> boxLeft;

 private:
  void Set(Control* next);
  void TakeOver(EditBox& box) const;

  const TabStrip& tabs;
  Control* active = nullptr;
};

}  // namespace dialwright
