#include "Player.h"

#include <charconv>
#include <utility>

#include "Views.h"
#include "WorldSteps.h"
#include "beside/KeyMapExchange.h"
#include "beside/Telephone.h"
#include "platform/Failure.h"
#include "shell/events/Lifecycle.h"
#include "shell/frmAbout.h"
#include "shell/frmMain.h"

namespace dialwright {

namespace {

int WholeNumber(const std::string& text) {
  int value = 0;
  const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (fault != std::errc() || end != text.data() + text.size())
    throw TranscriptError{"not a whole number: " + text};
  return value;
}

bool IsNumber(const std::string& text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

int GridNumber(const std::string& text) {
  const int grid = WholeNumber(text);
  if (grid < 0 || grid >= gridCount) throw TranscriptError{"no such grid: " + text};
  return grid;
}

char TelephoneKey(const std::string& text) {
  if (text.size() != 1 || telephoneKeys.find(text) == std::string_view::npos)
    throw TranscriptError{"no key of a telephone: " + text};
  return text.front();
}

}  // namespace

/// One word of the language. Those that take words throw TranscriptError for too few of them.
struct Player::Verb {
  std::string_view name;
  std::size_t fewestWords;
  void (*play)(Player& player, const Words& words, const std::vector<std::string>& given);
};

const Player::Verb* Player::Find(const std::string& name) {
  using Given = std::vector<std::string>;
  static constexpr Verb verbs[] = {
      {"server", 3, [](Player& p, const Words& w, const Given&) { SetServer(p.world, w); }},
      {"registry", 4,
       [](Player& p, const Words& w, const Given&) { SetRegistryValue(p.world, w); }},
      {"file", 2, [](Player& p, const Words& w, const Given& g) { MakeFile(p.world, w, g); }},
      {"copy", 3, [](Player& p, const Words& w, const Given&) { CopyProjectFile(p.world, w); }},
      {"remove", 2, [](Player& p, const Words& w, const Given&) { RemovePath(p.world, w); }},
      {"library", 2, [](Player& p, const Words& w, const Given& g) { MakeLibrary(p.world, w, g); }},
      {"locale", 2, [](Player& p, const Words& w, const Given&) { SetLocale(p.world, w); }},
      {"lock", 2, [](Player& p, const Words& w, const Given&) { p.world.files.Lock(w[1]); }},
      {"unlock", 2, [](Player& p, const Words& w, const Given&) { p.world.files.Unlock(w[1]); }},
      {"clock", 3, [](Player& p, const Words& w, const Given&) { SetClock(p.world, w); }},
      {"component", 2, [](Player& p, const Words& w, const Given&) { SetComponent(p.world, w); }},
      {"answer", 2, [](Player& p, const Words& w, const Given&) { AddAnswers(p.world, w); }},

      {"start", 1, [](Player& p, const Words&, const Given&) { p.Start(); }},
      {"click", 2,
       [](Player& p, const Words& w, const Given&) { p.Act([&] { return p.user->Click(w[1]); }); }},
      {"set", 3,
       [](Player& p, const Words& w, const Given&) {
         const int value = WholeNumber(w[2]);
         p.Act([&] { return p.user->Set(w[1], value); });
       }},
      {"tab", 2,
       [](Player& p, const Words& w, const Given&) {
         const int tab = WholeNumber(w[1]);
         p.Act([&] { return p.user->Tab(tab); });
       }},
      {"row", 3,
       [](Player& p, const Words& w, const Given&) {
         const int grid = GridNumber(w[1]);
         p.Act([&] {
           return IsNumber(w[2]) ? p.user->Row(grid, WholeNumber(w[2]))
                                 : p.user->Row(grid, std::string_view(w[2]));
         });
       }},
      {"type", 2,
       [](Player& p, const Words& w, const Given&) {
         p.Act([&] { return p.user->Type(w[1], true); });
       }},
      {"add", 2,
       [](Player& p, const Words& w, const Given&) {
         p.Act([&] { return p.user->Type(w[1], false); });
       }},
      {"leave", 1,
       [](Player& p, const Words&, const Given&) { p.Act([&] { return p.user->Leave(); }); }},
      {"spin", 2,
       [](Player& p, const Words& w, const Given&) {
         if (w[1] != "up" && w[1] != "down") throw TranscriptError{"spin up | down"};
         p.Act([&] { return p.user->Spin(w[1] == "up"); });
       }},
      {"close", 1,
       [](Player& p, const Words&, const Given&) { p.Act([&] { return p.user->Close(); }); }},
      {"undo", 1,
       [](Player& p, const Words&, const Given&) { p.Act([&] { return p.user->Undo(); }); }},
      {"redo", 1,
       [](Player& p, const Words&, const Given&) { p.Act([&] { return p.user->Redo(); }); }},
      {"revert", 1,
       [](Player& p, const Words&, const Given&) { p.Act([&] { return p.user->Revert(); }); }},
      {"export", 2,
       [](Player& p, const Words& w, const Given&) { p.Exchange(&User::Export, w[1]); }},
      {"import", 2,
       [](Player& p, const Words& w, const Given&) { p.Exchange(&User::Import, w[1]); }},
      {"changes", 1,
       [](Player& p, const Words&, const Given&) { ShowChanges(p.user->Steps(), p.printer); }},

      {"form", 1,
       [](Player& p, const Words&, const Given&) { ShowForm(p.world.program, p.printer); }},
      {"grid", 2,
       [](Player& p, const Words& w, const Given&) {
         ShowGrid(p.world.program, GridNumber(w[1]), true, p.printer);
       }},
      {"keys", 2,
       [](Player& p, const Words& w, const Given&) {
         ShowGrid(p.world.program, GridNumber(w[1]), false, p.printer);
       }},
      {"edit", 2,
       [](Player& p, const Words& w, const Given&) {
         ShowEdit(p.world.program, GridNumber(w[1]), p.printer);
       }},
      {"setup", 1,
       [](Player& p, const Words&, const Given&) { ShowSetup(p.world.program, p.printer); }},
      {"text", 2,
       [](Player& p, const Words& w, const Given&) { ShowText(p.world.program, w[1], p.printer); }},
      {"languages", 1,
       [](Player& p, const Words&, const Given&) { ShowLanguages(p.world.program, p.printer); }},
      {"fonts", 1,
       [](Player& p, const Words&, const Given&) { ShowFonts(p.world.program, p.printer); }},
      {"saved", 1,
       [](Player& p, const Words&, const Given&) { ShowSaved(p.world.program, p.printer); }},
      {"earlier", 1,
       [](Player& p, const Words&, const Given&) { ShowEarlier(p.world.program, p.printer); }},
      {"bring", 2,
       [](Player& p, const Words& w, const Given&) {
         const int number = WholeNumber(w[1]);
         p.Act([&] { return p.user->Bring(number); });
       }},
      {"cat", 2, [](Player& p, const Words& w, const Given&) { ShowFile(p.world, w); }},
      {"macros", 2, [](Player& p, const Words& w, const Given&) { ShowMacros(p.world, w); }},
      {"findings", 1,
       [](Player& p, const Words&, const Given&) { ShowFindings(p.world.program, p.printer); }},
      {"keypad", 1,
       [](Player& p, const Words&, const Given&) { ShowKeypad(p.world.program, p.printer); }},
      {"voiced", 1,
       [](Player& p, const Words&, const Given&) { ShowVoiced(p.world.program, p.printer); }},
      {"press", 2,
       [](Player& p, const Words& w, const Given&) {
         const char key = TelephoneKey(w[1]);
         p.Act([&] { return p.Press(key); });
       }},
      {"pause", 1, [](Player& p, const Words&, const Given&) { p.Act([&] { return p.Pause(); }); }},
      {"find", 2, [](Player& p, const Words& w, const Given&) { p.FindAction(w[1]); }},
      {"pick", 2,
       [](Player& p, const Words& w, const Given&) {
         const int number = WholeNumber(w[1]);
         p.Act([&] { return p.Pick(number); });
       }},
      {"ls", 2, [](Player& p, const Words& w, const Given&) { ShowFolder(p.world, w); }},
  };
  for (const Verb& verb : verbs)
    if (verb.name == name) return &verb;
  return nullptr;
}

Player::Player(const MakeUser& makeUser)
    : world(printer), user(makeUser(world.program)), trial(*world.program.main) {
  const auto shown = world.program.aboutCreated;
  world.program.aboutCreated = [this, shown](frmAbout& about) {
    if (shown) shown(about);
    WatchAbout(about);
  };
}

Player::~Player() = default;

std::vector<std::string> Player::Play(const Step& step) {
  printer.lines.clear();
  try {
    const Words words = SplitWords(step.text);
    const Verb* verb = words.empty() ? nullptr : Find(words[0]);
    if (verb == nullptr) throw TranscriptError{"no such step: " + step.text};
    if (words.size() < verb->fewestWords) throw TranscriptError{"too few words: " + step.text};
    verb->play(*this, words, step.given);
  } catch (const TranscriptError& error) {
    printer.Line("error: " + error.message);
  } catch (const std::exception& error) {
    printer.Line(std::string("error: ") + error.what());
  }
  return std::exchange(printer.lines, {});
}

void Player::Start() {
  if (started) {
    printer.Line("refused");
    return;
  }
  started = true;
  Guarded([this] {
    Form_Load(*world.program.main);
    user->Started();
  });
}

void Player::Act(const std::function<Outcome()>& step) {
  if (!started || ended) {
    printer.Line("refused");
    return;
  }
  Guarded([&] {
    if (step() == Outcome::refused) printer.Line("refused");
  });
}

Outcome Player::Press(char key) {
  if (world.program.AboutIsUp() || !trial.HasMenu()) return Outcome::refused;
  ShowHappenings(world.program, trial.Press(key), printer);
  return Outcome::done;
}

Outcome Player::Pause() {
  ShowHappenings(world.program, trial.Pause(), printer);
  return Outcome::done;
}

void Player::FindAction(const std::string& text) {
  found = FindActions(*world.program.main, text);
  ShowMatches(found, printer);
}

Outcome Player::Pick(int number) {
  if (number < 1 || number > static_cast<int>(found.size())) return Outcome::refused;
  const Match& match = found[static_cast<std::size_t>(number - 1)];
  if (world.program.main->SSTab1.Tab() != match.grid)
    if (const Outcome moved = user->Tab(match.grid); moved != Outcome::done) return moved;
  return user->Row(match.grid, match.row.token);
}

void Player::Exchange(Outcome (User::*step)(std::string_view, KeyMapNews&),
                      const std::string& path) {
  Act([&] {
    KeyMapNews news;
    const Outcome outcome = ((*user).*step)(path, news);
    if (!news.fault.empty()) printer.Line("error");
    for (const SkippedAction& action : news.skipped)
      printer.Line("skipped " + ShownBare(action.action));
    return outcome;
  });
}

void Player::Guarded(const std::function<void()>& step) {
  try {
    step();
  } catch (const EndProgram&) {
    ended = true;
    printer.Line("ended");
  }
}

void Player::WatchAbout(frmAbout& about) {
  // The box tells every change of its state; only its coming and going are printed.
  const auto shown = about.changed;
  about.changed = [this, &about, shown, up = false]() mutable {
    if (shown) shown();
    if (about.Shown == up) return;
    up = about.Shown;
    printer.Line(up ? "show frmAbout" : "hide frmAbout");
  };
}

}  // namespace dialwright
