#pragma once

#include <cstdint>
#include <string_view>

namespace dialwright {

using WindowHandle = std::uintptr_t;

/// The viewer of compiled help files.
class HelpViewer {
 public:
  virtual ~HelpViewer() = default;
  /// Shows a help file; returns its window, 0 when there is none.
  virtual WindowHandle HtmlHelpA(WindowHandle owner, std::string_view path, unsigned command,
                                 std::uintptr_t data) = 0;
  virtual bool IsWindow(WindowHandle window) = 0;
  virtual void SendMessageA(WindowHandle window, unsigned message, std::uintptr_t first,
                            std::uintptr_t second) = 0;
  virtual void Sleep(unsigned milliseconds) = 0;
};

}  // namespace dialwright
