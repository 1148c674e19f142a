#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "controls/Control.h"

namespace dialwright {

/// The tabs of the form. Whoever really changes the current tab runs the click handler.
struct TabStrip : Control {
  static constexpr int tabCount = 7;

  int Tab() const { return current; }
  /// How often the current tab has changed.
  int Turns() const { return turns; }
  /// The choice of a tab that is not there changes nothing.
  void SetTab(int tab);

  /// The same without the click handler.
  void PutBack(int tab);

  bool TabVisible(int tab) const { return At(tab).visible; }
  void SetTabVisible(int tab, bool visible);
  const std::string& TabCaption(int tab) const { return At(tab).caption; }
  void SetTabCaption(int tab, std::string_view caption);

  std::function<void(int previousTab)> Click;

 private:
  struct Entry {
    std::string caption;
    bool visible = true;
  };
  const Entry& At(int tab) const { return tabs.at(static_cast<std::size_t>(tab)); }
  Entry& At(int tab) { return tabs.at(static_cast<std::size_t>(tab)); }

  std::array<Entry, tabCount> tabs;
  int current = 0;
  int turns = 0;
};

}  // namespace dialwright
