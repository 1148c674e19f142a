#pragma once

#include <array>
#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

#include "shell/frmMain.h"

namespace dialwright {

/// Each text once, at an address that stays: equal texts of a pool are the same text.
class TextPool {
 public:
  const std::string* Keep(const std::string& text) { return &*texts.insert(text).first; }

 private:
  std::unordered_set<std::string> texts;
};

using PooledRow = std::array<const std::string*, columnCount>;
using PooledRows = std::vector<PooledRow>;

/// The edit controls of one tab.
struct EditState {
  const std::string* key = nullptr;
  const std::string* description = nullptr;
  int selStart = 0;
  int selLength = 0;
  int maxLength = 0;
  bool typed = false;
  bool dontVoice = false;
  bool dontVoiceEnabled = false;
  bool orderEnabled = false;
};

struct BoxState {
  bool checked = false;
  bool enabled = false;
};

/// The form as it stands between two steps of the user: all that taking back puts back. Its texts
/// are those of the pool that it was taken with.
struct Snapshot {
  /// The rows of a grid are one and the same object in all snapshots between which they do not
  /// change.
  ControlArray<std::shared_ptr<const PooledRows>> rows;
  ControlArray<int> current{};
  ControlArray<EditState> edits;
  std::array<BoxState, setupOptionCount> boxes{};
  int tab = 0;
  bool hasSetup = false;
};

/// Takes a picture of the form. It shares with `last` the rows that are still the same.
Snapshot TakeSnapshot(const frmMain& form, TextPool& pool, const Snapshot& last);

/// Puts a form back as it stood. No handler runs, and the focus stays unless its control is on
/// another tab then. `cmdSave` is left alone.
void PutBack(frmMain& form, const Snapshot& snapshot);

}  // namespace dialwright
