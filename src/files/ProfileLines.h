#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace dialwright {

// How the text of a profile is made of sections.

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
