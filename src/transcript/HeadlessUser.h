#pragma once

#include "User.h"
#include "beside/History.h"

namespace dialwright {

class Program;
struct Control;
struct frmMain;

/// A user of the control objects themselves.
class HeadlessUser : public User {
 public:
  explicit HeadlessUser(Program& theProgram);

  Outcome Click(std::string_view name) override;
  Outcome Set(std::string_view name, int value) override;
  Outcome Tab(int tab) override;
  Outcome Row(int grid, int row) override;
  Outcome Row(int grid, std::string_view token) override;
  Outcome Type(std::string_view text, bool selectAll) override;
  Outcome Leave() override;
  Outcome Spin(bool up) override;
  Outcome Bring(int number) override;
  Outcome Undo() override;
  Outcome Redo() override;
  Outcome Revert() override;
  Outcome Export(std::string_view path, KeyMapNews& news) override;
  Outcome Import(std::string_view path, KeyMapNews& news) override;
  History& Steps() override;
  Outcome Close() override;

 private:
  Outcome MoveTo(Control& control);

  /// What the menu Edit does.
  Outcome Edit(bool (History::*command)());

  Program& program;
  frmMain& form;
  History history;
};

}  // namespace dialwright
