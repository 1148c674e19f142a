#include "beside/History.h"

#include <algorithm>
#include <utility>

#include "beside/RowsAtOnce.h"
#include "beside/StepNames.h"
#include "keymap/RowEditing.h"
#include "platform/Clock.h"
#include "scripts/SetupOptions.h"
#include "shell/Program.h"

namespace dialwright {

namespace {

/// A text that may not leave its box: it counts for no key, but it can be taken back.
const std::string* UnfitText(const EditState& edit) {
  return edit.typed && !IsKeyText(*edit.key) ? edit.key : nullptr;
}

bool SameEdits(const Snapshot& a, const Snapshot& b) {
  for (int grid = 0; grid < gridCount; ++grid) {
    const EditState& x = At(a.edits, grid);
    const EditState& y = At(b.edits, grid);
    if (x.typed != y.typed || x.key != y.key || At(a.current, grid) != At(b.current, grid))
      return false;
  }
  return true;
}

bool SameBoxes(const Snapshot& a, const Snapshot& b) {
  return std::ranges::equal(a.boxes, b.boxes, {}, &BoxState::checked, &BoxState::checked);
}

std::string TimeOfDay(const SystemTime& time) {
  const auto twoDigits = [](int number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
  };
  return twoDigits(time.hour) + ":" + twoDigits(time.minute);
}

std::string LabelOf(const KeyGrid& grid, const std::string& token) {
  for (const KeyGrid::Cells& row : grid.DataRows())
    if (row[static_cast<std::size_t>(Column::ActionToken)] == token)
      return row[static_cast<std::size_t>(Column::Action)];
  return token;
}

/// Whether a step between the two is worth an entry.
bool Differs(const Snapshot& a, const Snapshot& b) {
  if (a.rows == b.rows && SameBoxes(a, b) && SameEdits(a, b)) return false;
  for (int grid = 0; grid < gridCount; ++grid)
    if (UnfitText(At(a.edits, grid)) != UnfitText(At(b.edits, grid))) return true;
  return !IsSame(ContentOf(a, TypedText::counts), ContentOf(b, TypedText::counts));
}

/// The box in which nothing but typing has happened between the two; -1 if there is none.
int TypedIn(const Snapshot& before, const Snapshot& now) {
  if (before.rows != now.rows || !SameBoxes(before, now)) return -1;
  const auto found = std::ranges::find(now.edits, true, &EditState::typed);
  return found == now.edits.end() ? -1 : static_cast<int>(found - now.edits.begin());
}

}  // namespace

History::History(frmMain& mainForm) : form(mainForm) {
  form.program.keyMapSaved = [this] {
    if (form.lastSave.kind == SaveOutcome::Kind::complete) saved = true;
    savedAt = TimeOfDay(form.program.services.clock.Now());
  };
  form.focus.boxLeft = [this](const EditBox& box) {
    BoxLeft(static_cast<int>(&box - form.txtKeyAssignment.data()));
  };
}

History::~History() {
  form.program.keyMapSaved = nullptr;
  form.focus.boxLeft = nullptr;
}

void History::StepBegins(std::string name) {
  Settle();
  ++step;
  stepStart = last;
  stepName = std::move(name);
}

void History::Settle() {
  Snapshot now = Now();
  // A look may come in the middle of a load, while a message of its is up.
  if (loads != form.loads) loadStep = step;
  loads = form.loads;
  const bool loaded = loadStep == step;
  if (loaded) {
    // Whatever was done to the rows that stood there before is gone with them.
    entries.clear();
    done = 0;
    stepStart = now;
    typingGrid = -1;
  }
  if (loaded || saved) baseline = ContentOf(now, TypedText::ignored);
  saved = false;

  const int typedIn = TypedIn(stepStart, now);
  if (typedIn >= 0 && typedIn != typingGrid) {
    typingGrid = typedIn;
    typingStep = step;
    typingStart = stepStart;
  }
  if (typedIn >= 0) {
    SettleAs(typingStep, typingStart, now);
  } else {
    SettleAs(step, stepStart, now);
    typingGrid = -1;
  }
  last = std::move(now);
}

void History::SettleAs(StepNumber number, const Snapshot& from, const Snapshot& now) {
  const bool begun = done > 0 && entries[done - 1].step == number;
  if (!Differs(from, now)) {
    // Typed back to what it was: there is nothing left to take back.
    if (begun) entries.resize(--done);
    return;
  }
  if (begun) {
    Entry& entry = entries[done - 1];
    if (Differs(entry.after, now)) entries.resize(done);
    entries[done - 1].after = now;
    return;
  }
  entries.resize(done);
  entries.push_back({number, number == step ? stepName : std::string(), from, now});
  ++done;
}

void History::BoxLeft(int grid) {
  if (grid != typingGrid) return;
  last = Now();
  SettleAs(typingStep, typingStart, last);
  typingGrid = -1;
  ++step;
  stepStart = last;
}

void History::GoTo(const Snapshot& snapshot) {
  PutBack(form, snapshot);
  // A text that the user was typing there is typed on, unless the focus has a place of its own.
  EditBox* box = snapshot.tab < gridCount ? &At(form.txtKeyAssignment, snapshot.tab) : nullptr;
  if (box != nullptr && box->Typed() && form.focus.ActiveControl() == nullptr)
    form.focus.Give(*box);
  last = TakeSnapshot(form, texts, snapshot);
  stepStart = last;
  ++step;
  typingGrid = -1;
  // A text that is in the box again is typed on in the entry that it came from.
  for (int grid = 0; grid < gridCount && done > 0; ++grid) {
    const Entry& entry = entries[done - 1];
    if (TypedIn(entry.after, last) != grid || !At(entry.after.edits, grid).typed ||
        At(entry.before.edits, grid).typed)
      continue;
    typingGrid = grid;
    typingStep = entry.step;
    typingStart = entry.before;
  }
  form.cmdSave.Enabled = HasUnsaved();
}

bool History::HasUnsaved() {
  const SaveOutcome::Kind outcome = form.lastSave.kind;
  return outcome == SaveOutcome::Kind::refused || outcome == SaveOutcome::Kind::incomplete ||
         !Changes().empty();
}

std::size_t History::Depth() {
  Settle();
  return done;
}

bool History::CanRedo() {
  Settle();
  return done < entries.size();
}

std::string History::UndoName() { return CanUndo() ? NameOf(entries[done - 1]) : std::string(); }

std::string History::RedoName() { return CanRedo() ? NameOf(entries[done]) : std::string(); }

std::string History::NameOf(const Entry& entry) const {
  return entry.name.empty() ? StepName(form, entry.before, entry.after) : entry.name;
}

bool History::Undo() {
  if (!CanUndo()) return false;
  --done;
  GoTo(Snapshot(entries[done].before));
  return true;
}

bool History::Redo() {
  if (!CanRedo()) return false;
  ++done;
  GoTo(Snapshot(entries[done - 1].after));
  return true;
}

std::vector<Change> History::Changes() {
  Settle();
  return ChangesBetween(baseline, ContentOf(last, TypedText::counts));
}

const Content& History::Baseline() {
  Settle();
  return baseline;
}

int History::RowInHandThatDiffers() {
  const int grid = form.SSTab1.Tab();
  if (grid >= gridCount || !At(form.gridKeyMap, grid).HasRowInHand()) return -1;
  const KeyGrid& keys = At(form.gridKeyMap, grid);
  const std::string& token = keys.Text(keys.Row(), Column::ActionToken);
  const CountedRow before = RowOf(Baseline(), grid, token);
  return RowOf(ContentOf(last, TypedText::counts), grid, token) == before ? -1 : grid;
}

bool History::CanRevert() { return RowInHandThatDiffers() >= 0; }

bool History::Revert() {
  const int grid = RowInHandThatDiffers();
  if (grid < 0) return false;
  const KeyGrid& keys = At(form.gridKeyMap, grid);
  RevertRow(grid, std::string(keys.Text(keys.Row(), Column::ActionToken)));
  return true;
}

void History::RevertRow(int grid, const std::string& token) {
  StepBegins(RevertName(form, LabelOf(At(form.gridKeyMap, grid), token)));
  dialwright::RevertRow(form, grid, RowOf(baseline, grid, token));
  Settle();
  form.cmdSave.Enabled = HasUnsaved();
}

void History::RevertBox(std::size_t option) {
  StepBegins();
  WholeMap map = Map();
  map.setup.at(option) = baseline.setup.at(option);
  ReplaceSetup(form, map.setup);
  Settle();
  form.cmdSave.Enabled = HasUnsaved();
}

WholeMap History::Map() const {
  WholeMap map;
  for (int grid = 0; grid < gridCount; ++grid) {
    const auto rows = At(form.gridKeyMap, grid).DataRows();
    At(map.rows, grid).assign(rows.begin(), rows.end());
  }
  for (std::size_t i = 0; i < map.setup.size(); ++i)
    map.setup.at(i) = (form.*SetupOptions()[i].box).Value() != 0;
  return map;
}

void History::Replace(const WholeMap& map, std::string name) {
  StepBegins(std::move(name));
  for (int grid = 0; grid < gridCount; ++grid) ReplaceRows(form, grid, At(map.rows, grid));
  if (form.SSTab1.TabVisible(setupTab)) ReplaceSetup(form, map.setup);
  form.cmdSave.Enabled = true;
  Settle();
}

}  // namespace dialwright
