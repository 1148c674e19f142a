#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/Processes.h"

namespace dialwright {

/// Starts the host's programs by command lines of the system. No shell takes part: the command line
/// is split as the system would, and the started program gets its arguments as they are.
///
/// - A program with a path is looked for there, any other on the host's search path.
/// - `Explorer "X"` opens X with the desktop's own opener.
/// - Behind `-classpath` the entries between semicolons become paths of the host, with colons
///   between them; one that holds a colon itself is given as seen from the folder.
/// - In a folder with letters outside ASCII the program finds a locale that knows them.
/// - The process belongs to nobody here: it is in a session of its own, its standard streams lead
///   nowhere, and its end leaves nothing behind.
///
/// That the program is running is known when `Shell` returns: a failure to start it, or to enter
/// the folder, is thrown. The state of the window is the started program's own affair.
class ProcessesPosix : public Processes {
 public:
  using ToHostPath = std::function<std::string(std::string_view)>;
  explicit ProcessesPosix(ToHostPath toHostPath) : hostPath(std::move(toHostPath)) {}

  void Shell(std::string_view commandLine, WindowState state,
             std::string_view currentFolder) override;

 private:
  ToHostPath hostPath;
};

}  // namespace dialwright
