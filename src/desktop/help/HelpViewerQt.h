#pragma once

#include <QPointer>

#include "platform/FileStore.h"
#include "platform/HelpViewer.h"

namespace dialwright {

class HelpWindow;

/// The viewer of compiled help files where the system has none: a window of the program's own. It
/// is the viewer that tells the user of a file that is missing or damaged.
class HelpViewerQt : public HelpViewer {
 public:
  explicit HelpViewerQt(FileStore& fileStore) : files(fileStore) {}
  ~HelpViewerQt() override;

  WindowHandle HtmlHelpA(WindowHandle owner, std::string_view path, unsigned command,
                         std::uintptr_t data) override;
  bool IsWindow(WindowHandle window) override;
  void SendMessageA(WindowHandle window, unsigned message, std::uintptr_t first,
                    std::uintptr_t second) override;
  void Sleep(unsigned milliseconds) override;

 private:
  FileStore& files;
  QPointer<HelpWindow> shown;
};

}  // namespace dialwright
