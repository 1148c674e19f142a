#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace dialwright {

/// A script as somebody sees it who goes through it line by line: the keys that a save writes, by
/// the section of the save that writes them, and all the other lines, checksum lines left out.
struct ScriptText {
  using Keys = std::map<std::string, std::string>;
  static constexpr std::size_t sections = 7;  ///< main, header, body, footer, after, globals, setup

  explicit ScriptText(std::string_view bytes);

  std::vector<std::string> others;
  std::array<Keys, sections> keys;  ///< the first of each name
};

/// What begins the names of a section's keys, setup excepted.
inline constexpr std::array<std::string_view, ScriptText::sections - 1> keyPrefixes{
    "MENU_", "HEADER_", "BODY_", "FOOTER_", "MSGMENU_", "GLOBAL_"};

/// Whether every checksum line fits the rest of the file.
bool ChecksumFits(std::string_view script);

}  // namespace dialwright
