#include "validation/DerivedKeyLists.h"

#include <algorithm>
#include <array>

#include "text/Text.h"

namespace dialwright {

namespace {

constexpr std::string_view keypad = "1234567890*#";

/// What actions that work on the playing message in place have in their tokens.
constexpr std::array<std::string_view, 4> inPlace{"_SLOWDOWN", "_SPEEDUP", "_PAUSE", "_VOLUME"};

bool IsTwoKeys(std::string_view key) { return CharacterCount(key) == 2; }

/// The elements that `entry` makes something of, with commas between.
template <class Entry>
std::string List(std::string_view keyList, Entry entry) {
  std::string result;
  for (const std::string_view element : SplitAtCommas(keyList)) {
    const std::string_view piece = entry(Trim(element));
    if (piece.empty()) continue;
    if (!result.empty()) result += ',';
    result += piece;
  }
  return result;
}

}  // namespace

std::string strGetInactiveKeys(std::string_view keyList) {
  std::string inactive(keypad);
  for (const std::string_view element : SplitAtCommas(keyList))
    if (!element.empty())
      inactive = ReplaceAllIgnoringCase(inactive, FirstCharacters(element, 1), "");
  return inactive;
}

std::string strGetDoubleKeys(std::string_view keyList) {
  return List(keyList, [](std::string_view key) -> std::string_view {
    const std::string_view first = FirstCharacters(key, 1);
    const bool doubled = IsTwoKeys(key) && EqualsIgnoringCase(first, key.substr(first.size()));
    return doubled ? first : std::string_view();
  });
}

std::string strGetExtendedDoubleKeys(std::string_view keyList) {
  return List(keyList,
              [](std::string_view key) { return IsTwoKeys(key) ? key : std::string_view(); });
}

std::string strAddToTerminatePlaybackKeys(std::string_view runningList, std::string_view key,
                                          std::string_view token) {
  const std::string unquoted = ReplaceAll(key, "\"", "");
  const std::string_view bare = Trim(unquoted);
  std::string result(runningList);
  if (bare.empty() || CharacterCount(bare) > 2) return result;
  const std::string_view first = FirstCharacters(bare, 1);
  if (ContainsIgnoringCase(runningList, first)) return result;
  if (std::ranges::any_of(
          inPlace, [token](std::string_view part) { return ContainsIgnoringCase(token, part); }))
    return result;
  // The list grows at its front.
  return result.insert(0, first);
}

}  // namespace dialwright
