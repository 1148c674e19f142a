#include "beside/KeyMapFile.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <set>

#include "scripts/SetupOptions.h"
#include "text/Text.h"

namespace dialwright {

namespace {

using nlohmann::json;

constexpr std::string_view formatName = "dialwright key map";
constexpr int formatVersion = 1;
/// As long as a key can be that the scripts hold between quotation marks.
constexpr std::size_t longestKey = 126;

enum FaultNumber {
  noJson = 1494,
  otherFormat = 1495,
  otherVersion = 1496,
  wrongType = 1497,
  badKey = 1498,
  longKey = 1499,
  actionTwice = 1500,
  tooLarge = 1501,
};

// Writing ----------------------------------------------------------------------------------------

std::string JsonText(std::string_view text) {
  return json(text).dump(-1, ' ', false, json::error_handler_t::replace);
}

std::string JsonText(bool value) { return value ? "true" : "false"; }

std::string RowText(const KeyMapRow& row) {
  std::string text = "      {\"action\": " + JsonText(row.action);
  if (row.key) text += ", \"key\": " + JsonText(*row.key);
  if (row.voiced) text += ", \"voiced\": " + JsonText(*row.voiced);
  return text + "}";
}

/// A menu with rows begins a line, and so does what stands behind one; empty ones share theirs.
std::string MenusText(const ControlArray<KeyMapMenu>& menus) {
  std::string text;
  bool fresh = true;
  for (int i = 0; i < gridCount; ++i) {
    const KeyMapMenu& menu = At(menus, i);
    if (i > 0) text += ",";
    text += fresh || !menu.empty() ? "\n    " : " ";
    text += JsonText(At(menuNames, i)) + ": [";
    for (const KeyMapRow& row : menu) text += (&row == &menu.front() ? "\n" : ",\n") + RowText(row);
    text += menu.empty() ? "]" : "\n    ]";
    fresh = !menu.empty();
  }
  return text;
}

std::string SetupText(const std::vector<KeyMapBox>& boxes) {
  std::string text;
  for (const KeyMapBox& box : boxes)
    text += (text.empty() ? "" : ", ") + JsonText(box.name) + ": " + JsonText(box.checked);
  return ",\n  \"setup\": {" + text + "}";
}

// Reading ----------------------------------------------------------------------------------------

/// Passes over a text and keeps the place at which it is no JSON.
struct PlaceFinder : nlohmann::json_sax<json> {
  bool null() override { return true; }
  bool boolean(bool) override { return true; }
  bool number_integer(number_integer_t) override { return true; }
  bool number_unsigned(number_unsigned_t) override { return true; }
  bool number_float(number_float_t, const string_t&) override { return true; }
  bool string(string_t&) override { return true; }
  bool binary(binary_t&) override { return true; }
  bool start_object(std::size_t) override { return true; }
  bool key(string_t&) override { return true; }
  bool end_object() override { return true; }
  bool start_array(std::size_t) override { return true; }
  bool end_array() override { return true; }
  bool parse_error(std::size_t position, const std::string&,
                   const nlohmann::detail::exception&) override {
    read = position;
    return false;
  }

