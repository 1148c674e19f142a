#pragma once

#include "User.h"

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
  Outcome Close() override;

 private:
  Outcome MoveTo(Control& control);

  Program& program;
  frmMain& form;
};

}  // namespace dialwright
