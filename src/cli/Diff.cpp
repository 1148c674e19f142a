#include <nlohmann/json.hpp>
#include <ostream>

#include "beside/Changes.h"
#include "beside/KeyMapContent.h"
#include "cli/Commands.h"
#include "cli/KeyMapSource.h"
#include "scripts/SetupOptions.h"

namespace dialwright {

namespace {

using nlohmann::ordered_json;

std::string Quoted(const std::string& text) { return '"' + text + '"'; }

/// A change as the steps of a transcript tell it, the menu by its name.
void Print(const Change& change, std::ostream& out) {
  if (change.kind == Change::Kind::box) {
    out << SetupOptions()[change.option].name << ' ' << change.before << ' ' << change.now << '\n';
    return;
  }
  out << At(menuNames, change.grid);
  if (!change.token.empty()) out << ' ' << change.token;
  switch (change.kind) {
    case Change::Kind::key:
      out << " key " << Quoted(change.before) << ' ' << Quoted(change.now);
      break;
    case Change::Kind::voiced:
      out << " voiced";
      break;
    case Change::Kind::silent:
      out << " silent";
      break;
    case Change::Kind::order:
      out << " order";
      break;
    case Change::Kind::box:
      break;
  }
  out << '\n';
}

ordered_json ToJson(const Change& change) {
  if (change.kind == Change::Kind::box)
    return {{"box", SetupOptions()[change.option].name},
            {"before", change.before == "1"},
            {"now", change.now == "1"}};
  ordered_json object = {{"menu", At(menuNames, change.grid)}};
  if (!change.token.empty()) object["action"] = change.token;
  switch (change.kind) {
    case Change::Kind::key:
      object["change"] = "key";
      object["before"] = change.before;
      object["now"] = change.now;
      break;
    case Change::Kind::voiced:
    case Change::Kind::silent:
      object["change"] = change.kind == Change::Kind::voiced ? "voiced" : "silent";
      break;
    case Change::Kind::order:
    case Change::Kind::box:
      object["change"] = "order";
      break;
  }
  return object;
}

}  // namespace

ExitCode Diff(const Command& command, const Terminal& terminal) {
  const KeyMap before = KeyMapFrom(command.first, terminal.words);
  const KeyMap now = KeyMapFrom(command.second, terminal.words);
  const std::vector<Change> changes =
      ChangesBetween(ContentOf(before, now), ContentOf(now, before));
  if (command.json) {
    ordered_json list = ordered_json::array();
    for (const Change& change : changes) list.push_back(ToJson(change));
    const ordered_json object = {{"changes", std::move(list)}};
    terminal.results << object.dump(2, ' ', false, ordered_json::error_handler_t::replace) << '\n';
  } else {
    for (const Change& change : changes) Print(change, terminal.results);
  }
  return changes.empty() ? ExitCode::done : ExitCode::found;
}

}  // namespace dialwright
