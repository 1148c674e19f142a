#include "files/ProfileIndex.h"

#include <cstdint>
#include <cstring>

#include "text/Lines.h"
#include "text/Text.h"

namespace dialwright {
namespace {

// Where the line begins that holds `at`, which is not before `from`.
std::size_t LineStart(std::string_view text, std::size_t from, std::size_t at) {
  while (at > from && text[at - 1] != '\r' && text[at - 1] != '\n') --at;
  return at;
}

// What a menu of the newest server has, about.
constexpr std::size_t usualKeys = 256;

}  // namespace

// Equal for keys that differ in case only: the bit that tells the letters' cases apart is set in
// every byte. That some other keys then fall together costs nothing but a comparison.
std::size_t ProfileIndex::HashWithoutCase::operator()(std::string_view key) const {
  constexpr std::uint64_t caseBits = 0x2020202020202020;
  constexpr std::uint64_t factor = 0x9E3779B97F4A7C15;
  std::uint64_t hash = key.size();
  while (!key.empty()) {
    std::uint64_t word = 0;
    const std::size_t length = key.size() < sizeof word ? key.size() : sizeof word;
    std::memcpy(&word, key.data(), length);
    hash = (hash ^ (word | caseBits)) * factor;
    hash ^= hash >> 32;
    key.remove_prefix(length);
  }
  return hash;
}

bool ProfileIndex::SameWithoutCase::operator()(std::string_view a, std::string_view b) const {
  return EqualsIgnoringCase(a, b);
}

ProfileIndex::ProfileIndex(std::string_view text, const SectionLines& section)
    : all(text.substr(0, section.end)), next(section.begin), values(usualKeys, &memory) {}

std::optional<std::size_t> ProfileIndex::Find(std::string_view key) {
  for (;;) {
    if (const auto found = values.find(key); found != values.end()) return found->second;
    if (next == all.size()) return std::nullopt;
    ReadOn();
  }
}

// Some more lines, enough of them for a search in between to cost little.
void ProfileIndex::ReadOn() {
  constexpr std::size_t portion = 4096;
  const std::size_t stop = next + portion;
  while (next < stop) {
    const std::size_t equals = all.find('=', next);
    if (equals == std::string_view::npos) {
      next = all.size();
      return;
    }
    const std::size_t start = LineStart(all, next, equals);
    const std::string_view key = TrimBlanksAndTabs(all.substr(start, equals - start));
    if (!key.empty()) values.try_emplace(key, equals + 1);
    next = LineEnd(all, equals);
  }
}

}  // namespace dialwright
