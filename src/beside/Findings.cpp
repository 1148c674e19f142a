#include "beside/Findings.h"

#include <algorithm>

#include "beside/Telephone.h"
#include "keymap/RowEditing.h"
#include "shell/Program.h"
#include "text/Text.h"
#include "validation/SaveRules.h"

namespace dialwright {

namespace {

constexpr int badKeyText = 1077;
constexpr int waitsText = 1380;
constexpr int unreachableText = 1381;
constexpr int untouchableText = 1382;

void AddTextThatMayNotLeave(const frmMain& form, std::vector<Finding>& findings) {
  const int grid = GridOfBoxInHand(form);
  if (grid < 0 || IsKeyText(At(form.txtKeyAssignment, grid).Text())) return;
  const KeyGrid& keys = At(form.gridKeyMap, grid);
  Finding finding{FindingKind::refused, grid, form.program.mymyLoadString(badKeyText), {}};
  if (keys.HasRowInHand()) finding.rows.push_back(keys.Row());
  findings.push_back(std::move(finding));
}

/// Whether one refusal names both rows.
bool NamesBoth(const std::vector<Refusal>& refusals, int a, int b) {
  return std::ranges::any_of(refusals, [a, b](const Refusal& refusal) {
    const auto names = [&refusal](int row) {
      return std::ranges::find(refusal.rows, row) != refusal.rows.end();
    };
    return names(a) && names(b);
  });
}

/// A caution's text with the key in it.
std::string About(const frmMain& form, int text, const std::string& key) {
  return ReplaceAll(form.program.mymyLoadString(text), "%1", key);
}

void AddCautions(const frmMain& form, int grid, const MenuRows& rows,
                 const std::vector<Refusal>& refusals, std::vector<Finding>& findings) {
  for (const MenuRow& row : rows) {
    if (row.key.empty()) {
      if (grid == afterMessageGrid && IsVoiced(grid, row))
        findings.push_back({FindingKind::unreachable,
                            grid,
                            form.program.mymyLoadString(unreachableText),
                            {row.row}});
      continue;
    }
    std::vector<int> waiting{row.row};
    for (const MenuRow& other : rows)
      if (IsLongerKey(other.key, row.key) && !NamesBoth(refusals, row.row, other.row))
        waiting.push_back(other.row);
    if (waiting.size() > 1)
      findings.push_back(
          {FindingKind::waits, grid, About(form, waitsText, row.key), std::move(waiting)});
    if (row.key.find_first_not_of(telephoneKeys) != std::string::npos)
      findings.push_back(
          {FindingKind::untouchable, grid, About(form, untouchableText, row.key), {row.row}});
  }
}

}  // namespace

std::string_view KindName(FindingKind kind) {
  switch (kind) {
    case FindingKind::refused:
      return "refused";
    case FindingKind::waits:
      return "waits";
    case FindingKind::unreachable:
      return "unreachable";
    case FindingKind::untouchable:
      break;
  }
  return "untouchable";
}

std::vector<Finding> Findings(const frmMain& form) {
  Program& program = form.program;
  std::vector<Finding> findings;
  std::vector<Finding> cautions;
  AddTextThatMayNotLeave(form, findings);
  const EffectiveGrids grids = EffectiveGridsOf(form);
  for (int grid = 0; grid < gridCount; ++grid) {
    const MenuRows& rows = At(grids, grid);
    const std::vector<Refusal> refusals = Refusals(grid, rows, program.server);
    for (const Refusal& refusal : refusals)
      findings.push_back({FindingKind::refused, grid, RefusalText(program, refusal), refusal.rows});
    AddCautions(form, grid, rows, refusals, cautions);
  }
  std::ranges::move(cautions, std::back_inserter(findings));
  return findings;
}

std::vector<std::string> TokensOf(const frmMain& form, const Finding& finding) {
  std::vector<std::string> tokens;
  for (const int row : finding.rows)
    tokens.push_back(At(form.gridKeyMap, finding.grid).Text(row, Column::ActionToken));
  return tokens;
}

}  // namespace dialwright
