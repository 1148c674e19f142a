#pragma once

#include "desktop/MainWindow.h"
#include "shell/frmMain.h"
#include "transcript/User.h"

class QAction;
class QMenu;

namespace dialwright {

/// A user of the real window: finds the widgets by the names of their controls and sends them what
/// mouse and keyboard send. It needs an application object; the offscreen platform will do.
///
/// After each step all that the window shows is held against the control objects. What the system
/// throws, the end of the program included, comes out of the step.
class WindowUser : public User {
 public:
  explicit WindowUser(Program& theProgram);

  void started() override;
  Outcome click(std::string_view name) override;
  Outcome set(std::string_view name, int value) override;
  Outcome tab(int tab) override;
  Outcome row(int grid, int row) override;
  Outcome row(int grid, std::string_view token) override;
  Outcome type(std::string_view text, bool selectAll) override;
  Outcome leave() override;
  Outcome spin(bool up) override;
  Outcome close() override;

  MainWindow& mainWindow() { return window; }

 private:
  Outcome clickInAbout(std::string_view name);
  Outcome pick(QAction& action);
  Outcome clickPlace(int grid, int row);
  /// A click on a widget that a control has there, with the focus going to the control first.
  Outcome clickOn(Control& control, QWidget& part, QPoint place);
  Outcome clickOn(Control& control, QWidget& part);
  /// Whether a user could click there now.
  bool usable(const QWidget& widget) const;
  bool mainIsBlocked() const;
  QWidget* find(const Control& control) const;
  Outcome finished(Outcome outcome);

  Program& program;
  frmMain& form;
  MainWindow window;
  int refusals = 0;  ///< how often an edit box has refused to be left
};

}  // namespace dialwright
