#pragma once

#include <string_view>

namespace dialwright {

/// The window that a started process is asked to show.
enum class WindowState { hidden = 0, minimizedFocus = 2 };

/// Other programs, started and never waited for.
class Processes {
 public:
  virtual ~Processes() = default;
  /// Starts a command line in a folder. Fails with 53 "File not found" if there is no such program.
  virtual void Shell(std::string_view commandLine, WindowState state,
                     std::string_view currentFolder) = 0;
};

}  // namespace dialwright
