#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QIcon>
#include <QMessageBox>
#include <exception>
#include <string>

#include "desktop/HelpViewerQt.h"
#include "desktop/MainWindow.h"
#include "desktop/Pictures.h"
#include "desktop/QtMessageBoxes.h"
#include "desktop/QtText.h"
#include "desktop/Texts.h"
#include "platform/ClockPosix.h"
#include "platform/Failure.h"
#include "platform/FileLanguages.h"
#include "platform/FileStorePosix.h"
#include "platform/LocaleTable.h"
#include "platform/ProcessesPosix.h"
#include "platform/RegistryFile.h"
#include "platform/ScriptChecksumComponent.h"
#include "shell/Lifecycle.h"
#include "shell/Program.h"
#include "shell/frmMain.h"
#include "text/Text.h"

namespace {

using namespace dialwright;

constexpr const char* programTitle = "Dialwright";

/// A folder of the host as a path of the system.
std::string systemPath(const QString& hostFolder) {
  return ReplaceAll(fromQt(hostFolder), "/", "\\");
}

/// The server's registry, out of the file beside the program. Without one there is no server.
void fillRegistry(FileStore& files, const std::string& programFolder, MemoryRegistry& registry) {
  const std::string path = programFolder + "\\server.reg";
  if (files.kind(path) != FileStore::Kind::file) return;
  try {
    readRegistryFile(files.read(path), registry);
  } catch (const RuntimeFailure&) {
    // A registry that cannot be read answers nothing, and the system says so.
  }
}

/// Runs the program to its end. Throws what has ended it, if it was not the user.
void runProgram() {
  const QString hostFolder = QCoreApplication::applicationDirPath();
  const std::string folder = systemPath(hostFolder);
  FileStorePosix files(fromQt(hostFolder));
  MemoryRegistry registry;
  fillRegistry(files, folder, registry);
  ClockPosix clock;
  ProcessesPosix processes([&files](std::string_view path) { return files.HostPath(path); });
  QtMessageBoxes messages(programTitle);
  CrcChecksumFactory checksums(files);
  FileLanguages languages(files, userLanguageFromEnvironment());
  HelpViewerQt help(files);
  Program program({files, registry, clock, processes, messages, checksums, languages, help}, folder,
                  fromQt(QFileInfo(QCoreApplication::applicationFilePath()).completeBaseName()));

  MainWindow window(program);
  messages.window = &window;
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
  QApplication application(argc, argv);
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
