#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "beside/EffectiveRows.h"

namespace dialwright {

/// What a save would refuse, and what it accepts and a subscriber may stumble over.
enum class FindingKind {
  refused,
  waits,        ///< the telephone waits for a further key before it acts on the first row's
  unreachable,  ///< the menu announces an action that no key reaches
  untouchable,  ///< the key holds a character that no telephone has
};

/// One finding. `rows` are those of the grid that it is about, the one that it is found at first.
struct Finding {
  FindingKind kind = FindingKind::refused;
  int grid = 0;
  std::string text;  ///< in the language of the moment; of a refusal the box that a save shows
  std::vector<int> rows;
};

/// "refused", "waits", "unreachable" or "untouchable".
std::string_view KindName(FindingKind kind);

/// All findings of the key map as it would be if the edit box that has the focus were left now: the
/// refusals in the order of a save, then the cautions by grid and row. A text that may not leave
/// the box comes before all others.
std::vector<Finding> Findings(const frmMain& form);

/// The tokens of the rows of a finding.
std::vector<std::string> TokensOf(const frmMain& form, const Finding& finding);

}  // namespace dialwright
