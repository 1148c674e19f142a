#include <QApplication>
#include <QFileInfo>
#include <QIcon>
#include <QMessageBox>
#include <exception>
#include <string>

#include "desktop/CardNotice.h"
#include "desktop/DisplayCheck.h"
#include "desktop/FontStyle.h"
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
std::string SystemPath(const QString& hostFolder) {
  return ReplaceAll(FromQt(hostFolder), "/", "\\");
}

/// Runs the program to its end. Throws what has ended it, if it was not the user.
void RunProgram() {
  const std::string folder = SystemPath(QCoreApplication::applicationDirPath());
  const auto host = MakeHostServices(folder);
  QtMessageBoxes messages(programTitle);
  Program program(host->ServicesWith(messages), folder,
                  FromQt(QFileInfo(QCoreApplication::applicationFilePath()).completeBaseName()));

  ConnectEvents(*program.main);
  MainWindow window(program);
  messages.window = &window;
  window.AddNotice(*new CardNotice(program, messages));
  Dispatch& dispatch = window.Entry();
  dispatch.Run([&] { Form_Load(*program.main); });
  if (!dispatch.Ended()) {
    window.Open();
    QApplication::exec();
  }
  messages.window = nullptr;
  if (dispatch.Failure()) std::rethrow_exception(dispatch.Failure());
}

}  // namespace

int main(int argc, char** argv) {
  expectDisplay();
  const QApplication application(argc, argv);
  DisplayFound();
  QApplication::setApplicationName(programTitle);
  QApplication::setStyle(new FontStyle);
  QApplication::setWindowIcon(QIcon(DrawServer(64)));
  // The window says when the program ends; a closed help window does not.
  QApplication::setQuitOnLastWindowClosed(false);
  try {
    RunProgram();
  } catch (const std::exception& failure) {
    QMessageBox::critical(nullptr, programTitle,
                          texts::UnexpectedFailure().arg(QString::fromUtf8(failure.what())));
    return 1;
  }
  return 0;
}
