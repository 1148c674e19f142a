#include "beside/FindAction.h"

#include "beside/Telephone.h"
#include "text/Text.h"

namespace dialwright {

std::vector<Match> FindActions(const frmMain& form, std::string_view text) {
  const bool isKey = text.find_first_not_of(telephoneKeys) == std::string_view::npos;
  std::vector<Match> found;
  for (int grid = 0; grid < gridCount; ++grid) {
    if (!form.SSTab1.TabVisible(grid)) continue;
    for (MenuRow& row : EffectiveRows(form, grid))
      if (ContainsIgnoringCase(row.label, text) || ContainsIgnoringCase(row.token, text) ||
          (isKey && row.key.starts_with(text)))
        found.push_back({grid, std::move(row)});
  }
  return found;
}

}  // namespace dialwright
