#include "RandomWalk.h"

#include <algorithm>
#include <map>
#include <set>
#include <vector>

#include "keymap/Catalogue.h"
#include "runner/HeadlessUser.h"
#include "runner/Player.h"
#include "scripts/Checksum.h"
#include "scripts/SetupOptions.h"
#include "shell/frmMain.h"
#include "text/Text.h"

namespace dialwright {

namespace {

using Lines = std::vector<std::string>;

constexpr const char* servers[][2] = {{"merid 7.0(2.0)", "merid-7.0-2.0"},
                                      {"merid 5.0(0.30)", "merid-5.0-0.30"},
                                      {"merid 4.0(5.0)", "merid-4.0-5.0"},
                                      {"tessel 1.1(0.0)", "tessel-1.1-0.0"}};

constexpr const char* presets[] = {"StandardConversation", "OptionalConversation1",
                                   "AlternateKeyMappingN", "AlternateKeyMappingS",
                                   "AlternateKeyMappingX", "VarloInternal"};

constexpr std::string_view texts[] = {"",  "1",  "2",   "3",  "12", "77",  "#",
                                      "*", "*1", "# *", "-5", "+5", "1E1", "999"};

/// What a save's refusal begins with, in the order in which the sections are written.
struct Refusal {
  std::string_view text;
  std::size_t section;
};
constexpr Refusal refusals[] = {
    {"Duplicate key map for the main menu: ", 0},
    {"Invalid key assignement in the main menu.", 0},
    {"The key assigned to the message locator feature", 0},
    {"Duplicate key map for the message header menu: ", 1},
    {"Invalid key map for the message header menu.", 1},
    {"Duplicate key map for the message body menu: ", 2},
    {"Conflicting key map for the message body menu.", 2},
    {"Duplicate key map for the message footer menu: ", 3},
    {"Conflicting key map for the message footer menu.", 3},
    {"Duplicate key map for the after message menu: ", 4},
    {"Duplicate key map for the global commands: ", 5},
};

/// How the keys of the sections begin, in the same order; setup comes last.
constexpr std::string_view starts[][2] = {{"MENU_", "MENU_"},       {"HEADER_", "HEADER_"},
                                          {"BODY_", "BODY_"},       {"FOOTER_", "FOOTER_"},
                                          {"MSGMENU_", "RECEIPT_"}, {"GLOBAL_", "GLOBAL_"}};
constexpr std::size_t setupSection = std::size(starts);
constexpr std::size_t noSection = setupSection + 1;

std::size_t sectionOf(std::string_view key) {
  if (key.starts_with("ORDINAL_")) key.remove_prefix(8);
  for (const SetupOption& option : SetupOptions())
    if (key == option.key) return setupSection;
  for (std::size_t i = 0; i < std::size(starts); ++i)
    if (key.starts_with(starts[i][0]) || key.starts_with(starts[i][1])) return i;
  return noSection;
}

/// A script as whoever goes through it line by line sees it.
struct Script {
  Lines others;                                           ///< all that no save may change
  std::map<std::string, std::string> keys[noSection];     ///< of each section
};

Script taken(std::string_view bytes) {
  Script script;
  bool inside = false;
  while (!bytes.empty()) {
    const std::size_t end = std::min(bytes.find('\n'), bytes.size());
    std::string line(bytes.substr(0, end));
    bytes.remove_prefix(std::min(end + 1, bytes.size()));
    if (line.ends_with('\r')) line.pop_back();
    if (line.starts_with('[')) inside = line == "[MACROS]";
    const std::size_t equals = line.find('=');
    const std::string key(Trim(std::string_view(line).substr(0, equals)));
    const std::size_t section = inside && equals != std::string::npos ? sectionOf(key) : noSection;
    if (section != noSection)
      script.keys[section].emplace(key, Trim(std::string_view(line).substr(equals + 1)));
    else if (!IsChecksumLine(line))
      script.others.push_back(line);
  }
  // A save adds lines behind the last one of a section: blank lines may come to stand elsewhere.
  std::erase(script.others, "");
  return script;
}

class Walk {
 public:
  explicit Walk(std::span<const std::uint8_t> allBytes)
      : bytes(allBytes),
        player([](Program& program) { return std::make_unique<HeadlessUser>(program); }),
        world(player.TheWorld()),
        form(*world.program.main) {}

