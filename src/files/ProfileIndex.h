#pragma once

#include <cstddef>
#include <memory_resource>
#include <optional>
#include <string_view>
#include <unordered_map>

#include "files/ProfileLines.h"

namespace dialwright {

/// Where the keys of one section stand in a text. Of a key that stands twice the first counts. The
/// section is gone through once, and only as far as the keys that are asked for stand in it; that
/// is most of the cost of reading a large one, so there is no copy of a key, and no look at lines
/// without an equals sign.
class ProfileIndex {
 public:
  /// The text must stay where it is.
  ProfileIndex(std::string_view text, const SectionLines& section);

  /// Where the value of a key (its name without blanks around it) begins, behind the equals sign.
  std::optional<std::size_t> Find(std::string_view key);

 private:
  struct HashWithoutCase {
    std::size_t operator()(std::string_view key) const;
  };
  struct SameWithoutCase {
    bool operator()(std::string_view a, std::string_view b) const;
  };

  void ReadOn();

  std::string_view all;                        // up to the section's end
  std::size_t next;                            // where the part begins that is not in the table yet
  std::pmr::monotonic_buffer_resource memory;  // the entries go all at once
  std::pmr::unordered_map<std::string_view, std::size_t, HashWithoutCase, SameWithoutCase> values;
};

}  // namespace dialwright
