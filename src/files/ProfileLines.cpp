#include "files/ProfileLines.h"

#include "text/Lines.h"
#include "text/Text.h"

namespace dialwright {
namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t'; }
bool IsLineEnd(char c) { return c == '\r' || c == '\n'; }

struct Heading {
  std::size_t line = 0;  // where its line begins
  std::size_t end = 0;   // where its line ends
  std::string_view name;
};

// Only brackets are looked at, since most of a file has none.
std::optional<Heading> NextHeading(std::string_view text, std::size_t from) {
  for (std::size_t open = text.find('[', from); open != std::string_view::npos;
       open = text.find('[', open + 1)) {
    std::size_t line = open;
    while (line > from && IsBlank(text[line - 1])) --line;
    if (line > 0 && !IsLineEnd(text[line - 1])) continue;
    const std::size_t end = LineEnd(text, open);
    const std::string_view rest = text.substr(open + 1, end - open - 1);
    const std::size_t close = rest.find(']');
    if (close != std::string_view::npos) return Heading{line, end, rest.substr(0, close)};
  }
  return std::nullopt;
}

}  // namespace

std::string_view TrimBlanksAndTabs(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

std::optional<SectionLines> FindSection(std::string_view text, std::string_view name) {
  std::optional<Heading> heading = NextHeading(text, 0);
  while (heading && !EqualsIgnoringCase(heading->name, name)) {
    heading = NextHeading(text, heading->end);
  }
  if (!heading) return std::nullopt;
  const std::optional<Heading> next = NextHeading(text, heading->end);
  return SectionLines{NextLine(text, heading->end), next ? next->line : text.size()};
}

std::size_t EndOfWrittenLines(std::string_view text, const SectionLines& section) {
  const std::string_view lines = text.substr(section.begin, section.end - section.begin);
  const std::size_t last = lines.find_last_not_of(" \t\r\n");
  if (last == std::string_view::npos) return section.begin;
  return NextLine(text, LineEnd(text, section.begin + last));
}

}  // namespace dialwright
