#include "controls/Control.h"

#include "controls/Focus.h"

namespace dialwright {

void Control::PropertyChanged() const {
  if (HomeFocus != nullptr && !(Enabled && Visible)) HomeFocus->Withdraw(*this);
  if (changed) changed();
}

void CheckBox::SetValue(int next) {
  if (next == value) return;
  PutBack(next);
  if (Click) Click();
}

void CheckBox::PutBack(int next) {
  if (next == value) return;
  value = next;
  if (changed) changed();
}

}  // namespace dialwright
