#include "desktop/FileSafetyView.h"

#include <QAction>
#include <QEvent>
#include <QMenu>
#include <QMenuBar>

#include "beside/FileNotices.h"
#include "desktop/Dispatch.h"
#include "desktop/EarlierVersionsDialog.h"
#include "desktop/MainWindow.h"
#include "desktop/NoticeBar.h"
#include "desktop/NumberedText.h"
#include "desktop/QtText.h"
#include "shell/Program.h"
#include "shell/events/BringBack.h"
#include "shell/events/Lifecycle.h"
#include "shell/frmMain.h"

namespace dialwright {

FileSafetyView::FileSafetyView(Program& theProgram, MainWindow& mainWindow, Dispatch& dispatch)
    : program(theProgram),
      form(*theProgram.main),
      window(mainWindow),
      entry(dispatch),
      bar(new NoticeBar("fileNotices")),
      versionsItem(new QAction(&mainWindow)) {
  window.AddNoticeBar(*bar);
  versionsItem->setObjectName("earlierVersions");
  versionsItem->setMenuRole(QAction::NoRole);
  auto* file = window.menuBar()->findChild<QMenu*>(ToQt(form.mnuFile.Name));
  file->insertAction(window.findChild<QAction*>(ToQt(form.mnuExit.Name)), versionsItem);
  connect(versionsItem, &QAction::triggered, this, [this] { ShowVersions(); });
  window.installEventFilter(this);
}

void FileSafetyView::Refresh() {
  const QString caption = NumberedText(program, 1361);
  if (form.safety.revision == seenRevision && caption == seenLanguage) return;
  seenLanguage = caption;
  versionsItem->setText(caption);
  Look();
}

bool FileSafetyView::eventFilter(QObject*, QEvent* event) {
  // What a save has written half-way is no change by somebody else.
  if (event->type() == QEvent::WindowActivate && seenRevision >= 0 && !entry.Busy()) Look();
  return false;
}

void FileSafetyView::Look() {
  seenRevision = form.safety.revision;
  std::vector<NoticeBar::Notice> notices;
  for (const FileNotice& notice : FileNotices(form)) {
    NoticeBar::Notice shown{ToQt(notice.text), {}, {}};
    if (notice.remedy == FileNotice::Remedy::loadAnew) {
      shown.button = NumberedText(program, 1360);
      shown.pressed = [this] { LoadAnew(); };
    } else if (notice.remedy == FileNotice::Remedy::earlierVersions) {
      shown.button = seenLanguage;
      shown.pressed = [this] { ShowVersions(); };
    }
    notices.push_back(std::move(shown));
  }
  bar->Show(std::move(notices));
}

void FileSafetyView::LoadAnew() {
  if (form.cmdSave.Enabled && program.MarkedBox(MsgBoxMark::loss, program.mymyLoadString(1376),
                                                MsgBoxButtons::YesNo) != MsgBoxAnswer::Yes)
    return;
  entry.Run([this] { LoadKeyMapInfo(form); });
}

void FileSafetyView::ShowVersions() {
  auto* dialog = new EarlierVersionsDialog(form, &window, [this](int number) {
    entry.Run([this, number] { BringEarlierVersion(form, number); });
  });
  dialog->open();
}

}  // namespace dialwright
