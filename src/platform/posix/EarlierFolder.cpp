#include "platform/EarlierFolder.h"

#include <cstdlib>

namespace dialwright {

std::string EarlierFolder() {
  const char* data = std::getenv("XDG_DATA_HOME");
  if (data != nullptr && data[0] == '/') return std::string(data) + "/dialwright/earlier";
  const char* home = std::getenv("HOME");
  if (home == nullptr || home[0] != '/') return {};
  return std::string(home) + "/.local/share/dialwright/earlier";
}

}  // namespace dialwright
