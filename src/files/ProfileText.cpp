#include "files/ProfileText.h"

#include <algorithm>

#include "text/Lines.h"
#include "text/Text.h"

namespace dialwright {
namespace {

bool HasLineEnd(std::string_view text) {
  return text.find_first_of("\r\n") != std::string_view::npos;
}

bool IsSectionName(std::string_view name) {
  return !HasLineEnd(name) && name.find(']') == std::string_view::npos;
}

// A line that begins with a bracket could become a heading by its value.
bool IsKeyName(std::string_view key) {
  return !key.empty() && !HasLineEnd(key) && key.find('=') == std::string_view::npos &&
         !key.starts_with('[');
}

// A piece of the old text that gives way to a new one.
struct Edit {
  std::size_t begin;
  std::size_t end;
  std::string text;
};

void AppendLines(std::string& out, const std::vector<std::pair<std::string, std::string>>& added,
                 std::string_view lineEnd) {
  for (const auto& [key, value] : added) out.append(key).append("=").append(value).append(lineEnd);
}

// The end of new lines where `rest` follows them. A carriage return right before a blank line's
// line feed would make one line end of two.
std::string EndBefore(std::string_view rest, const std::string& lineEnd) {
  const std::string_view behind = rest.substr(std::min(rest.find_first_not_of('\r'), rest.size()));
  return lineEnd == "\r" && behind.starts_with('\n') ? "\r\n" : lineEnd;
}

bool EndsLine(std::string_view text) {
  return text.empty() || text.back() == '\r' || text.back() == '\n';
}

}  // namespace

ProfileText::ProfileText(std::string fileBytes)
    : bytes(std::move(fileBytes)), understood(!IsUtf16(bytes)) {}

std::optional<std::string_view> ProfileText::Value(std::string_view section, std::string_view key) {
  if (!understood) return std::nullopt;
  return ValueAt(Look(Find(section), TrimBlanksAndTabs(key)));
}

bool ProfileText::Set(std::string_view sectionName, std::string_view keyName,
                      std::string_view value) {
  const std::string_view key = TrimBlanksAndTabs(keyName);
  if (!understood || !IsKeyName(key)) return false;
  Section& section = Find(sectionName);
  const Place place = Look(section, key);
  if (ValueAt(place) == value) return true;
  if (!IsSectionName(sectionName)) return false;

  if (place.begin) {
    values[*place.begin] = value;
  } else if (place.added != nullptr) {
    place.added->second = value;
  } else {
    if (!section.lines && section.added.empty()) newSections.emplace_back(sectionName);
    section.added.emplace_back(key, value);
  }
  differs = true;
  pending = true;
  // Such a value is more than one line, and what those are is only known once they stand there.
  if (HasLineEnd(value)) Merge();
  return true;
}

const std::string& ProfileText::Text() {
  Merge();
  return bytes;
}

ProfileText::Section& ProfileText::Find(std::string_view name) {
  std::string folded = LowerCase(name);
  const auto known = sections.find(folded);
  if (known != sections.end()) return known->second;
  Section& section = sections[std::move(folded)];
  section.lines = FindSection(bytes, name);
  if (section.lines) section.index.emplace(bytes, *section.lines);
  return section;
}

ProfileText::Place ProfileText::Look(Section& section, std::string_view key) {
  if (section.index) {
    if (const std::optional<std::size_t> begin = section.index->Find(key)) return {begin};
  }
  for (auto& line : section.added) {
    if (EqualsIgnoringCase(line.first, key)) return {std::nullopt, &line};
  }
  return {};
}

std::optional<std::string_view> ProfileText::ValueAt(const Place& place) const {
  if (place.added != nullptr) return place.added->second;
  if (!place.begin) return std::nullopt;
  const auto changed = values.find(*place.begin);
  if (changed != values.end()) return changed->second;
  return std::string_view(bytes).substr(*place.begin, LineEnd(bytes, *place.begin) - *place.begin);
}

void ProfileText::Merge() {
  if (!pending) return;
  const std::string lineEnd(FirstLineEnd(bytes));
  std::vector<Edit> edits;
  for (auto& [begin, value] : values) {
    edits.push_back({begin, LineEnd(bytes, begin), std::move(value)});
  }
  for (const auto& [name, section] : sections) {
    if (!section.lines || section.added.empty()) continue;
    const std::size_t place = EndOfWrittenLines(bytes, *section.lines);
    const std::string newEnd = EndBefore(std::string_view(bytes).substr(place), lineEnd);
    Edit edit{place, place, EndsLine(std::string_view(bytes).substr(0, place)) ? "" : lineEnd};
    AppendLines(edit.text, section.added, newEnd);
    edits.push_back(std::move(edit));
  }
  // Stable, as a last line may end where both its new value and a new line begin.
  std::stable_sort(edits.begin(), edits.end(),
                   [](const Edit& a, const Edit& b) { return a.begin < b.begin; });

  std::string merged;
  std::size_t length = bytes.size();
  for (const Edit& edit : edits) length += edit.text.size();
  merged.reserve(length);
  std::size_t done = 0;
  for (const Edit& edit : edits) {
    merged.append(bytes, done, edit.begin - done).append(edit.text);
    done = edit.end;
  }
  merged.append(bytes, done, bytes.size() - done);
  for (const std::string& name : newSections) {
    if (!EndsLine(merged)) merged.append(lineEnd);
    merged.append("[").append(name).append("]").append(lineEnd);
    AppendLines(merged, sections.find(LowerCase(name))->second.added, lineEnd);
  }

  bytes = std::move(merged);
  values.clear();
  newSections.clear();
  sections.clear();
  pending = false;
}

}  // namespace dialwright
