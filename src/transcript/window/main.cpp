#include <QApplication>
#include <cstdio>
#include <memory>

#include "WindowUser.h"
#include "transcript/Runner.h"

namespace {

/// The offscreen platform tells at every turn what it does without; nobody needs to read it.
void PassOnMessages(QtMsgType, const QMessageLogContext&, const QString& message) {
  if (!message.startsWith("This plugin does not support"))
    std::fprintf(stderr, "%s\n", qPrintable(message));
}

}  // namespace

int main(int argc, char** argv) {
  using namespace dialwright;
  // The transcripts need no display; one that is asked for is used.
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler(PassOnMessages);
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  return RunTranscripts({argv + 1, argv + argc}, [](Program& program) -> std::unique_ptr<User> {
    return std::make_unique<WindowUser>(program);
  });
}