  std::size_t read = 0;  ///< the number of bytes read, the one at fault included
};

KeyMapFault FaultAt(std::string_view bytes, std::size_t read) {
  const std::string_view before = bytes.substr(0, read == 0 ? 0 : read - 1);
  const auto lines = std::ranges::count(before, '\n');
  const std::string_view line = before.substr(before.rfind('\n') + 1);
  return {noJson, {std::to_string(lines + 1), std::to_string(CharacterCount(line) + 1)}};
}

json ParseJson(std::string_view bytes) {
  if (bytes.size() > longestKeyMapFile)
    throw KeyMapFault{tooLarge, {std::to_string(longestKeyMapFile >> 20)}};
  PlaceFinder places;
  if (!json::sax_parse(bytes, &places)) throw FaultAt(bytes, places.read);
  return json::parse(bytes);
}

/// An action in a menu, short enough for a message.
std::string Place(int grid, std::string_view action) {
  constexpr std::size_t longestShown = 60;
  std::string shown(FirstCharacters(action, longestShown));
  for (char& c : shown)
    if (static_cast<unsigned char>(c) < ' ') c = ' ';
  return std::string(At(menuNames, grid)) + ", " + shown;
}

/// The value of a name in an object, null if it is not there. `place` is where the object stands.
const json* Member(const json& object, const char* name, json::value_t type,
                   const std::string& place = {}) {
  const auto found = object.find(name);
  if (found == object.end()) return nullptr;
  if (found->type() != type)
    throw KeyMapFault{wrongType, {place.empty() ? name : place + ", " + name}};
  return &*found;
}

std::string StringMember(const json& object, const char* name) {
  const json* text = Member(object, name, json::value_t::string);
  return text == nullptr ? std::string() : text->get<std::string>();
}

void CheckFormat(const json& file) {
  const auto format = file.is_object() ? file.find("format") : file.end();
  if (!file.is_object() || format == file.end() || *format != formatName)
    throw KeyMapFault{otherFormat, {}};
  const auto version = file.find("version");
  if (version == file.end()) throw KeyMapFault{otherVersion, {"", std::to_string(formatVersion)}};
  if (!version->is_number()) throw KeyMapFault{wrongType, {"version"}};
  if (!version->is_number_integer() || *version != formatVersion)
    throw KeyMapFault{otherVersion, {version->dump(), std::to_string(formatVersion)}};
}

void CheckKey(const std::string& key, const std::string& place) {
  // Blanks and letters stand in old scripts too: a load takes them, and the findings tell.
  const auto isBad = [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte > 0x7E || c == '"';
  };
  if (std::ranges::any_of(key, isBad)) throw KeyMapFault{badKey, {place}};
  if (key.size() > longestKey) throw KeyMapFault{longKey, {place, std::to_string(longestKey)}};
}

KeyMapRow ParseRow(const json& entry, int grid, std::size_t number) {
  const std::string place = Place(grid, std::to_string(number));
  if (!entry.is_object()) throw KeyMapFault{wrongType, {place}};
  const json* action = Member(entry, "action", json::value_t::string, place);
  if (action == nullptr) throw KeyMapFault{wrongType, {place + ", action"}};
  KeyMapRow row{action->get<std::string>(), {}, {}};
  const std::string named = Place(grid, row.action);
  if (const json* key = Member(entry, "key", json::value_t::string, named)) {
    row.key = key->get<std::string>();
    CheckKey(*row.key, named);
  }
  if (Announces(grid))
    if (const json* voiced = Member(entry, "voiced", json::value_t::boolean, named))
      row.voiced = voiced->get<bool>();
  return row;
}

KeyMapMenu ParseMenu(const json& entries, int grid) {
  KeyMapMenu menu;
  std::set<std::string_view> seen;
  menu.reserve(entries.size());
  for (const json& entry : entries) {
    menu.push_back(ParseRow(entry, grid, menu.size() + 1));
    if (!seen.insert(menu.back().action).second)
      throw KeyMapFault{actionTwice, {Place(grid, menu.back().action)}};
  }
  return menu;
}

}  // namespace

std::string FaultText(Messages& strings, const KeyMapFault& fault) {
  std::string text = strings.mymyLoadString(fault.text);
  for (std::size_t i = 0; i < fault.words.size(); ++i)
    text = ReplaceAll(text, "%" + std::to_string(i + 1), fault.words[i]);
  return text;
}

std::string KeyMapText(const KeyMap& map) {
  return "{\n  \"format\": " + JsonText(formatName) +
         ",\n  \"version\": " + std::to_string(formatVersion) +
         ",\n  \"edition\": " + JsonText(map.edition) + ",\n  \"server\": " + JsonText(map.server) +
         ",\n  \"slot\": " + std::to_string(map.slot) + ",\n  \"menus\": {" + MenusText(map.menus) +
         "\n  }" + (map.setup ? SetupText(*map.setup) : "") + "\n}\n";
}

KeyMap ParseKeyMap(std::string_view bytes) {
  const json file = ParseJson(bytes);
  CheckFormat(file);
  KeyMap map;
  map.edition = StringMember(file, "edition");
  map.server = StringMember(file, "server");
  if (const auto slot = file.find("slot"); slot != file.end()) {
    if (!slot->is_number_integer()) throw KeyMapFault{wrongType, {"slot"}};
    map.slot = slot->get<int>();
  }
  if (const json* menus = Member(file, "menus", json::value_t::object))
    for (int i = 0; i < gridCount; ++i) {
      const std::string name(At(menuNames, i));
      if (const json* entries = Member(*menus, name.c_str(), json::value_t::array, "menus"))
        At(map.menus, i) = ParseMenu(*entries, i);
    }
  if (const json* setup = Member(file, "setup", json::value_t::object))
    for (const SetupOption& option : SetupOptions())
      if (const json* box = Member(*setup, option.name.data(), json::value_t::boolean, "setup")) {
        if (!map.setup) map.setup.emplace();
        map.setup->push_back({std::string(option.name), box->get<bool>()});
      }
  return map;
}

}  // namespace dialwright
