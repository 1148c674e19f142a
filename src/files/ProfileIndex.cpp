#include "files/ProfileIndex.h"

#include <cstring>
#include <utility>

#include "text/Lines.h"
#include "text/Text.h"

namespace dialwright {
namespace {

// Equal for keys that differ in case only: the bit that tells the letters' cases apart is set in
// every byte. That some other keys then fall together costs nothing but a comparison.
std::uint32_t HashWithoutCase(std::string_view key) {
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
  return static_cast<std::uint32_t>(hash);
}

// Where the line begins that holds `at`, which is not before `from`.
std::size_t LineStart(std::string_view text, std::size_t from, std::size_t at) {
  while (at > from && text[at - 1] != '\r' && text[at - 1] != '\n') --at;
  return at;
}

}  // namespace

ProfileIndex::ProfileIndex(std::string_view text, const SectionLines& section)
    : all(text.substr(0, section.end)), next(section.begin), slots(1024) {}

std::optional<std::size_t> ProfileIndex::Find(std::string_view key) {
  const std::uint32_t hash = HashWithoutCase(key);
  for (;;) {
    const Slot& slot = slots[PlaceOf(key, hash)];
    if (slot.equals != 0) return slot.equals + 1;
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
    if (!key.empty() && key.size() <= UINT32_MAX) {
      Add({static_cast<std::size_t>(key.data() - all.data()), equals,
           static_cast<std::uint32_t>(key.size()), HashWithoutCase(key)});
    }
    next = LineEnd(all, equals);
  }
}

// The key's slot, or the empty one that it would take.
std::size_t ProfileIndex::PlaceOf(std::string_view key, std::uint32_t hash) const {
  const std::size_t mask = slots.size() - 1;
  std::size_t at = hash & mask;
  while (slots[at].equals != 0 &&
         !(slots[at].hash == hash && EqualsIgnoringCase(KeyOf(slots[at]), key))) {
    at = (at + 1) & mask;
  }
  return at;
}

void ProfileIndex::Add(const Slot& slot) {
  Slot& place = slots[PlaceOf(KeyOf(slot), slot.hash)];
  if (place.equals != 0) return;
  place = slot;
  if (++count * 2 > slots.size()) Grow();
}

void ProfileIndex::Grow() {
  std::vector<Slot> old(slots.size() * 4);
  std::swap(old, slots);
  const std::size_t mask = slots.size() - 1;
  for (const Slot& slot : old) {
    if (slot.equals == 0) continue;
    std::size_t at = slot.hash & mask;
    while (slots[at].equals != 0) at = (at + 1) & mask;
    slots[at] = slot;
  }
}

}  // namespace dialwright
