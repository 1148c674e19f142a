#pragma once

#include <QHash>
#include <functional>
#include <map>

#include "controls/Control.h"

class QAction;
class QMenu;
class QMenuBar;

namespace dialwright {

struct frmMain;

/// The menu bar: an action for each menu item of the form. A menu takes no focus from the form.
class Menus {
 public:
  using Pick = std::function<void(MenuItem&)>;

  Menus(frmMain& mainForm, QMenuBar& menuBar, const Pick& pick);

  void Refresh();

 private:
  frmMain& form;
  std::map<const MenuItem*, QMenu*> menus;
  std::map<const MenuItem*, QAction*> actions;
};

}  // namespace dialwright
