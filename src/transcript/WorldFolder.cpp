#include <system_error>

#include "WorldPlace.h"
#include "text/Text.h"

namespace dialwright {

WorldFolder::~WorldFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path, ignored);
}

std::filesystem::path WorldFolder::HostPath(std::string_view systemPath) const {
  const std::string slashed = ReplaceAll(systemPath, "\\", "/");
  const bool hasDrive = slashed.size() > 1 && slashed[1] == ':';
  const std::string drive = "drive_" + LowerCase(hasDrive ? slashed.substr(0, 1) : "c");
  std::string rest = hasDrive ? slashed.substr(2) : slashed;
  rest.erase(0, rest.find_first_not_of('/'));
  return path / drive / rest;
}

}  // namespace dialwright
