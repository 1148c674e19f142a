#pragma once

#include "platform/Processes.h"

namespace dialwright {

/// Starts programs as Windows itself does from a command line: it splits the line, searches for the
/// program, and shows the first window in the state that is asked for. Nothing is waited for, and
/// the program inherits no handle.
class ProcessesWin32 : public Processes {
 public:
  void Shell(std::string_view commandLine, WindowState state,
             std::string_view currentFolder) override;
};

}  // namespace dialwright
