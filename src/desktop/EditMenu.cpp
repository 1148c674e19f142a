#include "desktop/EditMenu.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <utility>

#include "beside/History.h"
#include "desktop/Dispatch.h"
#include "desktop/LanguageFontResolver.h"
#include "desktop/NumberedText.h"
#include "desktop/QtText.h"
#include "shell/Program.h"
#include "shell/frmMain.h"

namespace dialwright {

namespace {

constexpr int editMenu = 1450;
constexpr int undo = 1451;
constexpr int undoNamed = 1452;
constexpr int redo = 1453;
constexpr int redoNamed = 1454;
constexpr int revertRow = 1462;

/// Where the menu bar has the menu that Edit stands in front of.
QAction* PlaceIn(const QMenuBar& bar, const frmMain& form) {
  for (QAction* action : bar.actions())
    if (action->objectName() == ToQt(form.mnuSelectKeyMap.Name)) return action;
  return nullptr;
}

}  // namespace

EditMenu::EditMenu(frmMain& mainForm, History& steps, QMenuBar& menuBar, Dispatch& dispatch)
    : form(mainForm), history(steps), entry(dispatch), menu(new QMenu(&menuBar)) {
  menu->setObjectName("mnuEdit");
  menu->menuAction()->setObjectName("mnuEdit");
  menuBar.insertMenu(PlaceIn(menuBar, form), menu);
  AddStep("mnuUndo", undo, undoNamed, &History::UndoName, &History::Undo);
  AddStep("mnuRedo", redo, redoNamed, &History::RedoName, &History::Redo);
  items[0].action->setShortcut(QKeySequence("Ctrl+Z"));
  items[1].action->setShortcuts({QKeySequence("Ctrl+Y"), QKeySequence("Ctrl+Shift+Z")});
  AddSeparator();
  Add(
      "mnuRevertRow", revertRow, [this] { history.Revert(); },
      [this] { return history.CanRevert(); });
  Refresh();
}

QAction& EditMenu::Add(const QString& name, Item item, std::function<void()> run) {
  item.action = menu->addAction(QString());
  item.action->setObjectName(name);
  item.action->setMenuRole(QAction::NoRole);
  QObject::connect(item.action, &QAction::triggered, item.action,
                   [this, run = std::move(run)] { entry.Run(run); });
  items.push_back(std::move(item));
  return *items.back().action;
}

QAction& EditMenu::Add(const QString& name, int text, std::function<void()> run,
                       std::function<bool()> enabled) {
  return Add(
      name,
      {nullptr, [this, text] { return NumberedText(form.program, text); }, std::move(enabled)},
      std::move(run));
}

void EditMenu::AddStep(const QString& name, int text, int namedText,
                       std::string (History::*stepName)(), bool (History::*run)()) {
  const auto caption = [this, text, namedText, stepName] {
    const QString step = ToQt((history.*stepName)());
    return step.isEmpty() ? NumberedText(form.program, text)
                          : NumberedText(form.program, namedText).arg(step);
  };
  Add(name, {nullptr, caption, [this, stepName] { return !(history.*stepName)().empty(); }},
      [this, caption, run] {
        const QString told = Spoken(caption());
        if ((history.*run)() && done) done(told);
      });
}

void EditMenu::Add(QAction& action) {
  if (auto* former = qobject_cast<QMenu*>(action.parent())) former->removeAction(&action);
  menu->addAction(&action);
}

void EditMenu::AddSeparator() { menu->addSeparator(); }

void EditMenu::Refresh() {
  const QFont font = LanguageFont(form.mnuFile.Font);
  menu->setTitle(NumberedText(form.program, editMenu));
  menu->menuAction()->setFont(font);
  for (const Item& item : items) {
    item.action->setText(item.text());
    item.action->setEnabled(!item.enabled || item.enabled());
    item.action->setFont(font);
  }
}

}  // namespace dialwright
