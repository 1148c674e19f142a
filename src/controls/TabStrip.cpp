#include "controls/TabStrip.h"

#include "controls/Focus.h"

namespace dialwright {

void TabStrip::SetTab(int tab) {
  const int previous = current;
  PutBack(tab);
  if (current != previous && Click) Click(previous);
}

void TabStrip::PutBack(int tab) {
  if (tab < 0 || tab >= tabCount || !TabVisible(tab) || tab == current) return;
  current = tab;
  ++turns;
  if (HomeFocus != nullptr) HomeFocus->TabChanged();
  if (changed) changed();
}

void TabStrip::SetTabVisible(int tab, bool visible) {
  At(tab).visible = visible;
  if (changed) changed();
}

void TabStrip::SetTabCaption(int tab, std::string_view caption) {
  At(tab).caption = caption;
  if (changed) changed();
}

}  // namespace dialwright