  std::string run() {
    const auto& server = servers[next(std::size(servers))];
    play(std::string("server ") + server[0]);
    play("copy \"sandbox/" + std::string(server[1]) + "/drive_c/Telhost\" \"C:\\Telhost\"");
    for (const char* name : {"Blank_Map_TemplatePre42.htm", "Blank_Map_Template_50.htm",
                             "SubMsgPlay_Alternate_Custom_Internal.cde"})
      play("copy \"program/" + std::string(name) + "\" \"C:\\Dialwright\\" + name + "\"");
    play("start");
    for (const auto& [path, script] : scripts()) first[path] = script.others;
    while (wrong.empty() && !bytes.empty() && steps.size() < 200) step();
    if (wrong.empty()) return {};
    std::string text = wrong + "\n";
    for (const std::string& each : steps) text += "> " + each + "\n";
    return text;
  }

 private:
  std::size_t next(std::size_t count) {
    if (bytes.empty()) return 0;
    const std::size_t value = bytes.front();
    bytes = bytes.subspan(1);
    return value % count;
  }
  std::string number(std::size_t count) { return std::to_string(next(count)); }

  void fail(const std::string& what) {
    if (wrong.empty()) wrong = what;
  }

  Lines play(const std::string& text) {
    steps.push_back(text);
    Step each;
    each.text = text;
    Lines printed = player.play(each);
    for (const std::string& line : printed)
      if (line.starts_with("error:")) fail(line);
    return printed;
  }

  /// A step that may ask something.
  void ask(const std::string& text) {
    world.messages.answers.clear();
    const std::string word = next(3) == 0 ? " No" : " Yes";
    play("answer" + word + word + word);
    play(text);
  }

  void step() {
    const std::string tab = std::to_string(form.SSTab1.Tab());
    switch (next(16)) {
      case 0:
      case 1:
        play("tab " + number(7));
        break;
      case 2:
      case 3:
        play("row " + (form.SSTab1.Tab() < gridCount ? tab : "0") + " " + number(40));
        break;
      case 4:
      case 5:
      case 6:
        play("type \"" + std::string(texts[next(std::size(texts))]) + "\"");
        break;
      case 7:
        play("add " + number(10));
        break;
      case 8:
        play("leave");
        break;
      case 9:
        play(next(2) == 0 ? "spin up" : "spin down");
        break;
      case 10:
        play("set chkDontVoiceAction(" + tab + ") " + number(2));
        break;
      case 11: {
        const SetupOption& option = SetupOptions()[next(SetupOptions().size())];
        const CheckBox* boxes[] = {&(form.*option.box), &form.chkGenerateHelp, &form.chkGeneratePDF};
        play("set " + boxes[next(std::size(boxes))]->Name + " " + number(2));
        break;
      }
      case 12:
        ask("click mnuResetKeysTo" + std::string(presets[next(std::size(presets))]));
        break;
      case 13: {
        constexpr const char* others[] = {"mnuSelectDialwright", "mnuSelectDialwright2",
                                          "mnuSelectDialwright3", "mnuRestoreScripts"};
        const std::string name = others[next(std::size(others))];
        if (name != "mnuRestoreScripts" || refusedSection == noSection) ask("click " + name);
        break;
      }
      default:
        save();
    }
    checkGrids();
  }

  void save() {
    if (!form.cmdSave.Enabled) return;
    const auto before = scripts();
    world.messages.answers.clear();
    play("answer Yes");
    const Lines printed = play("click cmdSave");
    if (form.cmdSave.Enabled) return;  // the edit box has kept the focus
    const auto after = scripts();
    refusedSection = noSection;
    for (const std::string& line : printed)
      for (const Refusal& refusal : refusals)
        if (line.starts_with("msgbox OK \"" + std::string(refusal.text)))
          refusedSection = refusal.section;
    for (const auto& [path, script] : after) {
      if (script.others != first[path]) fail("changed outside the keys: " + path);
      for (std::size_t i = refusedSection; i < noSection; ++i)
        if (script.keys[i] != before.at(path).keys[i]) fail("a refused section is written");
    }
    if (refusedSection != noSection) return;
    if (std::ranges::none_of(printed, [](const auto& l) { return l.starts_with("component"); })) {
      fail("neither refused nor saved");
      return;
    }
    checkLists(after);
  }

  std::map<std::string, Script> scripts() {
    std::map<std::string, Script> found;
    const std::string folder = world.program.server.strGetScriptPath();
    for (const std::string& name : world.disk.fileNames(folder))
      found[name] = taken(world.disk.read(folder + name));
    return found;
  }

