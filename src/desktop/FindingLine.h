#pragma once

#include <functional>
#include <string>
#include <vector>

#include "desktop/FaultMarks.h"
#include "desktop/WrapLabel.h"

namespace dialwright {

/// The line under the key box: what is found about the row in hand. The names of the other rows
/// lead there.
class FindingLine : public WrapLabel {
 public:
  explicit FindingLine(const frmMain& mainForm, int gridNumber);

  /// Shows the findings that name the row in hand.
  void Show(const std::vector<Finding>& findings);

  std::function<void(int grid, const std::string& token)> goTo;

 private:
  QString Line(const Finding& finding) const;

  const frmMain& form;
  int grid;
};

}  // namespace dialwright
