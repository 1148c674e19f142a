#pragma once

#include <string_view>

namespace dialwright {

class History;
struct KeyMapNews;

/// What became of a user's step.
enum class Outcome {
  done,
  refused,  ///< the control is disabled, not offered or not there: nothing has happened
  held,     ///< the edit box that had the focus refused to be left: the step did not take place
};

/// A user at the main form. Each step acts as a user would: the focus moves first, with all that
/// hangs on it, then the control is used.
class User {
 public:
  virtual ~User() = default;

  /// The start-up sequence is through and the form comes up.
  virtual void Started() {}

  /// Presses a button or picks a menu item.
  virtual Outcome Click(std::string_view name) = 0;
  /// Clicks a check box once if its value is not that already.
  virtual Outcome Set(std::string_view name, int value) = 0;
  virtual Outcome Tab(int tab) = 0;
  /// Clicks the place of a data row of a grid.
  virtual Outcome Row(int grid, int row) = 0;
  /// Moves the focus to the grid, then clicks the row that bears the token.
  virtual Outcome Row(int grid, std::string_view token) = 0;
  /// Types into the edit box of the current tab: with everything selected first, or at its end. An
  /// empty text with everything selected presses the backspace key.
  virtual Outcome Type(std::string_view text, bool selectAll) = 0;
  /// Moves the focus to the grid of the current tab.
  virtual Outcome Leave() = 0;
  virtual Outcome Spin(bool up) = 0;
  /// Brings back an earlier version of the scripts, by its number in the list.
  virtual Outcome Bring(int number) = 0;
  /// The menu Edit: take back, do again, and the row in hand as it was.
  virtual Outcome Undo() = 0;
  virtual Outcome Redo() = 0;
  virtual Outcome Revert() = 0;
  /// Writes a key map file, and takes one in; the path is one of the system's.
  virtual Outcome Export(std::string_view path, KeyMapNews& news) = 0;
  virtual Outcome Import(std::string_view path, KeyMapNews& news) = 0;
  /// The history of what this user does.
  virtual History& Steps() = 0;
  /// The close box.
  virtual Outcome Close() = 0;
};

}  // namespace dialwright
