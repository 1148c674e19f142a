#include "text/Lines.h"

#include <algorithm>
#include <cstdint>

namespace dialwright {
namespace {

bool IsLineEnd(char c) { return c == '\r' || c == '\n'; }

/// Behind the carriage returns that begin at `from`.
std::size_t BehindReturns(std::string_view text, std::size_t from) {
  return std::min(text.find_first_not_of('\r', from), text.size());
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
  const std::size_t behind = BehindReturns(text, lineEnd);
  if (behind < text.size() && text[behind] == '\n') return behind + 1;
  return std::min(lineEnd + 1, text.size());
}

std::string_view FirstLineEnd(std::string_view text) {
  const std::size_t end = LineEnd(text, 0);
  return end == text.size() ? "\r\n" : text.substr(end, NextLine(text, end) - end);
}

std::string_view LineReader::Next() {
  const std::size_t end = LineEnd(text, at);
  const std::string_view line = text.substr(at, end - at);
  // Of many carriage returns without a line feed each is a line: they are gone over only once.
  at = end < returnsEnd ? end + 1 : NextLine(text, end);
  if (at == end + 1 && end >= returnsEnd) returnsEnd = BehindReturns(text, end);
  return line;
}

std::string_view LineReader::PlainLines(char mark) {
  // Block by block, in a form that the compiler turns into steps of many bytes: most of a large
  // script is such lines.
  constexpr std::size_t block = 2048;
  const std::size_t begin = at;
  if (begin < oddUntil || AtEnd() || text[begin] == '\n') return {};
  std::size_t end = begin;
  for (; end + block < text.size(); end += block) {
    const char* bytes = text.data() + end;
    std::uint8_t odd = 0;
    for (std::size_t i = 0; i < block; ++i) {
      const std::uint8_t isReturn = bytes[i] == '\r', isFeedNext = bytes[i + 1] == '\n';
      const std::uint8_t isMark = bytes[i] == mark;
      odd = static_cast<std::uint8_t>(odd | (isReturn ^ isFeedNext) | isMark);
    }
    if (odd != 0) break;
  }
  oddUntil = end + block;
  const std::string_view stretch = text.substr(begin, end - begin);
  at = begin + stretch.rfind('\n') + 1;
  return text.substr(begin, at - begin);
}

bool IsUtf16(std::string_view bytes) {
  return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
}

}  // namespace dialwright
