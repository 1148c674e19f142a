#pragma once

#include <iosfwd>
#include <string>

#include "beside/KeyMap.h"
#include "messages/Messages.h"

namespace dialwright {

/// The bytes of a key map file of the host, and the map in them. Throw CommandFailure.
std::string ReadKeyMapFile(const std::string& path);
KeyMap ParsedKeyMap(const std::string& path, const std::string& bytes, Messages& strings);

/// The key map that a word of a command line means: a key map file, or a server folder with `#N`
/// for its slot. What a server says goes to `words`. Throws CommandFailure.
KeyMap KeyMapFrom(const std::string& source, std::ostream& words);

}  // namespace dialwright
