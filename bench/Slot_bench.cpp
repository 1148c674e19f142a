// Loading and saving a whole slot, beside a plain read and a plain copy of the same three files,
// and what stands beside the form.

#include <malloc.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "Pairs.h"
#include "beside/FindAction.h"
#include "beside/Findings.h"
#include "beside/Keypad.h"
#include "beside/Trial.h"
#include "shell/events/Lifecycle.h"
#include "shell/frmMain.h"
#include "transcript/HeadlessUser.h"
#include "transcript/World.h"

namespace dialwright {

namespace {

constexpr const char* scripts[] = {"Macros_MenuAlternate_Custom.cdh",
                                   "SubMsgPlay_Alternate_Custom.cde",
                                   "SubSetupMenu_Alternate1.cde"};
constexpr const char* image = "/sandbox/merid-7.0-2.0/drive_c/Telhost/Localize/Scripts/";
constexpr const char* folder = "C:\\Telhost\\Localize\\Scripts\\";

/// A script of the image with conversation text in front, up to the size.
std::string Grown(const std::string& script, std::size_t size) {
  std::string text = "[CONVERSATION]\r\n";
  for (int line = 0; text.size() + script.size() < size; ++line)
    text += "STEP" + std::to_string(line) + " PLAY PROMPT_" + std::to_string(line * 7 % 1000) +
            " THEN WAIT 3 FOR KEY ELSE GOTO MENU\r\n";
  return text + script;
}

/// The editor on a slot whose three files are about that large.
struct Slot {
  explicit Slot(std::size_t size) : world(printer) {
    world.registry.Set("Software\\Quillon", "Version Number",
                       RegistryValue::DoubleWord(0x00070000));
    world.registry.Set("Software\\Quillon", "Build Number", RegistryValue::DoubleWord(0x00020000));
    world.registry.Set("SOFTWARE\\Quillon\\Telhost\\1.0", "Root Path",
                       RegistryValue::Text("C:\\Telhost\\"));
    for (const char* name : scripts) {
      const std::string script = ReadPlainly(std::string(DIALWRIGHT_SOURCE_DIR) + image + name);
      world.MakeFile(std::string(folder) + name, Grown(script, size));
      paths.push_back(world.HostPath(std::string(folder) + name));
    }
    Form_Load(*world.program.main);
  }

  frmMain& Form() const { return *world.program.main; }

  Printer printer;
  World world;
  std::vector<std::filesystem::path> paths;
};

/// A file that somebody has touched is read anew: a load that finds it cached would measure
/// nothing.
void Touch(const Slot& slot) {
  for (const auto& path : slot.paths)
    std::filesystem::last_write_time(path, std::filesystem::file_time_type::clock::now());
}

void LoadSlot(benchmark::State& state) {
  Slot slot(static_cast<std::size_t>(state.range(0)));
  Pair(
      state, [&] { Touch(slot); },
      [&] {
        for (const auto& path : slot.paths) benchmark::DoNotOptimize(ReadPlainly(path));
      },
      [&] { LoadKeyMapInfo(slot.Form()); });
}

/// Gives an action of the main menu another key than it has, one that no other action has.
void ChangeKey(frmMain& form) {
  KeyGrid& keys = At(form.gridKeyMap, mainMenuGrid);
  for (int row = 1; row < keys.Rows(); ++row) {
    if (keys.Text(row, Column::ActionToken) != "MENU_MSG_LOCATOR") continue;
    const bool isFirst = keys.Text(row, Column::KeyAssignment) == "5";
    keys.SetText(row, Column::KeyAssignment, isFirst ? "12" : "5");
  }
}

void Save(benchmark::State& state, bool changesKey) {
  Slot slot(static_cast<std::size_t>(state.range(0)));
  const std::filesystem::path copies = slot.world.HostPath("C:\\Copies");
  std::filesystem::create_directories(copies);
  Pair(
      state,
      [&] {
        if (changesKey) ChangeKey(slot.Form());
        slot.Form().cmdSave.Enabled = true;
      },
      [&] {
        for (const auto& path : slot.paths)
          std::filesystem::copy_file(path, copies / path.filename(),
                                     std::filesystem::copy_options::overwrite_existing);
      },
      [&] {
        slot.Form().cmdSave.Click();
        slot.printer.lines.clear();
      });
}

/// A save of what stands in the files already: no script is replaced, and no version kept.
void SaveSlot(benchmark::State& state) { Save(state, false); }
void ChangeSlot(benchmark::State& state) { Save(state, true); }

constexpr std::int64_t kilobyte = 1024;

void Sizes(benchmark::internal::Benchmark* bench) {
  for (const std::int64_t size : {16L, 128L, 1024L, 10240L}) bench->Arg(size * kilobyte);
  bench->UseManualTime()->MinTime(1)->Unit(benchmark::kMicrosecond);
}

/// A look at the key map of the newest server, which has the most actions.
template <class Look>
void LookAt(benchmark::State& state, const Look& look) {
  const Slot slot(16 * kilobyte);
  for (auto each : state) benchmark::DoNotOptimize(look(slot.Form()));
}

void BesideFindings(benchmark::State& state) { LookAt(state, Findings); }
void BesideKeypad(benchmark::State& state) {
  LookAt(state, [](const frmMain& form) { return KeypadOf(EffectiveRows(form, headerGrid)); });
}
void BesideKey(benchmark::State& state) {
  LookAt(state, [](const frmMain& form) {
    std::string run;
    return PressKey(EffectiveRows(form, headerGrid), run, '2');
  });
}
void BesideSearch(benchmark::State& state) {
  LookAt(state, [](const frmMain& form) { return FindActions(form, "message"); });
}
BENCHMARK(BesideFindings);
BENCHMARK(BesideKeypad);
BENCHMARK(BesideKey);
BENCHMARK(BesideSearch);

/// A day's work: that many keys typed, each a step of its own. What the history of it takes, and
/// the slowest step back.
void BesideHistory(benchmark::State& state) {
  constexpr int edits = 5000;
  Slot slot(16 * kilobyte);
  HeadlessUser user(slot.world.program);
  const auto bytesInUse = [] { return static_cast<double>(mallinfo2().uordblks); };
  const double before = bytesInUse();
  for (int edit = 0; edit < edits; ++edit) {
    user.Row(mainMenuGrid, 1 + edit % (slot.Form().gridKeyMap[mainMenuGrid].Rows() - 1));
    user.Type(std::to_string(100 + edit % 900), true);
  }
  if (user.Steps().Depth() < edits) state.SkipWithError("not every edit is an entry");
  state.counters["megabytes"] = (bytesInUse() - before) / (1 << 20);
  double slowest = 0;
  while (state.KeepRunning()) {
    const auto start = std::chrono::steady_clock::now();
    if (user.Undo() != Outcome::done) user.Redo();
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    slowest = std::max(slowest, time.count());
    state.SetIterationTime(time.count());
  }
  state.counters["slowest_us"] = slowest * 1e6;
}
BENCHMARK(BesideHistory)->Iterations(4000)->UseManualTime();

BENCHMARK(LoadSlot)->Apply(Sizes);
BENCHMARK(SaveSlot)->Apply(Sizes);
BENCHMARK(ChangeSlot)->Apply(Sizes);

}  // namespace

}  // namespace dialwright
