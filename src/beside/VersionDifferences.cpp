#include "beside/VersionDifferences.h"

#include "keymap/Catalogue.h"
#include "keymap/KeyMapGrid.h"
#include "scripts/modCommon.h"
#include "shell/Program.h"
#include "shell/frmMain.h"
#include "text/Text.h"

namespace dialwright {

namespace {

/// Whether an action's order in the file says if it is voiced; others have no order, or a fixed
/// one.
bool HasVoice(int grid, const std::string& token) {
  if (grid != 0 && grid != 4) return false;
  const Action* action = FindAction(grid, token);
  return action != nullptr && action->order == OrderSource::key;
}

bool IsOfMacroFile(int grid) { return grid == 0 || grid == 5; }

void Compare(frmMain& form, int grid, const std::string& kept,
             std::vector<VersionDifference>& differences) {
  PrivateProfile& profile = form.program.profile;
  const ProfileBatch batch(profile, kept);
  const KeyGrid& rows = At(form.gridKeyMap, grid);
  for (int row = 1; row < rows.Rows(); ++row) {
    const std::string token = rows.Text(row, Column::ActionToken);
    VersionDifference difference{grid, rows.Text(row, Column::Action),
                                 strGetIniString(profile, macrosSection, token, kept),
                                 std::string(Trim(rows.Text(row, Column::KeyAssignment)))};
    if (HasVoice(grid, token)) {
      const std::string order = strGetIniString(profile, macrosSection, "ORDINAL_" + token, kept);
      difference.isVoiced = rows.Text(row, Column::Order) != notVoiced;
      difference.wasVoiced = Trim(order) != notVoiced;
    }
    if (Trim(difference.then) != difference.now || difference.wasVoiced != difference.isVoiced)
      differences.push_back(std::move(difference));
  }
}

}  // namespace

std::vector<VersionDifference> VersionDifferences(frmMain& form, const EarlierVersion& version) {
  std::vector<VersionDifference> differences;
  for (int grid = 0; grid < gridCount; ++grid) {
    const std::string& path =
        IsOfMacroFile(grid) ? form.strMainMenuScript : form.strMessagePlaybackScript;
    for (const EarlierScript& script : version.scripts)
      if (script.path == path) Compare(form, grid, script.kept, differences);
  }
  return differences;
}

}  // namespace dialwright
