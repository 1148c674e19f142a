#include <QApplication>
#include <QFileInfo>
#include <QIcon>
#include <QMessageBox>
#include <exception>
#include <string>

#include "desktop/CardNotice.h"
#include "desktop/DisplayCheck.h"
#include "desktop/HostServices.h"
#include "desktop/MainWindow.h"
#include "desktop/Pictures.h"
#include "desktop/QtMessageBoxes.h"
#include "desktop/QtText.h"
#include "desktop/Texts.h"
#include "shell/events/Lifecycle.h"
#include "shell/events/MainEvents.h"
#include "shell/frmMain.h"
#include "text/Text.h"

namespace {

using namespace dialwright;

constexpr const char* programTitle = "Dialwright";

/// A folder of the host as a path of the system.
std::string systemPath(const QString& hostFolder) {
  return ReplaceAll(fromQt(hostFolder), "/", "\\");
}

/// Runs the program to its end. Throws what has ended it, if it was not the user.
void runProgram() {
  const std::string folder = systemPath(QCoreApplication::applicationDirPath());
  const auto host = MakeHostServices(folder);
  QtMessageBoxes messages(programTitle);
  Program program(host->services(messages), folder,
                  fromQt(QFileInfo(QCoreApplication::applicationFilePath()).completeBaseName()));

  ConnectEvents(*program.main);
  MainWindow window(program);
  messages.window = &window;
  window.AddNotice(*new CardNotice(program, messages));
  Dispatch& dispatch = window.dispatch();
  dispatch.run([&] { Form_Load(*program.main); });
  if (!dispatch.ended()) {
    window.open();
    QApplication::exec();
  }
  messages.window = nullptr;
  if (dispatch.failure()) std::rethrow_exception(dispatch.failure());
}

}  // namespace

int main(int argc, char** argv) {
  expectDisplay();
  const QApplication application(argc, argv);
  displayFound();
  QApplication::setApplicationName(programTitle);
  QApplication::setWindowIcon(QIcon(serverPicture(64)));
  // The window says when the program ends; a closed help window does not.
  QApplication::setQuitOnLastWindowClosed(false);
  try {
    runProgram();
  } catch (const std::exception& failure) {
    QMessageBox::critical(nullptr, programTitle,
                          texts::unexpectedFailure().arg(QString::fromUtf8(failure.what())));
    return 1;
  }
  return 0;
}
