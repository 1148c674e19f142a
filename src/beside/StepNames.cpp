#include "beside/StepNames.h"

#include <algorithm>
#include <vector>

#include "beside/Changes.h"
#include "presets/Presets.h"
#include "scripts/SetupOptions.h"
#include "shell/Program.h"
#include "text/Text.h"

namespace dialwright {

namespace {

constexpr int keyOf = 1455;
constexpr int voicingOf = 1456;
constexpr int orderOf = 1457;
constexpr int typing = 1458;
constexpr int severalChanges = 1459;
constexpr int resetTo = 1460;
constexpr int revertOf = 1461;

std::string Named(const frmMain& form, int number, std::string_view what) {
  return ReplaceAll(form.program.mymyLoadString(number), "%1", ReplaceAll(what, "&", ""));
}

std::string LabelOf(const Snapshot& snapshot, const Change& change) {
  for (const PooledRow& row : *At(snapshot.rows, change.grid))
    if (*row[static_cast<std::size_t>(Column::ActionToken)] == change.token)
      return *row[static_cast<std::size_t>(Column::Action)];
  return change.token;
}

/// Whether all changes are of one row, and of the order that its going or coming has left.
bool AreOfOneRow(const std::vector<Change>& changes) {
  return std::ranges::all_of(changes, [&first = changes.front()](const Change& change) {
    return change.grid == first.grid &&
           (change.token == first.token || change.kind == Change::Kind::order);
  });
}

}  // namespace

std::string StepName(const frmMain& form, const Snapshot& before, const Snapshot& after) {
  const std::vector<Change> changes =
      ChangesBetween(ContentOf(before, TypedText::counts), ContentOf(after, TypedText::counts));
  if (changes.empty()) return form.program.mymyLoadString(typing);
  const Change& first = changes.front();
  if (!AreOfOneRow(changes)) return form.program.mymyLoadString(severalChanges);
  switch (first.kind) {
    case Change::Kind::key:
      return Named(form, keyOf, LabelOf(before, first));
    case Change::Kind::voiced:
    case Change::Kind::silent:
      return Named(form, voicingOf, LabelOf(before, first));
    case Change::Kind::order:
      return Named(form, orderOf, form.SSTab1.TabCaption(first.grid));
    case Change::Kind::box:
      break;
  }
  return changes.size() > 1
             ? form.program.mymyLoadString(severalChanges)
             : ReplaceAll((form.*SetupOptions()[first.option].box).Caption(), "&", "");
}

std::string RevertName(const frmMain& form, std::string_view label) {
  return Named(form, revertOf, label);
}

std::string ItemStepName(const frmMain& form, const MenuItem& item) {
  for (const Preset& preset : Presets())
    if (&(form.*preset.item) == &item) return Named(form, resetTo, item.Caption());
  return {};
}

}  // namespace dialwright
