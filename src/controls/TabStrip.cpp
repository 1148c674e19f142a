#include "controls/TabStrip.h"

#include "controls/Focus.h"

namespace dialwright {

void TabStrip::SetTab(int tab) {
  if (tab < 0 || tab >= tabCount || !TabVisible(tab) || tab == current) return;
  const int previous = current;
  current = tab;
  ++turns;
  if (HomeFocus != nullptr) HomeFocus->TabChanged();
  if (changed) changed();
  if (Click) Click(previous);
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
