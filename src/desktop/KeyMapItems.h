#pragma once

#include <QString>
#include <array>
#include <functional>
#include <string>

#include "beside/KeyMapExchange.h"
#include "shell/frmMain.h"

class QAction;
class QMenu;
class QWidget;

namespace dialwright {

class Dispatch;
class EditMenu;
class History;
class MainWindow;

/// The menu items by which key maps leave the editor and come into it: File > Export Key Map and
/// Import Key Map, Edit > Copy Keys From.
class KeyMapItems {
 public:
  KeyMapItems(frmMain& mainForm, History& steps, MainWindow& mainWindow, EditMenu& editMenu);

  /// Shows what is offered now, in the language of the moment.
  void Refresh();

  enum class Asked { target, source };
  /// Asks the user for a file and gives its path as the system spells it; empty if there is none.
  std::function<std::string(Asked)> askPath;
  /// Tells the user what came of it.
  std::function<void(const KeyMapNews&)> tell;

 private:
  QAction& AddToFile(const char* name, std::function<void()> run);
  void AddCopies(EditMenu& editMenu);
  std::string AskPath(Asked what);
  void Tell(const KeyMapNews& news);

  frmMain& form;
  History& history;
  MainWindow& window;
  QAction* exportItem;
  QAction* importItem;
  QMenu* copies;
  std::array<QAction*, slotCount> copyItems{};
  QString folder;  ///< where the user was last
  QString asked;   ///< the file that the user has chosen last, by its name on this machine
};

}  // namespace dialwright
