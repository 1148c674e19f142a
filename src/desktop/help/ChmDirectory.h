#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dialwright {

/// A file inside a compiled help file.
struct ChmEntry {
  std::string name;  ///< "/index.html"
  bool compressed = false;
  std::uint64_t start = 0;
  std::uint64_t length = 0;
};

/// Reads the directory of a compiled help file and looks at everything that the library which
/// unpacks it takes on trust: that the directory's pages lie in the file and lead nowhere in a
/// circle, that no entry reaches outside, and that the tables of the compression make sense.
/// Nothing for a file that is damaged or is something else.
std::optional<std::vector<ChmEntry>> SoundChmDirectory(std::string_view file);

}  // namespace dialwright
