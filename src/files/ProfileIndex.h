#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "files/ProfileLines.h"

namespace dialwright {

/// Where the keys of one section stand in a text. Of a key that stands twice the first counts. The
/// section is gone through once, and only as far as the keys that are asked for stand in it; that
/// is most of the cost of reading a large one, so there is a flat table, no copy of a key, and no
/// look at lines without an equals sign.
class ProfileIndex {
 public:
  /// The text must stay where it is.
  ProfileIndex(std::string_view text, const SectionLines& section);

  /// Where the value of a key (its name without blanks around it) begins, behind the equals sign.
  std::optional<std::size_t> Find(std::string_view key);

 private:
  struct Slot {
    std::size_t key = 0;
    std::size_t equals = 0;  // 0: empty, since no section begins before its heading
    std::uint32_t length = 0;
    std::uint32_t hash = 0;
  };

  std::string_view KeyOf(const Slot& slot) const { return all.substr(slot.key, slot.length); }
  std::size_t PlaceOf(std::string_view key, std::uint32_t hash) const;
  void Add(const Slot& slot);
  void Grow();
  void ReadOn();

  std::string_view all;  // up to the section's end
  std::size_t next;      // where the part begins that is not in the table yet
  std::vector<Slot> slots;
  std::size_t count = 0;
};

}  // namespace dialwright
