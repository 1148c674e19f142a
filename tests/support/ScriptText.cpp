#include "ScriptText.h"

#include <algorithm>

#include "platform/ScriptChecksumComponent.h"
#include "scripts/Checksum.h"
#include "scripts/SetupOptions.h"
#include "text/Lines.h"
#include "text/Text.h"

namespace dialwright {

namespace {

/// Which section writes a key; their number for none.
std::size_t SectionOf(std::string_view key) {
  if (key.starts_with("ORDINAL_")) key.remove_prefix(8);
  if (key.starts_with("RECEIPT_")) return 4;
  for (std::size_t i = 0; i < keyPrefixes.size(); ++i)
    if (key.starts_with(keyPrefixes.at(i))) return i;
  const bool setup = std::ranges::any_of(
      SetupOptions(), [key](const SetupOption& option) { return option.key == key; });
  return setup ? ScriptText::sections - 1 : ScriptText::sections;
}

std::vector<std::string_view> LinesOf(std::string_view bytes) {
  std::vector<std::string_view> lines;
  for (LineReader reader(bytes); !reader.AtEnd();) lines.push_back(reader.Next());
  return lines;
}

}  // namespace

ScriptText::ScriptText(std::string_view bytes) {
  bool inside = false;
  for (const std::string_view line : LinesOf(bytes)) {
    if (line.starts_with('[')) inside = StartsWithIgnoringCase(line, "[MACROS]");
    const std::size_t equals = line.find('=');
    const std::string_view key = Trim(line.substr(0, equals));
    const std::size_t section =
        inside && equals != std::string_view::npos ? SectionOf(key) : sections;
    if (section < sections)
      keys.at(section).emplace(key, line.substr(equals + 1));
    else if (!IsChecksumLine(line) && !line.empty())  // blank lines may come to stand elsewhere
      others.emplace_back(line);
  }
}

bool ChecksumFits(std::string_view script) {
  const std::string wanted = "#CRC " + strChecksumText(ScriptChecksum(script));
  return std::ranges::all_of(LinesOf(script), [&](std::string_view line) {
    return !IsChecksumLine(line) || line == wanted;
  });
}

}  // namespace dialwright
