#pragma once

#include "platform/HelpViewer.h"

namespace dialwright {

/// The help viewer of Windows. It is loaded when it is first asked for: a machine without it has
/// the editor all the same.
class HelpViewerWin32 : public HelpViewer {
 public:
  /// Fails with 53 on a machine without the viewer.
  WindowHandle HtmlHelpA(WindowHandle owner, std::string_view path, unsigned command,
                         std::uintptr_t data) override;
  bool IsWindow(WindowHandle window) override;
  void SendMessageA(WindowHandle window, unsigned message, std::uintptr_t first,
                    std::uintptr_t second) override;
  void Sleep(unsigned milliseconds) override;

 private:
  using Call = void* (*)(void* owner, const char* path, unsigned command, std::uintptr_t data);
  Call viewer = nullptr;
};

}  // namespace dialwright
