#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "text/Text.h"

namespace dialwright {

/// The profile's rules in their plainest form: line by line over the whole text, each time anew.
/// What the fast one does must be what this one says.
class ProfileModel {
 public:
  explicit ProfileModel(std::string_view text) {
    understood = !text.starts_with("\xFF\xFE") && !text.starts_with("\xFE\xFF");
    while (!text.empty()) {
      const std::size_t length = std::min(text.find_first_of("\r\n"), text.size());
      const std::string_view end = text.substr(length, text.substr(length, 2) == "\r\n" ? 2 : 1);
      lines.push_back({std::string(text.substr(0, length)), std::string(end)});
      text.remove_prefix(length + end.size());
    }
  }

  std::string text() const {
    std::string all;
    for (const Line& line : lines) all += line.text + line.end;
    return all;
  }

  /// What stands behind the equals sign.
  std::optional<std::string> value(std::string_view section, std::string_view key) const {
    const std::optional<std::size_t> line = findKey(section, trim(key));
    if (!line) return std::nullopt;
    return lines[*line].text.substr(lines[*line].text.find('=') + 1);
  }

  /// A key without line ends, "=" or "[", a section without line ends or "]", a value without line
  /// ends. Returns whether it could be written.
  bool set(std::string_view section, std::string_view key, std::string_view value) {
    if (!understood || trim(key).empty()) return false;
    if (const std::optional<std::size_t> line = findKey(section, trim(key))) {
      std::string& text = lines[*line].text;
      text = text.substr(0, text.find('=') + 1) + std::string(value);
      return true;
    }
    const std::string usualEnd = lineEnd();
    std::optional<std::size_t> place = findSection(section);
    if (!place) {
      if (!lines.empty() && lines.back().end.empty()) lines.back().end = usualEnd;
      lines.push_back({"[" + std::string(section) + "]", usualEnd});
      place = lines.size() - 1;
    }
    for (std::size_t i = *place + 1; i < lines.size() && !heading(lines[i].text); ++i)
      if (!trim(lines[i].text).empty()) place = i;
    if (lines[*place].end.empty()) lines[*place].end = usualEnd;
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(*place) + 1,
                 {std::string(trim(key)) + "=" + std::string(value), usualEnd});
    return true;
  }

  static std::string_view trim(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
    return text;
  }

 private:
  struct Line {
    std::string text, end;
  };

  static std::optional<std::string_view> heading(std::string_view line) {
    line = trim(line);
    const std::size_t close = line.find(']');
    if (!line.starts_with('[') || close == std::string_view::npos) return std::nullopt;
    return line.substr(1, close - 1);
  }

  std::string lineEnd() const {
    for (const Line& line : lines)
      if (line.end.ends_with('\n')) return line.end;
    return lines.empty() || lines[0].end.empty() ? "\r\n" : lines[0].end;
  }

  std::optional<std::size_t> findSection(std::string_view section) const {
    for (std::size_t i = 0; i < lines.size(); ++i)
      if (const auto name = heading(lines[i].text); name && EqualsIgnoringCase(*name, section))
        return i;
    return std::nullopt;
  }

  std::optional<std::size_t> findKey(std::string_view section, std::string_view key) const {
    const std::optional<std::size_t> start = findSection(section);
    if (!understood || !start) return std::nullopt;
    for (std::size_t i = *start + 1; i < lines.size() && !heading(lines[i].text); ++i) {
      const std::string_view line = lines[i].text;
      const std::size_t equals = line.find('=');
      if (equals == std::string::npos || key.empty()) continue;
      if (EqualsIgnoringCase(trim(line.substr(0, equals)), key)) return i;
    }
    return std::nullopt;
  }

  std::vector<Line> lines;
  bool understood = true;
};

}  // namespace dialwright
