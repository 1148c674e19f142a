#pragma once

#include <QString>
#include <functional>
#include <vector>

class QAction;
class QMenu;
class QMenuBar;

namespace dialwright {

class Dispatch;
class History;
struct frmMain;

/// The menu Edit: taking back, doing again, the row in hand as it was, and whatever else adds its
/// items.
class EditMenu {
 public:
  EditMenu(frmMain& mainForm, History& steps, QMenuBar& menuBar, Dispatch& dispatch);
  EditMenu(const EditMenu&) = delete;
  EditMenu& operator=(const EditMenu&) = delete;

  /// Shows what can be done now, in the language of the moment.
  void Refresh();

  /// Adds an item at the end: its name, the number of its text, what it does, and whether it can be
  /// picked now, if not always.
  QAction& Add(const QString& name, int text, std::function<void()> run,
               std::function<bool()> enabled = {});
  /// Takes an item over from another menu.
  void Add(QAction& action);
  void AddSeparator();

  /// For whoever tells the user: what was taken back or done again, as the menu has named it.
  std::function<void(const QString&)> done;

 private:
  struct Item {
    QAction* action;
    std::function<QString()> text;
    std::function<bool()> enabled;
  };
  QAction& Add(const QString& name, Item item, std::function<void()> run);
  /// An item that takes back or does again: its texts without and with a name of the step.
  void AddStep(const QString& name, int text, int namedText, std::string (History::*stepName)(),
               bool (History::*run)());

  frmMain& form;
  History& history;
  Dispatch& entry;
  QMenu* menu;
  std::vector<Item> items;
};

}  // namespace dialwright
