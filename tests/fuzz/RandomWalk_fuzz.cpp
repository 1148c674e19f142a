// Plays random steps of a user at a whole program, chosen by the bytes, and looks at what always
// holds: a row has one token, once; voiced orders are 10, 20, 30, ...; a refused section's keys are
// untouched; nothing of a file changes but the keys of section MACROS and the checksum line; the
// derived lists are what their plain definition gives; all steps undone and done again show the
// form as it stood on the way there.

#include <algorithm>
#include <cstdio>
#include <map>
#include <set>

#include "Fuzz.h"
#include "ScriptText.h"
#include "scripts/SetupOptions.h"
#include "transcript/HeadlessUser.h"
#include "transcript/Views.h"

namespace {

constexpr const char* servers[] = {"merid-7.0-2.0", "merid-4.3-0.15", "merid-4.0-5.0",
                                   "tessel-1.1-0.0"};

/// What asks before it is done, without "mnu".
constexpr const char* questions[] = {"ResetKeysToStandardConversation",
                                     "ResetKeysToOptionalConversation1",
                                     "ResetKeysToAlternateKeyMappingN",
                                     "ResetKeysToAlternateKeyMappingS",
                                     "ResetKeysToAlternateKeyMappingX",
                                     "ResetKeysToVarloInternal",
                                     "SelectDialwright",
                                     "SelectDialwright2",
                                     "SelectDialwright3",
                                     "RestoreScripts"};

constexpr std::string_view texts[] = {"",  "1",  "2",   "3",  "12", "77",  "#",
                                      "*", "*1", "# *", "-5", "+5", "1E1", "999"};

/// What a save's refusal has in its first line, in the order in which the sections are written.
constexpr std::pair<std::string_view, std::size_t> refusals[] = {
    {" the main menu", 0},        {"message locator feature", 0}, {"message header menu", 1},
    {"message body menu", 2},     {"message footer menu", 3},     {"after message menu", 4},
    {"the global commands: ", 5},
};

constexpr std::size_t noSection = ScriptText::sections;

/// The lists that a save derives from the keys of a grid, by their plain definition, by name behind
/// the prefix.
ScriptText::Keys plainLists(const KeyGrid& grid, std::size_t index) {
  std::string used, inactive, doubles, extended, ending = "ABCD";
  const auto list = [](std::string& keys, const std::string& key) {
    keys += (keys.empty() ? "" : ",") + key;
  };
  for (int row = 1; row < grid.Rows(); ++row) {
    const std::string& key = grid.Text(row, Column::KeyAssignment);
    const std::string& token = grid.Text(row, Column::ActionToken);
    if (key.empty()) continue;
    used += key[0];
    if (key.size() == 2) list(extended, key);
    if (key.size() == 2 && key[0] == key[1]) list(doubles, key.substr(1));
    bool inPlace = false;
    for (const char* part : {"_SLOWDOWN", "_SPEEDUP", "_PAUSE", "_VOLUME"})
      inPlace = inPlace || token.find(part) != std::string::npos;
    if (key.size() <= 2 && !inPlace && ending.find(key[0]) == std::string::npos)
      ending.insert(0, 1, key[0]);
  }
  for (const char key : std::string_view("1234567890*#"))
    if (used.find(key) == std::string::npos) inactive += key;
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

/// The files of a server, with little of what stands in the scripts behind the keys.
Files smallServer(const std::string& name) {
  static std::map<std::string, Files> servers;
  Files& files = servers[name];
  if (!files.empty()) return files;
  files = ServerFiles(name);
  for (auto& [path, text] : files)
    if (const std::size_t at = text.find("[SCRIPT]"); at != std::string::npos)
      text.erase(at + 200, text.size() - at - 300);
  return files;
}

class Walk {
 public:
  explicit Walk(std::string_view allBytes) : bytes(allBytes) {}

  void Run() {
    desk.Start();
    checkFiles(0);
    checkGrids();
    for (int steps = 0; !bytes.empty() && steps < 50; ++steps) {
      const int tab = form.SSTab1.Tab();
      const std::string before = Picture();
      const bool typed = IsTyped();
      const bool ofMenu = Step(tab);
      NoteEntries(before, typed, ofMenu);
      if (tab < gridCount) checkGrid(static_cast<std::size_t>(tab));
    }
    checkGrids();
    WalkBackAndForth();
  }

 private:
  [[noreturn]] void Fail(const std::string& what) {
    std::fprintf(stderr, "%s on %s\n%s", what.c_str(), server.c_str(), played.c_str());
    std::abort();
  }

  std::size_t next(std::size_t count) {
    if (bytes.empty()) return 0;
    const std::size_t value = static_cast<unsigned char>(bytes.front());
    bytes.remove_prefix(1);
    return value % count;
  }
  int number(std::size_t count) { return static_cast<int>(next(count)); }

  /// Notes a step, as a transcript has it.
  void Did(const std::string& words) { played += "> " + words + "\n"; }

  /// All that taking back puts back.
  std::string Picture() const {
    std::string picture = "tab " + std::to_string(form.SSTab1.Tab()) + "\n";
    Printer lines;
    for (int grid = 0; grid < gridCount; ++grid) {
      ShowGrid(desk.program, grid, true, lines);
      ShowEdit(desk.program, grid, lines);
    }
    for (const SetupOption& option : SetupOptions())
      lines.Line(std::to_string((form.*option.box).Value()) +
                 ((form.*option.box).Enabled ? " on" : " off"));
    for (const std::string& line : lines.lines) picture += line + "\n";
    return picture;
  }

  bool IsTyped() const { return std::ranges::any_of(form.txtKeyAssignment, &EditBox::Typed); }

  /// Keeps how the form stood right before and right behind each entry of the history; nothing
  /// where that was in the middle of a step, as behind a text that another step has left.
  void NoteEntries(const std::string& before, bool typed, bool ofMenu) {
    const bool left = typed && !IsTyped() && !ofMenu;
    if (loads != form.loads) {
      entries.clear();
      hasSaved = false;
    }
    loads = form.loads;
    const std::size_t depth = user.Steps().Depth();
    if (!entries.empty() && entries.back().isTyping) {
      if (left) entries.back().after.clear();
      if (typed && IsTyped() && !ofMenu && depth == entries.size())
        entries.back().after = Picture();
      entries.back().isTyping = IsTyped();
    }
    if (!typed) typingStart = before;
    if (ofMenu && depth > entries.size()) typingStart = Picture();
    const bool typesOn = typed && IsTyped() && !ofMenu;
    while (entries.size() > depth) entries.pop_back();
    while (entries.size() < depth)
      entries.push_back(
          left || entries.size() + 1 < depth
              ? Entry{}
              : Entry{typesOn ? typingStart : before, Picture(), IsTyped() && !ofMenu});
  }

  /// Undoes all that can be undone and does it again: the form stands as it stood on the way there,
  /// and nothing is written.
  void WalkBackAndForth() {
    const Files files = store.All();
    const std::vector<Change> changes = user.Steps().Changes();
    const bool isUndone = user.Steps().Depth() > 0;
    while (user.Undo() == Outcome::done) {
      const std::size_t depth = user.Steps().Depth();
      Did("undo");
      if (!entries.at(depth).before.empty() && entries.at(depth).before != Picture())
        Fail("not as it was:\n" + entries.at(depth).before + "but\n" + Picture());
    }
    if (!hasSaved && (!user.Steps().Changes().empty() || (isUndone && form.cmdSave.Enabled)))
      Fail("changes after all was taken back");
    while (user.Redo() == Outcome::done) {
      const std::size_t depth = user.Steps().Depth();
      Did("redo");
      if (!entries.at(depth - 1).after.empty() && entries.at(depth - 1).after != Picture())
        Fail("not as it became:\n" + entries.at(depth - 1).after + "but\n" + Picture());
    }
    if (user.Steps().Changes() != changes) Fail("other changes after all was done again");
    if (store.All() != files) Fail("written by taking back");
  }

  /// Returns whether the step was a pick of a menu item, which does not leave a box.
  bool Step(int tab) {
    const std::size_t kind = next(17);
    if (kind < 2) {
      const int to = number(7);
      Did("tab " + std::to_string(to));
      user.Tab(to);
    } else if (kind < 4) {
      const int grid = tab < gridCount ? tab : 0;
      const int row = number(40);
      Did("row " + std::to_string(grid) + " " + std::to_string(row));
      user.Row(grid, row);
    } else if (kind < 8) {
      const bool all = kind < 7;
      const std::string text =
          all ? std::string(texts[next(std::size(texts))]) : std::to_string(next(10));
      Did((all ? "type \"" : "add \"") + text + "\"");
      user.Type(text, all);
    } else if (kind == 8) {
      Did("leave");
      user.Leave();
    } else if (kind == 9) {
      const bool up = next(2) == 0;
      Did(up ? "spin up" : "spin down");
      user.Spin(up);
    } else if (kind < 12) {
      const SetupOption& option = SetupOptions()[next(SetupOptions().size())];
      const CheckBox* boxes[] = {&(form.*option.box), &form.chkGenerateHelp, &form.chkGeneratePDF};
      const std::string name = kind == 11 ? boxes[next(std::size(boxes))]->Name
                                          : "chkDontVoiceAction(" + std::to_string(tab) + ")";
      const int value = number(2);
      Did("set " + name + " " + std::to_string(value));
      user.Set(name, value);
    } else if (kind < 14) {
      const bool yes = next(3) != 0;
      const std::string name = std::string("mnu") + questions[next(std::size(questions))];
      Did((yes ? "answer Yes\n> click " : "answer No\n> click ") + name);
      desk.messages.answers.assign(3, yes ? MsgBoxAnswer::Yes : MsgBoxAnswer::No);
      user.Click(name);
      firstTokens.clear();                                      // other keys, other rows
      checkFiles(name == "mnuRestoreScripts" ? noSection : 0);  // the others write nothing
      checkGrids();
      return true;
    } else if (kind == 16) {
      Did("revert");
      user.Revert();
      return true;
    } else if (form.cmdSave.Enabled) {
      Did("answer Yes\n> click cmdSave");
      save();
    }
    return false;
  }

  void save() {
    hasSaved = true;
    desk.messages.answers = {MsgBoxAnswer::Yes};
    desk.printer.lines.clear();
    // The edit box may keep the focus.
    if (user.Click("cmdSave") != Outcome::done) return checkFiles(0);
    std::size_t refused = noSection;
    bool saved = form.chkGenerateHelp.Value() != 0 || form.chkGeneratePDF.Value() != 0;
    for (const std::string& line : desk.printer.lines) {
      if (line.starts_with("error:")) Fail(line);
      saved = saved || line == "msgbox OK \"Custom conversation key mappings updated.\"";
      for (const auto& [text, section] : refusals)
        if (line.find(text) != std::string::npos) refused = section;
    }
    checkFiles(refused);
    if (refused != noSection) return;
    if (!saved) Fail("neither refused nor saved");
    for (std::size_t i = 0; i < 5; ++i)
      checkLists(i, LowerCase(i == 0 ? form.strMainMenuScript : form.strMessagePlaybackScript));
  }

  /// With several slots the lists are blanked.
  void checkLists(std::size_t grid, const std::string& path) {
    const auto& keys = script(path).keys.at(grid);
    for (const auto& [name, value] : plainLists(form.gridKeyMap.at(grid), grid)) {
      const std::string key = std::string(keyPrefixes.at(grid)) + name;
      const auto found = keys.find(key);
      const std::string wanted = "\"" + (form.bSingleKeyMap != 0 ? value : "") + "\"";
      if (found == keys.end() || Trim(found->second) != wanted) Fail(key + " is not " + wanted);
    }
  }

  /// A script as it was seen last, gone through line by line once.
  const ScriptText& script(const std::string& path) {
    return parsed.try_emplace(path, seen.at(path)).first->second;
  }

  /// Looks at the scripts that have changed since the last time. The keys of a section that was
  /// refused, and of those behind it, may not have.
  void checkFiles(std::size_t refused) {
    const std::string folder = LowerCase(desk.program.server.strGetScriptPath());
    for (const std::string& name : store.FileNames(folder)) {
      const std::string path = folder + name;
      if (store.Bytes(path) == seen.at(path)) continue;
      const ScriptText old = script(path);
      seen.at(path) = store.Bytes(path);
      parsed.erase(path);
      if (script(path).others != old.others) Fail("changed outside the keys: " + path);
      for (std::size_t i = refused; i < noSection; ++i)
        if (script(path).keys.at(i) != old.keys.at(i)) Fail("a refused section is written");
    }
  }

  void checkGrids() {
    for (std::size_t i = 0; i < gridCount; ++i) checkGrid(i);
  }

  void checkGrid(std::size_t index) {
    const KeyGrid& grid = form.gridKeyMap.at(index);
    std::set<std::string> tokens;
    bool voiced = true;
    for (int row = 1; row < grid.Rows(); ++row) {
      const std::string& token = grid.Text(row, Column::ActionToken);
      if (token.empty() || !tokens.insert(token).second) Fail("twice: token " + token);
      if (index >= 1 && index <= 3) continue;
      const std::string& order = grid.Text(row, Column::Order);
      voiced = voiced && order != "99999";
      if (order != (voiced ? std::to_string(row * 10) : "99999"))
        Fail("order " + order + " in grid " + std::to_string(index));
    }
    if (tokens != firstTokens.try_emplace(index, tokens).first->second) Fail("other tokens");
  }

  std::string_view bytes;
  const std::string server = servers[next(std::size(servers))];
  MemoryFileStore store{smallServer(server)};
  Files seen = store.All();
  Desk desk{store, server};
  frmMain& form = desk.Form();
  HeadlessUser user{desk.program};
  std::string played;
  std::map<std::string, ScriptText> parsed;
  std::map<std::size_t, std::set<std::string>> firstTokens;

  struct Entry {
    std::string before, after;
    bool isTyping = false;  ///< in a box that is not left yet
  };
  std::vector<Entry> entries;
  std::string typingStart;
  int loads = 0;
  bool hasSaved = false;  ///< since the last load
};

}  // namespace

void Check(const std::string& bytes) { Walk(bytes).Run(); }
