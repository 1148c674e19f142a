#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace dialwright {

/// The text without the blanks around it. Only blanks count: a tab is text.
std::string_view Trim(std::string_view text);
/// The text without those characters at either end.
std::string_view TrimOf(std::string_view text, std::string_view characters);

/// ASCII letters folded; all other bytes stay.
std::string LowerCase(std::string_view text);
std::string UpperCase(std::string_view text);

/// Comparisons without regard to the case of ASCII letters.
bool EqualsIgnoringCase(std::string_view a, std::string_view b);
bool StartsWithIgnoringCase(std::string_view text, std::string_view start);
bool ContainsIgnoringCase(std::string_view text, std::string_view part);

/// All occurrences of `from`, left to right, replaced. An empty `from` changes nothing.
std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to);
std::string ReplaceAllIgnoringCase(std::string_view text, std::string_view from,
                                   std::string_view to);

/// The pieces between commas; an empty text has none.
std::vector<std::string_view> SplitAtCommas(std::string_view text);

/// The first `count` characters of UTF-8 text.
std::string_view FirstCharacters(std::string_view utf8, std::size_t count);
/// The number of characters of UTF-8 text.
std::size_t CharacterCount(std::string_view utf8);

}  // namespace dialwright
