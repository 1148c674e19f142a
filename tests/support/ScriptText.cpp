#include "ScriptText.h"

#include <algorithm>

#include "platform/ScriptChecksumComponent.h"
#include "scripts/Checksum.h"
#include "text/Text.h"

namespace dialwright {

const std::array<std::string_view, ScriptText::sections - 1> keyPrefixes{
    "MENU_", "HEADER_", "BODY_", "FOOTER_", "MSGMENU_", "GLOBAL_"};

namespace {

constexpr std::string_view setupKeys[] = {"MAIN_GREETINGS", "MAIN_MESSAGESETTINGS",
                                          "MAIN_PERSONALSETTINGS", "MAIN_TRANSFERSETTINGS"};

/// Which section writes a key; their number for none.
std::size_t sectionOf(std::string_view key) {
  if (key.starts_with("ORDINAL_")) key.remove_prefix(8);
  if (key.starts_with("RECEIPT_")) return 4;
  if (key.starts_with("MESSAGESETTINGS_") ||
      std::ranges::find(setupKeys, key) != std::end(setupKeys))
    return ScriptText::sections - 1;
  const auto* prefix = std::ranges::find_if(
      keyPrefixes, [key](std::string_view start) { return key.starts_with(start); });
  return prefix == keyPrefixes.end() ? ScriptText::sections
                                     : static_cast<std::size_t>(prefix - keyPrefixes.begin());
}

/// Calls `use` with each line, without its line end.
template <class Use>
void forEachLine(std::string_view bytes, Use use) {
  while (!bytes.empty()) {
    const std::size_t end = std::min(bytes.find('\n'), bytes.size());
    std::string_view line = bytes.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    use(line);
    bytes.remove_prefix(std::min(end + 1, bytes.size()));
  }
}

}  // namespace

ScriptText::ScriptText(std::string_view bytes) {
  bool inside = false;
  forEachLine(bytes, [&](std::string_view line) {
    if (line.starts_with('[')) inside = StartsWithIgnoringCase(line, "[MACROS]");
    const std::size_t equals = line.find('=');
    const std::string key(Trim(line.substr(0, equals)));
    const std::size_t section =
        inside && equals != std::string_view::npos ? sectionOf(key) : sections;
    if (section < sections)
      keys.at(section).emplace(key, line.substr(equals + 1));
    else if (!IsChecksumLine(line) && !line.empty())  // blank lines may come to stand elsewhere
      others.emplace_back(line);
  });
}

bool ChecksumFits(std::string_view script) {
  const std::string wanted = "#CRC " + strChecksumText(scriptChecksum(script));
  bool fits = true;
  forEachLine(script, [&](std::string_view line) {
    fits = fits && (!IsChecksumLine(line) || line == wanted);
  });
  return fits;
}

}  // namespace dialwright
