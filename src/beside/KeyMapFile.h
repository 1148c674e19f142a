#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "beside/KeyMap.h"
#include "messages/Messages.h"

namespace dialwright {

/// No key map file is longer, in bytes: what is read of one can stop right behind this.
inline constexpr std::size_t longestKeyMapFile = 1 << 20;

/// Why a text is no key map file: a string's number and what stands for its %1, %2, ...
struct KeyMapFault {
  int text = 0;
  std::vector<std::string> words;
};

/// What is wrong with the file, for the user: where it is no JSON the line and column, else the
/// menu and the action.
std::string FaultText(Messages& strings, const KeyMapFault& fault);

/// The text of a key map file: the same map always gives the same bytes.
std::string KeyMapText(const KeyMap& map);

/// The key map that a file's text holds. Throws KeyMapFault for a text that is none; names that it
/// does not know are passed over.
KeyMap ParseKeyMap(std::string_view bytes);

}  // namespace dialwright
