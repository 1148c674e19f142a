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

  void Started() override;
  Outcome Click(std::string_view name) override;
  Outcome Set(std::string_view name, int value) override;
  Outcome Tab(int tab) override;
  Outcome Row(int grid, int row) override;
  Outcome Row(int grid, std::string_view token) override;
  Outcome Type(std::string_view text, bool selectAll) override;
  Outcome Leave() override;
  Outcome Spin(bool up) override;
  Outcome Bring(int number) override;
  Outcome Undo() override;
  Outcome Redo() override;
  Outcome Revert() override;
  Outcome Export(std::string_view path, KeyMapNews& news) override;
  Outcome Import(std::string_view path, KeyMapNews& news) override;
  History& Steps() override;
  Outcome Close() override;

  MainWindow& Shown() { return window; }

 private:
  Outcome ClickInAbout(std::string_view name);
  Outcome Pick(QAction& action);
  /// Picks an item of a menu that stands beside the form's own.
  Outcome PickBeside(const char* name);
  /// Picks an item that asks for a file, with the answer to that.
  Outcome PickWithFile(const char* name, std::string_view path, KeyMapNews& news);
  Outcome ClickPlace(int grid, int row);
  /// A click on a widget that a control has there, with the focus going to the control first.
  Outcome ClickOn(Control& control, QWidget& part, QPoint place);
  Outcome ClickOn(Control& control, QWidget& part);
  /// Whether a user could click there now.
  bool Usable(const QWidget& widget) const;
  bool MainIsBlocked() const;
  QWidget* Find(const Control& control) const;
  Outcome Finished(Outcome outcome);

  Program& program;
  frmMain& form;
  MainWindow window;
  int refusals = 0;  ///< how often an edit box has refused to be left
};

}  // namespace dialwright
