// Prints what the program knows of actions, setup options, page templates and English texts, as
// JSON, for the makers of templates and server images: they keep no copies.

#include "keymap/Catalogue.h"

#include <cstdio>
#include <functional>
#include <iostream>
#include <span>
#include <string>
#include <string_view>

#include "documents/HTMLKeyMap.h"
#include "documents/SetupMenuDocument.h"
#include "language/EnglishStrings.h"
#include "scripts/SetupOptions.h"

namespace {

using namespace dialwright;

std::string quoted(std::string_view text) {
  std::string json = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') json += '\\';
    if (static_cast<unsigned char>(c) >= ' ') {
      json += c;
    } else {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(c));
      json += escape;
    }
  }
  return json + '"';
}

std::string version(const Gate& gate) {
  return "[" + std::to_string(gate.iMajor) + ", " + std::to_string(gate.iMinor) + ", " +
         std::to_string(gate.iRelease) + ", " + std::to_string(gate.iBuild) + "]";
}

template <typename Row>
std::string rows(std::span<const Row> table, const std::function<std::string(const Row&)>& json) {
  std::string lines;
  for (const Row& row : table) lines += (lines.empty() ? "\n  " : ",\n  ") + json(row);
  return "[" + lines + "]";
}

std::string action(const Action& row) {
  return "{\"token\": " + quoted(row.name) + ", \"since\": " + version(row.gate) +
         ", \"notOnDomino\": " + (row.notOnDomino ? "true" : "false") +
         ", \"fixedOrder\": " + (row.order == OrderSource::fixed ? "true" : "false") +
         ", \"label\": " + std::to_string(row.label) +
         ", \"olderLabel\": " + std::to_string(row.olderLabel == 0 ? row.label : row.olderLabel) +
         "}";
}

std::string setupToken(const SetupMapping& row) { return quoted(row.token); }

}  // namespace

int main() {
  std::cout << "{\"main\": " << rows<Action>(MainMenuActions(), action)
            << ",\n\"playback\": " << rows<Action>(PlaybackActions(), action)
            << ",\n\"after\": " << rows<Action>(AfterMessageActions(), action)
            << ",\n\"globals\": " << rows<Action>(GlobalActions(), action) << ",\n\"prefixes\": "
            << rows<PlaybackSection>(PlaybackSections(),
                                     [](const auto& row) { return quoted(row.prefix); })
            << ",\n\"newerLabelsSince\": " << version(gotoForAllMessages) << ",\n\"setup\": "
            << rows<SetupOption>(SetupOptions(), [](const auto& row) { return quoted(row.key); })
            << ",\n\"setupDocumentSince\": " << version(setupSections)
            << ",\n\"setupMenu\": " << rows<SetupMapping>(SetupMenu(), setupToken)
            << ",\n\"messageSettingsMenu\": "
            << rows<SetupMapping>(MessageSettingsMenu(), setupToken) << ",\n\"templates\": "
            << rows<PageTemplate>(PageTemplates(),
                                  [](const auto& row) {
                                    return "{\"file\": " + quoted(row.name.substr(1)) +
                                           ", \"since\": " + version(row.since) + "}";
                                  })
            << ",\n\"strings\": "
            << rows<EnglishStringRow>(EnglishStrings(),
                                      [](const auto& row) {
                                        return "[" + std::to_string(row.number) + ", " +
                                               quoted(row.text) + "]";
                                      })
            << "}\n";
}
