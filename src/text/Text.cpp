#include "text/Text.h"

#include <algorithm>

namespace dialwright {
namespace {

// Not std::tolower: that follows the host's locale and knows bytes only.
constexpr char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }
constexpr char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; }

bool SameLetter(char a, char b) { return Lower(a) == Lower(b); }

template <typename Find>
std::string ReplaceFound(std::string_view text, std::size_t length, std::string_view to,
                         Find find) {
  std::string result;
  std::size_t done = 0;
  for (std::size_t at = find(done); at != std::string_view::npos; at = find(done)) {
    result.append(text.substr(done, at - done)).append(to);
    done = at + length;
  }
  return result.append(text.substr(done));
}

std::size_t FindIgnoringCase(std::string_view text, std::string_view part, std::size_t from) {
  const std::string_view::const_iterator start = text.begin() + static_cast<std::ptrdiff_t>(from);
  const std::string_view::const_iterator found =
      std::search(start, text.end(), part.begin(), part.end(), SameLetter);
  if (found == text.end() && !part.empty()) return std::string_view::npos;
  return static_cast<std::size_t>(found - text.begin());
}

// The first byte always begins a character, so that broken text loses nothing.
bool BeginsCharacter(std::string_view utf8, std::size_t at) {
  return at == 0 || (static_cast<unsigned char>(utf8[at]) & 0xC0) != 0x80;
}

}  // namespace

std::string_view TrimOf(std::string_view text, std::string_view characters) {
  const std::size_t first = text.find_first_not_of(characters);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(characters) - first + 1);
}

std::string_view Trim(std::string_view text) { return TrimOf(text, " "); }

std::string LowerCase(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), Lower);
  return result;
}

std::string UpperCase(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), Upper);
  return result;
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), SameLetter);
}

bool StartsWithIgnoringCase(std::string_view text, std::string_view start) {
  return EqualsIgnoringCase(text.substr(0, start.size()), start);
}

bool ContainsIgnoringCase(std::string_view text, std::string_view part) {
  return FindIgnoringCase(text, part, 0) != std::string_view::npos;
}

std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to) {
  if (from.empty()) return std::string(text);
  return ReplaceFound(text, from.size(), to,
                      [&](std::size_t start) { return text.find(from, start); });
}

std::string ReplaceAllIgnoringCase(std::string_view text, std::string_view from,
                                   std::string_view to) {
  if (from.empty()) return std::string(text);
  return ReplaceFound(text, from.size(), to,
                      [&](std::size_t start) { return FindIgnoringCase(text, from, start); });
}

std::vector<std::string_view> SplitAtCommas(std::string_view text) {
  std::vector<std::string_view> pieces;
  if (text.empty()) return pieces;
  for (std::size_t comma = text.find(','); comma != std::string_view::npos;
       comma = text.find(',')) {
    pieces.push_back(text.substr(0, comma));
    text.remove_prefix(comma + 1);
  }
  pieces.push_back(text);
  return pieces;
}

std::string_view FirstCharacters(std::string_view utf8, std::size_t count) {
  std::size_t begun = 0;
  for (std::size_t at = 0; at < utf8.size(); ++at) {
    if (BeginsCharacter(utf8, at) && begun++ == count) return utf8.substr(0, at);
  }
  return utf8;
}

std::size_t CharacterCount(std::string_view utf8) {
  std::size_t count = 0;
  for (std::size_t at = 0; at < utf8.size(); ++at) count += BeginsCharacter(utf8, at) ? 1 : 0;
  return count;
}

}  // namespace dialwright
