#pragma once

#include <cstddef>
#include <string_view>

namespace dialwright {

// What a line of a script is, for all who read or write one: a line ends at a line feed with all
// the carriage returns right before it, or at a carriage return that no line feed follows. What one
// of them writes as a line the others find as a line.

/// Where the text of the line that holds `from` ends: its first carriage return or line feed, or
/// the text's end.
std::size_t LineEnd(std::string_view text, std::size_t from);

/// Behind the line end that begins at `lineEnd`.
std::size_t NextLine(std::string_view text, std::size_t lineEnd);

/// The end of the text's first line; carriage return and line feed in a text without lines.
std::string_view FirstLineEnd(std::string_view text);

/// Goes through a text line by line, in one pass whatever its line ends are.
class LineReader {
 public:
  explicit LineReader(std::string_view lines) : text(lines) {}

  bool AtEnd() const { return at == text.size(); }
  /// The next line without its end. Not to be called at the end.
  std::string_view Next();
  /// Where the next line begins.
  std::size_t Place() const { return at; }
  /// Passes over the lines to come that end with carriage return and line feed and nothing else,
  /// and hold no `mark`, as far as many of them are found at once; returns them with their ends.
  std::string_view PlainLines(char mark);

 private:
  std::string_view text;
  std::size_t at = 0;
  std::size_t returnsEnd = 0;  // of the last run of carriage returns that no line feed follows
  std::size_t oddUntil = 0;    // some line before this is none of the plain ones
};

/// Whether a file begins with a mark of UTF-16, of either order of bytes: no server reads a script
/// in it.
bool IsUtf16(std::string_view bytes);

}  // namespace dialwright
