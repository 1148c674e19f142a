#pragma once

#include <memory>
#include <string>

#include "shell/Program.h"

namespace dialwright {

/// What the editor's window stands on outside the program, of the operating system that it runs on.
class HostServices {
 public:
  virtual ~HostServices() = default;
  /// All services, with the window's message boxes.
  virtual Services ServicesWith(MessageBoxes& messages) = 0;
};

/// The services of this operating system. Where the registry is a file, `serverFolder` (a path of
/// the host) holds it and the server's drives.
std::unique_ptr<HostServices> MakeHostServices(const std::string& serverFolder);

}  // namespace dialwright
