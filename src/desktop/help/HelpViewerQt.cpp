#include "desktop/help/HelpViewerQt.h"

#include <QApplication>
#include <QMessageBox>
#include <QThread>
#include <algorithm>
#include <string>

#include "desktop/QtText.h"
#include "desktop/ScreenFit.h"
#include "desktop/Texts.h"
#include "desktop/help/HelpWindow.h"
#include "platform/Failure.h"

namespace dialwright {

namespace {

constexpr unsigned closeMessage = 16;

void Report(const QString& text, std::string_view path) {
  QMessageBox box(QApplication::activeWindow());
  box.setObjectName("helpReport");
  box.setIcon(QMessageBox::Warning);
  box.setWindowTitle(texts::Help());
  box.setTextFormat(Qt::PlainText);
  box.setText(text.arg(ToQt(path)));
  box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  box.exec();
}

}  // namespace

HelpViewerQt::~HelpViewerQt() { delete shown; }

WindowHandle HelpViewerQt::HtmlHelpA(WindowHandle, std::string_view address, unsigned,
                                     std::uintptr_t) {
  constexpr std::string_view inside = "::/";  // a page of the file is named behind it
  const std::size_t end = std::min(address.find(inside), address.size());
  const std::string_view path = address.substr(0, end);
  const std::string_view page = address.substr(std::min(end + inside.size(), address.size()));
  if (files.KindOf(path) != FileStore::Kind::file) {
    Report(texts::HelpMissing(), path);
    return 0;
  }
  std::string bytes;
  try {
    bytes = files.Read(path);
  } catch (const RuntimeFailure&) {
    // An empty file is no help file either.
  }
  std::unique_ptr<ChmArchive> archive = ChmArchive::Open(bytes);
  if (!archive || archive->HomePage().empty()) {
    Report(archive ? texts::HelpWithoutPages() : texts::HelpUnreadable(), path);
    return 0;
  }
  delete shown;
  shown = new HelpWindow(std::move(archive));
  shown->setAttribute(Qt::WA_DeleteOnClose);
  if (page.empty())
    shown->ShowHomePage();
  else
    shown->ShowPage(ToQt(page));
  ShowFitted(*shown, shown->size());
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
