#include "desktop/DisplayCheck.h"

#include <QByteArray>
#include <QtGlobal>
#include <cstdio>
#include <cstdlib>

namespace dialwright {

namespace {

void SayNoDisplay() {
  const QByteArray display = qgetenv("DISPLAY");
  if (display.isEmpty())
    std::fputs("Dialwright: there is no display to show the window on.\n", stderr);
  else
    std::fprintf(stderr, "Dialwright: the window cannot be shown on display %s.\n",
                 display.constData());
}

/// What the toolkit says before it gives up is about its plugins, and of no use to a user.
void OnMessage(QtMsgType type, const QMessageLogContext&, const QString&) {
  if (type != QtFatalMsg) return;
  SayNoDisplay();
  std::_Exit(1);
}

}  // namespace

void ExpectDisplay() { qInstallMessageHandler(OnMessage); }

void DisplayFound() { qInstallMessageHandler(nullptr); }

}  // namespace dialwright
