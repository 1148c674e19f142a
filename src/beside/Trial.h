#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "validation/MenuRows.h"

namespace dialwright {

struct frmMain;

/// What comes of pressing keys.
enum class Outcomes {
  does,     ///< the one row that has the run as its key is done
  nothing,  ///< no row has it
  clash,    ///< several rows have it
  waits,    ///< the telephone waits for a further key
};

/// One thing that happened, and the rows of the grid that it is about.
struct Happening {
  Outcomes what = Outcomes::nothing;
  std::string run;  ///< the keys pressed
  std::vector<int> rows;
};

/// "does", "nothing", "clash" or "waits".
std::string_view OutcomeName(Outcomes what);

/// A key more behind those pressed so far. `run` holds them, and afterwards those that are still
/// open; a run that is open comes last, as one that waits.
std::vector<Happening> PressKey(const MenuRows& rows, std::string& run, char key);

/// No key comes for a while: the run is closed. Nothing happens where none is open.
std::vector<Happening> PauseAfter(const MenuRows& rows, std::string& run);

/// Trying the menu of the current tab as a subscriber would, unsaved changes included. Another tab
/// and a load drop an open run; edits and choices of rows leave it.
class Trial {
 public:
  explicit Trial(const frmMain& mainForm) : form(mainForm) {}

  /// Whether the current tab has a menu to try.
  bool HasMenu() const;
  std::vector<Happening> Press(char key);
  std::vector<Happening> Pause();
  /// The open run; empty if there is none.
  const std::string& Run();
  void Drop() { run.clear(); }

 private:
  void DropIfGone();

  const frmMain& form;
  std::string run;
  int turns = 0;  ///< of the tabs, when the run was begun
  int loads = 0;
};

}  // namespace dialwright
