#include "desktop/KeyMapItems.h"

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <utility>

#include "desktop/Dispatch.h"
#include "desktop/EditMenu.h"
#include "desktop/HelpKey.h"
#include "desktop/LanguageFontResolver.h"
#include "desktop/MainWindow.h"
#include "desktop/NumberedText.h"
#include "desktop/QtText.h"
#include "platform/Failure.h"
#include "shell/Program.h"
#include "text/Text.h"

namespace dialwright {

namespace {

enum TextNumber {
  exportText = 1490,
  importText = 1491,
  copyText = 1492,
  keyMapsText = 1493,
  notWrittenText = 1504,
};

constexpr const char* helpPage = "key-map-files.html";

std::string SystemPath(const QString& path) { return ReplaceAll(FromQt(path), "/", "\\"); }

}  // namespace

KeyMapItems::KeyMapItems(frmMain& mainForm, History& steps, MainWindow& mainWindow,
                         EditMenu& editMenu)
    : form(mainForm), history(steps), window(mainWindow), folder(QDir::homePath()) {
  askPath = [this](Asked what) { return AskPath(what); };
  tell = [this](const KeyMapNews& news) { Tell(news); };
  exportItem = &AddToFile("mnuExportKeyMap", [this] {
    if (const std::string path = askPath(Asked::target); !path.empty())
      tell(ExportKeyMap(form, path));
  });
  importItem = &AddToFile("mnuImportKeyMap", [this] {
    if (const std::string path = askPath(Asked::source); !path.empty())
      tell(ImportKeyMap(history, form, path));
  });
  auto* file = window.menuBar()->findChild<QMenu*>(ToQt(form.mnuFile.Name));
  file->insertSeparator(window.findChild<QAction*>(ToQt(form.mnuRestoreScripts.Name)));
  AddCopies(editMenu);
  Refresh();
}

QAction& KeyMapItems::AddToFile(const char* name, std::function<void()> run) {
  auto* file = window.menuBar()->findChild<QMenu*>(ToQt(form.mnuFile.Name));
  auto* action = new QAction(file);
  action->setObjectName(name);
  action->setMenuRole(QAction::NoRole);
  file->insertAction(window.findChild<QAction*>(ToQt(form.mnuRestoreScripts.Name)), action);
  QObject::connect(action, &QAction::triggered, action,
                   [this, run = std::move(run)] { window.Entry().Run(run); });
  return *action;
}

void KeyMapItems::AddCopies(EditMenu& editMenu) {
  editMenu.AddSeparator();
  copies = window.menuBar()->findChild<QMenu*>("mnuEdit")->addMenu(QString());
  copies->setObjectName("mnuCopyKeysFrom");
  for (int slot = 1; slot <= slotCount; ++slot) {
    QAction* action = copies->addAction(QString());
    action->setObjectName(QString("mnuCopyKeysFrom%1").arg(slot));
    QObject::connect(action, &QAction::triggered, action, [this, slot] {
      window.Entry().Run([&] { tell(CopyKeysFrom(history, form, slot)); });
    });
    copyItems.at(static_cast<std::size_t>(slot - 1)) = action;
  }
}

void KeyMapItems::Refresh() {
  const QFont font = LanguageFont(form.mnuFile.Font);
  exportItem->setText(NumberedText(form.program, exportText));
  importItem->setText(NumberedText(form.program, importText));
  copies->setTitle(NumberedText(form.program, copyText));
  for (QAction* action : {exportItem, importItem, copies->menuAction()}) action->setFont(font);
  copies->menuAction()->setVisible(SlotsOf(form) > 1);
  const MenuItem* items[] = {&form.mnuSelectDialwright, &form.mnuSelectDialwright2,
                             &form.mnuSelectDialwright3};
  for (int slot = 1; slot <= slotCount; ++slot) {
    QAction* action = copyItems.at(static_cast<std::size_t>(slot - 1));
    action->setText(ToQt(items[slot - 1]->Caption));
    action->setFont(font);
    action->setVisible(slot != SelectedSlot(form));
  }
}

std::string KeyMapItems::AskPath(Asked what) {
  const bool writes = what == Asked::target;
  QFileDialog dialog(&window, TitleOf(NumberedText(form.program, writes ? exportText : importText)),
                     folder, NumberedText(form.program, keyMapsText) + " (*.json)");
  dialog.setObjectName("dlgKeyMap");
  SetHelpPage(dialog, helpPage);
  dialog.setWindowModality(Qt::WindowModal);
  dialog.setAcceptMode(writes ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(writes ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  dialog.setDefaultSuffix("json");
  if (writes) dialog.selectFile(QString("key-map-%1.json").arg(SelectedSlot(form)));
  if (dialog.exec() != QDialog::Accepted) return {};
  const QFileInfo file(dialog.selectedFiles().value(0));
  folder = file.absolutePath();
  asked = QDir::toNativeSeparators(file.absoluteFilePath());
  std::string path = SystemPath(asked);
  // The system finds names in another case too: the user has not agreed to lose that file.
  if (writes && !file.exists() &&
      form.program.services.files.KindOf(path) == FileStore::Kind::file) {
    const QString fault = ToQt(RuntimeFailure(Failure::fileAlreadyExists).description);
    Tell({FromQt(NumberedText(form.program, notWrittenText).arg(file.absoluteFilePath(), fault)),
          {}});
    return {};
  }
  return path;
}

void KeyMapItems::Tell(const KeyMapNews& news) {
  std::string text = news.fault.empty() ? SkippedText(form, news.skipped) : news.fault;
  if (text.empty()) return;
  // The user has chosen the file by its name on this machine.
  if (!asked.isEmpty()) text = ReplaceAll(text, SystemPath(asked), FromQt(asked));
  SetHelpPage(window, helpPage);  // for the box that the window is held up by
  form.program.services.messages.MsgBox(text, MsgBoxButtons::OK, {});
  SetHelpPage(window, nullptr);
}

}  // namespace dialwright
