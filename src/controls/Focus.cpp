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
    if (!Reachable(to)) return false;
    if (box->LostFocus) box->LostFocus();
  }
  if (!Reachable(to)) return false;
  Set(&to);
  return true;
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
