#include "desktop/Menus.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>
#include <QMenuBar>

#include "desktop/LanguageFontResolver.h"
#include "desktop/QtText.h"
#include "shell/frmMain.h"

namespace dialwright {

Menus::Menus(frmMain& mainForm, QMenuBar& menuBar, const Pick& pick) : form(mainForm) {
  for (Control* control : form.Controls) {
    auto* item = dynamic_cast<MenuItem*>(control);
    if (item == nullptr) continue;
    const QString name = ToQt(item->Name);
    if (item->Parent == nullptr) {
      QMenu* menu = menuBar.addMenu(QString());
      menu->setObjectName(name);
      menus[item] = menu;
      actions[item] = menu->menuAction();
    } else {
      QAction* action = menus.at(item->Parent)->addAction(QString());
      // The end of the program is the system's affair alone, also where a platform has ways of its
      // own.
      action->setMenuRole(QAction::NoRole);
      QObject::connect(action, &QAction::triggered, action, [pick, item] { pick(*item); });
      actions[item] = action;
    }
    actions[item]->setObjectName(name);
  }
  auto* slotItems = new QActionGroup(&menuBar);  // one of them is in force: radio marks
  for (const MenuItem* item :
       {&form.mnuSelectDialwright, &form.mnuSelectDialwright2, &form.mnuSelectDialwright3}) {
    actions.at(item)->setCheckable(true);
    slotItems->addAction(actions.at(item));
  }
  actions.at(&form.mnuHelp)->setShortcut(QKeySequence(Qt::Key_F1));
  Refresh();
}

void Menus::Refresh() {
  for (const auto& [item, action] : actions) {
    action->setText(ToQt(item->Caption));
    action->setVisible(item->Visible);
    action->setEnabled(item->Enabled);
    if (action->isCheckable()) action->setChecked(item->Checked);
    action->setFont(LanguageFont(item->Font));
  }
}

}  // namespace dialwright
