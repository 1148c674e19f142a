#include "WorldPlace.h"

#include <cerrno>
#include <cstdlib>
#include <system_error>

namespace dialwright {

WorldFolder::WorldFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "dialwright-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr)
    throw std::system_error(errno, std::generic_category(), "no folder for a transcript");
  path = name;
}

}  // namespace dialwright
