#pragma once

#include <QPointer>
#include <map>
#include <string>
#include <vector>

#include "beside/Findings.h"
#include "desktop/FaultMarks.h"

class QAction;
class QMainWindow;
class QMenu;

namespace dialwright {

class ControlViews;
class FindLine;
class FocusFilter;
class KeypadPanel;

/// What the window shows beside the form: the marks of findings in rows and tabs and under the key
/// box, the keypad, the search, and the menu that leads to them. At each refresh it derives all of
/// it anew.
class BesideViews {
 public:
  BesideViews(frmMain& mainForm, QMainWindow& mainWindow, ControlViews& controlViews,
              FocusFilter& focusFilter);
  BesideViews(const BesideViews&) = delete;
  BesideViews& operator=(const BesideViews&) = delete;

  void Refresh();

  /// The panel, for its place in the window.
  KeypadPanel& Panel() { return *panel; }
  /// Shows the panel if a screen has the room for it beside a window of that width.
  void ShowPanelWhereItFits(int windowWidth, int screenWidth);

  /// Gives the panel what width the screen has for it beside the rest of the window.
  void FitPanel();

  /// Asks for an action and goes there.
  void FindAnAction();

 private:
  void BuildMenu();
  void ShowPanel(bool isShown);
  QAction& AddItem(QMenu& to, const char* name, int text, const char* keys,
                   std::function<void()> run);
  void GoTo(int grid, const std::string& token);
  void GoToFinding(int direction);
  /// From a row that a finding names to the next one that it names, round and round.
  void GoToOtherRow();
  void MarkRows();
  void MarkTabs();
  void ShowLines();
  QString Word(int number) const;

  frmMain& form;
  QMainWindow& window;
  ControlViews& views;
  FocusFilter& focus;
  KeypadPanel* panel;
  QMenu* menu = nullptr;
  QAction* keypadItem = nullptr;
  std::map<QAction*, int> texts;
  std::vector<Finding> findings;
  QPointer<FindLine> findLine;
};

}  // namespace dialwright
