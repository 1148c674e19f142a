#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <string>
#include <vector>

#include "transcript/World.h"
#include "transcript/window/WindowUser.h"

namespace dialwright {

/// The real window on a copy of a server image, after the start: the first row of the main menu is
/// current, and its box has the focus.
class WindowTest : public testing::Test {
 protected:
  WindowTest();

  template <class Widget>
  Widget& widget(const std::string& name) {
    auto* found = window.findChild<Widget*>(QString::fromStdString(name));
    if (found == nullptr) throw std::logic_error("no widget " + name);
    return *found;
  }
  /// Presses a key where the keyboard is.
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  /// The control that has the form's focus, which must be where the keyboard is; "" for none.
  std::string Focused();
  /// What the program has shown since the last call: message boxes and the like.
  std::vector<std::string> Shown();

  Printer printer;
  World world;
  frmMain& form;
  WindowUser user;
  MainWindow& window;
};

/// The message that refuses a key.
extern const std::vector<std::string> keyRefused;

}  // namespace dialwright
