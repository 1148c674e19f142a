#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "beside/Snapshot.h"

namespace dialwright {

/// A row, as far as a save would write it.
struct CountedRow {
  std::string token;
  std::string key;
  bool voiced = false;

  friend bool operator==(const CountedRow&, const CountedRow&) = default;
};

/// What counts of a key map: what a save would write.
struct Content {
  ControlArray<std::vector<CountedRow>> menus;
  std::vector<bool> setup;  ///< in the order of the setup table; empty without a Setup tab
};

/// The content of a form; with what the user has typed in a box as the key of its row, once it may
/// leave the box.
enum class TypedText { counts, ignored };
Content ContentOf(const Snapshot& snapshot, TypedText typed);

/// Whether two contents are the same: all that is voiced in the same order.
bool IsSame(const Content& a, const Content& b);

/// One thing that differs.
struct Change {
  enum class Kind { key, voiced, silent, order, box };
  Kind kind = Kind::key;
  int grid = -1;            ///< -1 for a setup box
  std::string token;        ///< of the row
  std::string before, now;  ///< the keys; "0" or "1" of a setup box
  std::size_t option = 0;   ///< the setup box's row of the setup table

  friend bool operator==(const Change&, const Change&) = default;
};

/// What differs, by grid and then by the order of the rows now; a row that is no longer there comes
/// behind them, the order of a menu behind its rows, and the setup boxes last.
std::vector<Change> ChangesBetween(const Content& before, const Content& now);

/// The row that bears a token; one without a key and not voiced where there is none.
CountedRow RowOf(const Content& content, int grid, std::string_view token);

}  // namespace dialwright
