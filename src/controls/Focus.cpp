#include "controls/Focus.h"

#include "controls/EditBox.h"
#include "controls/TabStrip.h"

namespace dialwright {

bool Focus::Reachable(const Control& control) const {
  return control.Visible && control.Enabled &&
         (control.HomeTab < 0 || (control.HomeTab == tabs.Tab() && tabs.TabVisible(tabs.Tab())));
}

bool Focus::MoveByUser(Control& to) {
  if (active == &to) return true;
  if (auto* box = dynamic_cast<EditBox*>(active)) {
    bool cancel = false;
    if (box->Validate) box->Validate(cancel);
    if (cancel) return false;
    const bool reachable = Reachable(to);
    if (reachable && box->LostFocus) box->LostFocus();
    TakeOver(*box);
    if (!reachable) return false;
  }
  if (!Reachable(to)) return false;
  Set(&to);
  return true;
}

void Focus::TakeOver(EditBox& box) const {
  box.TakeOver();
  if (boxLeft) boxLeft(box);
}

void Focus::Give(Control& to) {
  if (Reachable(to)) Set(&to);
}

void Focus::Withdraw(const Control& control) {
  if (active == &control) Set(nullptr);
}

void Focus::TabChanged() {
  if (active != nullptr && !Reachable(*active)) Set(nullptr);
}

void Focus::Set(Control* next) {
  if (active == next) return;
  active = next;
  if (changed) changed();
}

}  // namespace dialwright
