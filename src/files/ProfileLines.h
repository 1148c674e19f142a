#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace dialwright {

// How a profile's text is made of lines and sections. A line ends at a carriage return, a line feed
// or both in this order: whoever takes only some of them for ends still finds every line that is
// written here whole.

/// Where the line that holds `from` ends: its first carriage return or line feed, or the text's
/// end.
std::size_t LineEnd(std::string_view text, std::size_t from);

/// Behind the line end that stands at `lineEnd`.
std::size_t NextLine(std::string_view text, std::size_t lineEnd);

/// How new lines of a text end: as its first line does; carriage return and line feed in a text
/// without lines. In a text that has line feeds, lines that end in a carriage return alone do not
/// count: such an end, put before a line feed, would make one line end of two.
std::string_view UsualLineEnd(std::string_view text);

/// The text without the blanks and tabs around it.
std::string_view TrimBlanksAndTabs(std::string_view text);

/// The lines of a section, from behind its heading to the next heading or the text's end.
struct SectionLines {
  std::size_t begin = 0;
  std::size_t end = 0;
};

/// The first section of a name (without case). A heading is a line with "[", the name and "]", with
/// nothing but blanks and tabs before it; what follows the first "]" does not count.
std::optional<SectionLines> FindSection(std::string_view text, std::string_view name);

/// Where a new line of a section goes: behind its last line that is not blank.
std::size_t EndOfWrittenLines(std::string_view text, const SectionLines& section);

}  // namespace dialwright