  void checkGrids() {
    for (int i = 0; i < gridCount; ++i) {
      const KeyGrid& grid = At(form.gridKeyMap, i);
      std::set<std::string> tokens;
      int number = 10;
      bool voiced = true;
      for (int row = 1; row < grid.Rows(); ++row) {
        const std::string& token = grid.Text(row, Column::ActionToken);
        if (!tokens.insert(token).second) fail("twice in grid " + std::to_string(i) + ": " + token);
        if (!isKnown(i, token)) fail("no token of grid " + std::to_string(i) + ": " + token);
        if (i >= 1 && i <= 3) continue;
        const std::string& order = grid.Text(row, Column::Order);
        voiced = voiced && order != "99999";
        if (order != (voiced ? std::to_string(number) : "99999"))
          fail("order " + order + " in row " + std::to_string(row) + " of " + std::to_string(i));
        number += 10;
      }
    }
  }

  static bool isKnown(int grid, const std::string& token) {
    if (grid == 0) return FindAction(MainMenuActions(), token) != nullptr;
    if (grid == 4) return FindAction(AfterMessageActions(), token) != nullptr;
    if (grid == 5) return FindAction(GlobalActions(), token) != nullptr;
    return FindAction(PlaybackActions(), token, starts[grid][0]) != nullptr;
  }

  /// The lists of a saved file against what the keys in the same file make of them.
  void checkLists(const std::map<std::string, Script>& saved) {
    const bool single = form.bSingleKeyMap != 0;
    const Script& menu = saved.at(nameOf(form.strMainMenuScript));
    const Script& playback = saved.at(nameOf(form.strMessagePlaybackScript));
    for (const int i : {0, 1, 2, 3, 4}) {
      const auto section = static_cast<std::size_t>(i);
      const KeyGrid& grid = At(form.gridKeyMap, i);
      std::string inactive, doubles, extended, terminate;
      std::set<char> active, ending;
      for (int row = 1; row < grid.Rows(); ++row) {
        const std::string& key = grid.Text(row, Column::KeyAssignment);
        const std::string& token = grid.Text(row, Column::ActionToken);
        if (key.empty()) continue;
        active.insert(key[0]);
        if (key.size() == 2) extended += (extended.empty() ? "" : ",") + key;
        if (key.size() == 2 && key[0] == key[1]) doubles += (doubles.empty() ? "" : ",") + key.substr(1);
        const bool inPlace = std::ranges::any_of(
            std::initializer_list<std::string_view>{"_SLOWDOWN", "_SPEEDUP", "_PAUSE", "_VOLUME"},
            [&](std::string_view part) { return token.find(part) != std::string::npos; });
        if (key.size() <= 2 && !inPlace && ending.insert(key[0]).second) terminate = key[0] + terminate;
      }
      for (const char key : std::string_view("1234567890*#"))
        if (!active.contains(key)) inactive += key;
      const std::string prefix(starts[i][0]);
      std::map<std::string, std::string> wanted;
      if (i == 0)
        wanted = {{"INACTIVE_KEYS", inactive},
                  {"SHORTCUT_IGNORE_KEYS", inactive + "ABCD"},
                  {"EXTENDED_DOUBLE_TT_KEYS", extended}};
      else
        wanted = {{"DOUBLE_KEYS", doubles}, {"EXTENDED_DOUBLE_KEYS", extended}};
      if (i == 4) wanted.insert({{"INACTIVE_KEYS", inactive}, {"SHORTCUT_IGNORE_KEYS", "ABCD"}});
      if (i >= 1 && i <= 3)
        wanted.insert({{"TERMINATE_PLAYBACK_KEYS", terminate + "ABCD" + inactive},
                       {"IGNORE_KEYS", ""},
                       {"INVALID_KEYS", ""}});
      const auto& keys = (i == 0 ? menu : playback).keys[section];
      for (const auto& [name, value] : wanted) {
        const auto found = keys.find(prefix + name);
        if (found == keys.end() || found->second != "\"" + (single ? value : "") + "\"")
          fail(prefix + name + " is not \"" + value + "\"");
      }
    }
  }

  static std::string nameOf(const std::string& path) { return path.substr(path.rfind('\\') + 1); }

  std::span<const std::uint8_t> bytes;
  Player player;
  World& world;
  frmMain& form;
  Lines steps;
  std::map<std::string, Lines> first;
  std::size_t refusedSection = noSection;
  std::string wrong;
};

}  // namespace

std::string WalkAtRandom(std::span<const std::uint8_t> bytes) { return Walk(bytes).run(); }

}  // namespace dialwright
