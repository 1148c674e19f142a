#include "beside/Trial.h"

#include <utility>

#include "beside/EffectiveRows.h"
#include "beside/Telephone.h"
#include "shell/frmMain.h"

namespace dialwright {

namespace {

/// What the telephone does with a run that is over.
Happening Close(const Reached& reached, std::string run) {
  const Outcomes what = reached.exact.empty()       ? Outcomes::nothing
                        : reached.exact.size() == 1 ? Outcomes::does
                                                    : Outcomes::clash;
  return {what, std::move(run), RowNumbers(reached.exact)};
}

}  // namespace

std::string_view OutcomeName(Outcomes what) {
  constexpr std::string_view names[] = {"does", "nothing", "clash", "waits"};
  return names[static_cast<std::size_t>(what)];
}

std::vector<Happening> PressKey(const MenuRows& rows, std::string& run, char key) {
  std::vector<Happening> happened;
  Reached reached = Reach(rows, run + key);
  if (reached.Empty()) {
    const Reached before = Reach(rows, run);
    if (!run.empty() && !before.exact.empty()) {
      // The keys so far were an action's own: the new one begins afresh.
      happened.push_back(Close(before, std::exchange(run, {})));
      reached = Reach(rows, std::string(1, key));
    }
  }
  run += key;
  if (reached.exact.size() < 2 && !reached.longer.empty())
    happened.push_back({Outcomes::waits, run, RowNumbers(reached.longer)});
  else
    happened.push_back(Close(reached, std::exchange(run, {})));
  return happened;
}

std::vector<Happening> PauseAfter(const MenuRows& rows, std::string& run) {
  if (run.empty()) return {};
  const Reached reached = Reach(rows, run);
  return {Close(reached, std::exchange(run, {}))};
}

bool Trial::HasMenu() const { return form.SSTab1.Tab() < gridCount; }

void Trial::DropIfGone() {
  if (turns != form.SSTab1.Turns() || loads != form.loads) run.clear();
  turns = form.SSTab1.Turns();
  loads = form.loads;
}

const std::string& Trial::Run() {
  DropIfGone();
  return run;
}

std::vector<Happening> Trial::Press(char key) {
  DropIfGone();
  return HasMenu() ? PressKey(EffectiveRows(form, form.SSTab1.Tab()), run, key)
                   : std::vector<Happening>();
}

std::vector<Happening> Trial::Pause() {
  DropIfGone();
  return HasMenu() ? PauseAfter(EffectiveRows(form, form.SSTab1.Tab()), run)
                   : std::vector<Happening>();
}

}  // namespace dialwright
