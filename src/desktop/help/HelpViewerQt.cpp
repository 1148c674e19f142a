#include "desktop/help/HelpViewerQt.h"

#include <QApplication>
#include <QMessageBox>
#include <QThread>
#include <string>

#include "desktop/QtText.h"
#include "desktop/Texts.h"
#include "desktop/help/HelpWindow.h"
#include "platform/Failure.h"

namespace dialwright {

namespace {

constexpr unsigned closeMessage = 16;

void report(const QString& text, std::string_view path) {
  QMessageBox box(QApplication::activeWindow());
  box.setObjectName("helpReport");
  box.setIcon(QMessageBox::Warning);
  box.setWindowTitle(texts::help());
  box.setTextFormat(Qt::PlainText);
  box.setText(text.arg(toQt(path)));
  box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  box.exec();
}

}  // namespace

HelpViewerQt::~HelpViewerQt() { delete shown; }

WindowHandle HelpViewerQt::HtmlHelpA(WindowHandle, std::string_view path, unsigned,
                                     std::uintptr_t) {
  if (files.kind(path) != FileStore::Kind::file) {
    report(texts::helpMissing(), path);
    return 0;
  }
  std::string bytes;
  try {
    bytes = files.read(path);
  } catch (const RuntimeFailure&) {
    // An empty file is no help file either.
  }
  std::unique_ptr<ChmArchive> archive = ChmArchive::open(bytes);
  if (!archive || archive->homePage().empty()) {
    report(archive ? texts::helpWithoutPages() : texts::helpUnreadable(), path);
    return 0;
  }
  delete shown;
  shown = new HelpWindow(std::move(archive));
  shown->setAttribute(Qt::WA_DeleteOnClose);
  shown->showHomePage();
  shown->show();
  shown->activateWindow();
  return static_cast<WindowHandle>(shown->winId());
}

bool HelpViewerQt::IsWindow(WindowHandle window) {
  return window != 0 && !shown.isNull() && static_cast<WindowHandle>(shown->winId()) == window;
}

void HelpViewerQt::SendMessageA(WindowHandle window, unsigned message, std::uintptr_t,
                                std::uintptr_t) {
  if (message == closeMessage && IsWindow(window)) delete shown;
}

void HelpViewerQt::Sleep(unsigned milliseconds) {
  // What was closed before should be gone from the screen during the pause.
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  QThread::msleep(milliseconds);
}

}  // namespace dialwright
