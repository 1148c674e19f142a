#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "beside/Changes.h"
#include "beside/Snapshot.h"

namespace dialwright {

/// All rows of the grids and the setup boxes at once: what an import or a copy replaces.
struct WholeMap {
  ControlArray<std::vector<KeyGrid::Cells>> rows;  ///< the voice of a row is its order cell
  std::array<bool, setupOptionCount> setup{};
};

/// The steps of the user that have changed the key map since the last load, to be taken back and
/// done again, and what differs from what the last load or complete save has left.
///
/// It looks at the form where a step begins: what differs from the beginning of the one before is
/// an entry. So nothing that happens in the wake of a step has to be told.
class History {
 public:
  /// Watches a form that no other history watches.
  explicit History(frmMain& mainForm);
  ~History();
  History(const History&) = delete;
  History& operator=(const History&) = delete;

  /// A step of the user begins. Every place where a user acts calls this first.
  void StepBegins(std::string name = {});

  /// Names the present step, if it cannot be told from what it changes.
  void NameStep(std::string name) { stepName = std::move(name); }

  /// How many steps could be taken back.
  std::size_t Depth();
  bool CanUndo() { return Depth() > 0; }
  bool CanRedo();
  /// What would be taken back, or done again, in the language of the moment; empty if nothing.
  std::string UndoName();
  std::string RedoName();
  /// Take a step back, or do it again, without a handler. Return false if there is none.
  bool Undo();
  bool Redo();

  /// What differs, the text that the user has typed in a box included.
  std::vector<Change> Changes();
  /// What the last load or complete save has left.
  const Content& Baseline();

  /// Whether the row in hand has another key or voice than the last load or complete save has left.
  bool CanRevert();
  /// Gives the row in hand its key and voice back, as one step. Returns false if neither has
  /// changed, or no row is in hand.
  bool Revert();
  /// The same for any row that is there, and for a setup box by its row of the setup table.
  void RevertRow(int grid, const std::string& token);
  void RevertBox(std::size_t option);
  /// Whether something would be lost without a save: something differs, or the last save was
  /// refused or incomplete.
  bool HasUnsaved();
  /// When the last save that was not refused was written, as "18:31".
  const std::string& SavedAt() const { return savedAt; }

  const frmMain& TheForm() const { return form; }

  /// The key map of the form as it stands, without a text that is still in a box.
  WholeMap Map() const;
  /// Replaces the key map as one step of the user's of that name: voiced rows are numbered anew as
  /// they stand, the rows in hand and the focus stay, no handler runs, and a text that is still in
  /// a box is dropped. `cmdSave` is on.
  void Replace(const WholeMap& map, std::string name);

 private:
  using StepNumber = int;
  struct Entry {
    StepNumber step = 0;
    std::string name;  ///< empty: told from what it changes
    Snapshot before, after;
  };

  /// Notes what the present step has changed so far.
  void Settle();
  void SettleAs(StepNumber number, const Snapshot& from, const Snapshot& now);
  void BoxLeft(int grid);
  void GoTo(const Snapshot& snapshot);
  Snapshot Now() { return TakeSnapshot(form, texts, last); }
  int RowInHandThatDiffers();
  std::string NameOf(const Entry& entry) const;

  frmMain& form;
  TextPool texts;
  std::vector<Entry> entries;
  std::size_t done = 0;  ///< entries that are not taken back

  Snapshot last;       ///< the latest picture
  Snapshot stepStart;  ///< where the present step began
  StepNumber step = 0;
  std::string stepName;
  int typingGrid = -1;  ///< the box that the user is typing in, over several steps
  StepNumber typingStep = 0;
  Snapshot typingStart;

  int loads = -1;  ///< of the form, at the last look
  StepNumber loadStep = -1;
  bool saved = false;  ///< since then, wholly
  std::string savedAt;
  Content baseline;
};

}  // namespace dialwright
