#pragma once

#include <array>
#include <string>
#include <string_view>

namespace dialwright {

/// The keys that must not be the first digit of a two-key sequence; empty ones never conflict.
using ConflictKeys = std::array<std::string, 7>;

/// Whether one of the keys is the first digit of a two-character key of the list.
bool bKeyConflicts(std::string_view keyList, const ConflictKeys& keys);

}  // namespace dialwright
