#include <system_error>

#include "WorldPlace.h"

namespace dialwright {

WorldFolder::~WorldFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path, ignored);
}

}  // namespace dialwright
