#pragma once

#include <QObject>
#include <QString>

class QAction;

namespace dialwright {

class Dispatch;
class MainWindow;
class NoticeBar;
class Program;
struct frmMain;

/// What the window shows of the safety of the scripts: the notices under its menus, and the earlier
/// versions behind an item of the File menu.
class FileSafetyView : public QObject {
 public:
  FileSafetyView(Program& theProgram, MainWindow& mainWindow, Dispatch& dispatch);

  /// Shows what is known now; looks at the files where something has happened to them.
  void Refresh();

 protected:
  /// The files are looked at when the window becomes active.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Look();
  void LoadAnew();
  void ShowVersions();

  Program& program;
  frmMain& form;
  MainWindow& window;
  Dispatch& entry;
  NoticeBar* bar;
  QAction* versionsItem;
  int seenRevision = -1;
  QString seenLanguage;
};

}  // namespace dialwright
