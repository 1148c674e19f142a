#include "files/ProfileLines.h"

#include <algorithm>

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

std::size_t LineEnd(std::string_view text, std::size_t from) {
  // Most values are short; a search for each of the two bytes would cost more than they do.
  constexpr std::size_t shortRest = 16;
  const std::size_t near = std::min(text.size(), from + shortRest);
  for (; from < near; ++from) {
    if (IsLineEnd(text[from])) return from;
  }
  // In windows, so that a text with only one kind of line ends is not searched to its end for the
  // other kind at every line.
  constexpr std::size_t window = 256;
  for (std::size_t at = from; at < text.size(); at += window) {
    const std::string_view part = text.substr(at, window);
    const std::string_view line = part.substr(0, part.find('\n'));
    const std::size_t length = std::min(line.find('\r'), line.size());
    if (length < part.size()) return at + length;
  }
  return text.size();
}

std::size_t NextLine(std::string_view text, std::size_t lineEnd) {
  if (text.substr(lineEnd).starts_with("\r\n")) return lineEnd + 2;
  return std::min(lineEnd + 1, text.size());
}

std::string_view UsualLineEnd(std::string_view text) {
  const std::size_t feed = text.find('\n');
  if (feed == std::string_view::npos) {
    return text.find('\r') == std::string_view::npos ? "\r\n" : "\r";
  }
  return feed > 0 && text[feed - 1] == '\r' ? "\r\n" : "\n";
}

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
