#include <QApplication>
#include <QIcon>
#include <QMessageBox>
#include <exception>
#include <optional>

#include "desktop/CardNotice.h"
#include "desktop/DisplayCheck.h"
#include "desktop/FontStyle.h"
#include "desktop/FontsAhead.h"
#include "desktop/HostServices.h"
#include "desktop/MainWindow.h"
#include "desktop/Opening.h"
#include "desktop/Pictures.h"
#include "desktop/QtMessageBoxes.h"
#include "desktop/Texts.h"
#include "shell/events/Lifecycle.h"
#include "shell/events/MainEvents.h"
#include "shell/frmMain.h"

namespace {

using namespace dialwright;

constexpr const char* programTitle = "Dialwright";

/// One window on one server, to its end. Throws what has ended it, if it was not the user.
void RunProgram(const Place& place, Opening& opening) {
  const auto host = MakeHostServices(place.serverFolder);
  QtMessageBoxes messages(programTitle);
  Program program(host->ServicesWith(messages), place.programFolder, place.programFile);

  ConnectEvents(*program.main);
  MainWindow window(program);
  messages.window = &window;
  window.NameServer(place.serverName);
  opening.Offer(window, program);
  window.AddNotice(*new CardNotice(program, messages));
  Dispatch& dispatch = window.Entry();
  dispatch.Run([&] { Form_Load(*program.main); });
  if (!dispatch.Ended()) {
    window.seen = [&] {
      QApplication::setWindowIcon(QIcon(DrawServer(64)));
      opening.Opened(place);
    };
    window.Open();
    QApplication::exec();
  }
  messages.window = nullptr;
  if (dispatch.Failure()) std::rethrow_exception(dispatch.Failure());
}

}  // namespace

int main(int argc, char** argv) {
  if (AnswerWithoutWindow(argc, argv)) return 0;
  const std::jthread fonts = ReadFontsAhead();
  ExpectDisplay();
  const QApplication application(argc, argv);
  DisplayFound();
  QApplication::setApplicationName(programTitle);
  QApplication::setStyle(new FontStyle);
  QGuiApplication::setDesktopFileName("dialwright");
  // The window says when the program ends; a closed help window does not.
  QApplication::setQuitOnLastWindowClosed(false);
  try {
    const auto opening = MakeOpening();
    if (!opening) return 2;
    while (const std::optional<Place> place = opening->Next()) RunProgram(*place, *opening);
  } catch (const std::exception& failure) {
    QMessageBox::critical(nullptr, programTitle,
                          texts::UnexpectedFailure().arg(QString::fromUtf8(failure.what())));
    return 1;
  }
  return 0;
}
