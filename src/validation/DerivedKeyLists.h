#pragma once

#include <string>
#include <string_view>

namespace dialwright {

/// The four further touch tones. They never stand in a grid.
inline constexpr std::string_view extendedKeys = "ABCD";

/// A key list is the trimmed keys of a grid in row order, each followed by a comma.

/// The keys of the keypad that no row uses as its first key, in the order 1 to 9, 0, *, #.
std::string strGetInactiveKeys(std::string_view keyList);

/// The digit of each two-character key whose characters are equal, separated by commas.
std::string strGetDoubleKeys(std::string_view keyList);

/// Every two-character key whole, separated by commas.
std::string strGetExtendedDoubleKeys(std::string_view keyList);

/// The running list with the key's first character in front, if the key ends the playback: keys of
/// one or two characters whose action does not work on the playing message in place. `key` may
/// still carry the quotes of its written form.
std::string strAddToTerminatePlaybackKeys(std::string_view runningList, std::string_view key,
                                          std::string_view token);

}  // namespace dialwright
