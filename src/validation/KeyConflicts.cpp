#include "validation/KeyConflicts.h"

#include <algorithm>

#include "text/Text.h"

namespace dialwright {

bool bKeyConflicts(std::string_view keyList, const ConflictKeys& keys) {
  for (const std::string_view element : SplitAtCommas(keyList)) {
    const std::string_view key = Trim(element);
    if (CharacterCount(key) != 2) continue;
    const std::string_view first = FirstCharacters(key, 1);
    if (std::ranges::any_of(keys, [first](const std::string& conflict) {
          return EqualsIgnoringCase(first, conflict);
        }))
      return true;
  }
  return false;
}

}  // namespace dialwright
