#include "desktop/Opening.h"

#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QMenu>
#include <QMenuBar>
#include <cstdio>
#include <string_view>
#include <utility>

#include "desktop/MainWindow.h"
#include "desktop/NumberedText.h"
#include "desktop/QtText.h"
#include "desktop/posix/OpenServerDialog.h"
#include "desktop/posix/ServerFolder.h"
#include "platform/Failure.h"
#include "platform/posix/HostPath.h"
#include "platform/posix/ProgramFolder.h"
#include "shell/Program.h"
#include "shell/ProgramVersion.h"
#include "shell/frmMain.h"

namespace dialwright {

namespace {

constexpr std::string_view programFile = "Dialwright";

constexpr const char* usage =
    "Usage: dialwright [FOLDER]\n"
    "Opens the server in FOLDER, which holds server.reg and drive_c; without FOLDER the server "
    "that\n"
    "lies beside the program, or asks for one.\n"
    "  --help      prints this\n"
    "  --version   prints the program's number\n";

class ServerFolders : public Opening {
 public:
  ServerFolders()
      : beside(QCoreApplication::applicationDirPath()),
        shipped(ToQt(ShippedFolder(FromQt(beside)))) {
    const QStringList words = QCoreApplication::arguments();
    if (words.size() > 1) {
      next = QDir::cleanPath(QDir::current().absoluteFilePath(words[1]));
    } else if (beside == shipped) {
      next = beside;
    } else {
      // Installed: nobody expects a server among the system's programs.
      isAsking = true;
    }
  }

  std::optional<Place> Next() override {
    QString fault;
    if (!next.isEmpty()) fault = ServerFolderFault(next);
    if (isAsking || !fault.isEmpty()) {
      OpenServerDialog dialog(shipped, fault, true);
      if (dialog.exec() != QDialog::Accepted) return std::nullopt;
      next = dialog.Folder();
    }
    if (next.isEmpty()) return std::nullopt;
    const QString folder = std::exchange(next, {});
    const bool isOwn = folder == beside;
    // A server that the user has chosen and that the system refuses is no reason to leave him.
    isAsking = !isOwn;
    const std::string server = FromQt(folder);
    return Place{server, SystemPath(isOwn ? server : ProgramFolderFor(server, FromQt(shipped))),
                 std::string(programFile), isOwn ? QString() : QDir(folder).dirName()};
  }

  void Opened(const Place& place) override {
    isAsking = false;
    if (!place.serverName.isEmpty()) RememberServer(ToQt(place.serverFolder));
  }

  void Offer(MainWindow& window, Program& program) override {
    auto* file = window.menuBar()->findChild<QMenu*>("mnuFile");
    auto* item = new QAction(&window);
    item->setObjectName("openServer");
    file->insertAction(file->actions().value(0), item);
    // Looked up when it is about to be seen: the language may have changed.
    const auto name = [item, &program] { item->setText(NumberedText(program, 1555)); };
    name();
    QObject::connect(file, &QMenu::aboutToShow, item, name);
    QObject::connect(item, &QAction::triggered, item, [this, &window, &program] {
      window.Entry().Run([&] { OpenAnother(window, program); });
    });
  }

 private:
  /// Ends the window, and with it what it holds, once the user has chosen and given his consent.
  void OpenAnother(MainWindow& window, Program& program) {
    OpenServerDialog dialog(shipped, {}, false, &window);
    if (dialog.exec() != QDialog::Accepted) return;
    if (program.main->cmdSave.Enabled &&
        program.MsgBox(program.mymyLoadString(1556), MsgBoxButtons::YesNo) == MsgBoxAnswer::No)
      return;
    next = dialog.Folder();
    program.help.CloseHelpWindow();
    throw EndProgram{};
  }

  QString beside;
  QString shipped;
  QString next;           ///< the folder to open, empty for none
  bool isAsking = false;  ///< the user is to choose
};

}  // namespace

std::unique_ptr<Opening> MakeOpening() {
  const QStringList words = QCoreApplication::arguments();
  if (words.size() > 2 || words.value(1).startsWith('-')) {
    std::fputs(usage, stderr);
    return nullptr;
  }
  return std::make_unique<ServerFolders>();
}

bool AnswerWithoutWindow(int argc, char** argv) {
  const std::string_view word = argc == 2 ? argv[1] : "";
  if (word == "--help") std::fputs(usage, stdout);
  if (word == "--version") {
    const auto& [major, minor, revision] = programVersion;
    std::printf("Dialwright %d.%d.%d\n", major, minor, revision);
  }
  return word == "--help" || word == "--version";
}

}  // namespace dialwright
