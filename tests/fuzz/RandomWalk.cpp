#include "RandomWalk.h"

#include <algorithm>
#include <map>
#include <set>
#include <vector>

#include "ScriptText.h"
#include "keymap/Catalogue.h"
#include "transcript/HeadlessUser.h"
#include "transcript/Player.h"
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

constexpr std::size_t noSection = ScriptText::sections;

/// The lists that a save derives from the keys of one grid, by their plain definition, by name
/// behind the prefix.
std::map<std::string, std::string> plainLists(const KeyGrid& grid, int index) {
  constexpr std::string_view inPlace[] = {"_SLOWDOWN", "_SPEEDUP", "_PAUSE", "_VOLUME"};
  std::string inactive;
  std::string doubles;
  std::string extended;
  std::string ending = "ABCD";
  std::set<char> active;
  const auto list = [](std::string& keys, const std::string& key) {
    keys.append(keys.empty() ? "" : ",").append(key);
  };
  for (int row = 1; row < grid.Rows(); ++row) {
    const std::string& key = grid.Text(row, Column::KeyAssignment);
    const std::string& token = grid.Text(row, Column::ActionToken);
    if (key.empty()) continue;
    active.insert(key[0]);
    if (key.size() == 2) list(extended, key);
    if (key.size() == 2 && key[0] == key[1]) list(doubles, key.substr(1));
    const bool stays = std::ranges::any_of(
        inPlace, [&](std::string_view part) { return token.find(part) != std::string::npos; });
    if (key.size() <= 2 && !stays && ending.find(key[0]) == std::string::npos)
      ending.insert(0, 1, key[0]);
  }
  for (const char key : std::string_view("1234567890*#"))
    if (!active.contains(key)) inactive += key;
  if (index == 0)
    return {{"INACTIVE_KEYS", inactive},
            {"SHORTCUT_IGNORE_KEYS", inactive + "ABCD"},
            {"EXTENDED_DOUBLE_TT_KEYS", extended}};
  if (index == 4)
    return {{"DOUBLE_KEYS", doubles},
            {"EXTENDED_DOUBLE_KEYS", extended},
            {"INACTIVE_KEYS", inactive},
            {"SHORTCUT_IGNORE_KEYS", "ABCD"}};
  return {{"DOUBLE_KEYS", doubles},
          {"EXTENDED_DOUBLE_KEYS", extended},
          {"IGNORE_KEYS", ""},
          {"INVALID_KEYS", ""},
          {"TERMINATE_PLAYBACK_KEYS", ending + inactive}};
}

bool isKnown(int grid, const std::string& token) {
  if (grid == 0) return FindAction(MainMenuActions(), token) != nullptr;
  if (grid == 4) return FindAction(AfterMessageActions(), token) != nullptr;
  if (grid == 5) return FindAction(GlobalActions(), token) != nullptr;
  return FindAction(PlaybackActions(), token, keyPrefixes.at(static_cast<std::size_t>(grid))) !=
         nullptr;
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
        const CheckBox* boxes[] = {&(form.*option.box), &form.chkGenerateHelp,
                                   &form.chkGeneratePDF};
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
        ask("click " + name);
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
    std::size_t refused = noSection;
    for (const std::string& line : printed)
      for (const Refusal& refusal : refusals)
        if (line.starts_with("msgbox OK \"" + std::string(refusal.text))) refused = refusal.section;
    for (const auto& [path, script] : after) {
      if (script.others != first[path]) fail("changed outside the keys: " + path);
      for (std::size_t i = refused; i < noSection; ++i)
        if (script.keys.at(i) != before.at(path).keys.at(i)) fail("a refused section is written");
    }
    if (refused != noSection) return;
    if (std::ranges::none_of(printed, [](const auto& l) { return l.starts_with("component"); }))
      fail("neither refused nor saved");
    for (const int i : {0, 1, 2, 3, 4})
      checkLists(i,
                 after.at(nameOf(i == 0 ? form.strMainMenuScript : form.strMessagePlaybackScript)));
  }

  /// With several slots the lists are blanked.
  void checkLists(int grid, const ScriptText& script) {
    const auto section = static_cast<std::size_t>(grid);
    for (const auto& [name, value] : plainLists(At(form.gridKeyMap, grid), grid)) {
      std::string key = std::string(keyPrefixes.at(section)) + name;
      const auto found = script.keys.at(section).find(key);
      const std::string wanted = "\"" + (form.bSingleKeyMap != 0 ? value : "") + "\"";
      if (found == script.keys.at(section).end() || Trim(found->second) != wanted)
        fail(key.append(" is not ").append(wanted));
    }
  }

  std::map<std::string, ScriptText> scripts() {
    std::map<std::string, ScriptText> found;
    const std::string folder = world.program.server.strGetScriptPath();
    for (const std::string& name : world.disk.fileNames(folder))
      found.emplace(name, ScriptText(world.disk.read(folder + name)));
    return found;
  }

  void checkGrids() {
    for (int i = 0; i < gridCount; ++i) {
      const KeyGrid& grid = At(form.gridKeyMap, i);
      const auto failHere = [this, i](std::string what, const std::string& text) {
        fail(what.append(text).append(" in grid ").append(std::to_string(i)));
      };
      std::set<std::string> tokens;
      bool voiced = true;
      for (int row = 1; row < grid.Rows(); ++row) {
        const std::string& token = grid.Text(row, Column::ActionToken);
        if (!tokens.insert(token).second) failHere("twice: ", token);
        if (!isKnown(i, token)) failHere("no token: ", token);
        if (i >= 1 && i <= 3) continue;
        const std::string& order = grid.Text(row, Column::Order);
        voiced = voiced && order != "99999";
        if (order != (voiced ? std::to_string(row * 10) : "99999")) failHere("order ", order);
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
  std::string wrong;
};

}  // namespace

std::string WalkAtRandom(std::span<const std::uint8_t> bytes) { return Walk(bytes).run(); }

}  // namespace dialwright
