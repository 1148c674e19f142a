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

  Outcome click(std::string_view name) override;
  Outcome set(std::string_view name, int value) override;
  Outcome tab(int tab) override;
  Outcome row(int grid, int row) override;
  Outcome row(int grid, std::string_view token) override;
  Outcome type(std::string_view text, bool selectAll) override;
  Outcome leave() override;
  Outcome spin(bool up) override;
  Outcome close() override;

 private:
  Outcome moveTo(Control& control);

  Program& program;
  frmMain& form;
};

}  // namespace dialwright
