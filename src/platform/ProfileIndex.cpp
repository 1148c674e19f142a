#include "platform/ProfileIndex.h"

#include <cstring>
#include <utility>

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
    : all(text), slots(1024) {
  const std::string_view lines = text.substr(0, section.end);
  std::size_t from = section.begin;
  for (std::size_t equals = lines.find('=', from); equals != std::string_view::npos;
       equals = lines.find('=', from)) {
    const std::size_t start = LineStart(lines, from, equals);
    const std::string_view key = TrimBlanksAndTabs(lines.substr(start, equals - start));
    if (!key.empty() && key.size() <= UINT32_MAX) {
      add({static_cast<std::size_t>(key.data() - lines.data()), equals,
           static_cast<std::uint32_t>(key.size()), HashWithoutCase(key)});
    }
    from = LineEnd(lines, equals);
  }
}

std::optional<std::size_t> ProfileIndex::find(std::string_view key) const {
  const Slot& slot = slots[placeOf(key, HashWithoutCase(key))];
  if (slot.equals == 0) return std::nullopt;
  return slot.equals + 1;
}

// The key's slot, or the empty one that it would take.
std::size_t ProfileIndex::placeOf(std::string_view key, std::uint32_t hash) const {
  const std::size_t mask = slots.size() - 1;
  std::size_t at = hash & mask;
  while (slots[at].equals != 0 &&
         !(slots[at].hash == hash && EqualsIgnoringCase(keyOf(slots[at]), key))) {
    at = (at + 1) & mask;
  }
  return at;
}

void ProfileIndex::add(const Slot& slot) {
  Slot& place = slots[placeOf(keyOf(slot), slot.hash)];
  if (place.equals != 0) return;
  place = slot;
  if (++count * 2 > slots.size()) grow();
}

void ProfileIndex::grow() {
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
