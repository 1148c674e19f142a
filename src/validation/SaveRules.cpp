#include "validation/SaveRules.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

#include "shell/Program.h"
#include "shell/frmMain.h"
#include "text/Text.h"
#include "validation/KeyConflicts.h"

namespace dialwright {

namespace {

/// "99999" has five characters: any shorter order is that of a voiced action.
constexpr std::size_t notVoicedLength = 5;

/// The action whose key opens the message locator.
constexpr std::string_view locator[] = {"MSG_LOCATOR"};

/// The actions whose keys an older server cannot tell from the first digit of a two-key sequence.
constexpr std::string_view speedAndVolume[] = {"SPEEDUP",        "SLOWDOWN",     "PAUSE",
                                               "ONEKEY_VOLUME",  "RESET_VOLUME", "DECREASE_VOLUME",
                                               "INCREASE_VOLUME"};

/// The rules of one menu; texts are string numbers.
struct MenuRules {
  int duplicateText;
  bool countsErrors;        ///< a duplicate raises `iKeyMapErrorCount`
  bool voicedNeedsKey;      ///< an announced action must have a key
  std::string_view prefix;  ///< of the tokens below
  std::span<const std::string_view> apart;
  bool olderServersAlone;  ///< of the rule about them
  int conflictText;
  int conflictAdvice;  ///< 0 where the text says all
};

// clang-format off
constexpr std::array<MenuRules, gridCount> menuRules{{
    {1031, true,  true,  "MENU_",   locator,        false, 1147, 0},
    {1034, true,  false, "HEADER_", speedAndVolume, true,  1065, 1148},
    {1032, true,  false, "BODY_",   speedAndVolume, true,  1018, 1148},
    {1033, true,  false, "FOOTER_", speedAndVolume, true,  1019, 1148},
    {1030, false, false, {}, {}, false, 0, 0},
    {1231, false, false, {}, {}, false, 0, 0},
}};
// clang-format on

/// From this version on a server tells the keys for speed and volume apart.
bool TellsKeysApart(const MeridVersion& server) {
  return server.bIsVersionGreaterThanOrEqualTo(4, 0, 2, 37, 0);
}

/// The place of a row's token among those whose keys must stand apart; -1 if it is none of them.
int PlaceApart(const MenuRules& rules, std::string_view token) {
  if (!StartsWithIgnoringCase(token, rules.prefix)) return -1;
  const std::string_view name = token.substr(rules.prefix.size());
  for (std::size_t i = 0; i < rules.apart.size(); ++i)
    if (EqualsIgnoringCase(name, rules.apart[i])) return static_cast<int>(i);
  return -1;
}

void JudgeRows(int grid, const MenuRules& rules, const MenuRows& rows,
               std::vector<Refusal>& refusals) {
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const MenuRow& row = rows[i];
    if (rules.voicedNeedsKey && row.key.empty() && row.order.size() < notVoicedLength)
      refusals.push_back({grid, SaveRule::keyForVoiced, {row.row}, {}});
    const auto same = [&row](const MenuRow& other) { return IsSameKey(row.key, other.key); };
    if (std::any_of(rows.begin(), rows.begin() + static_cast<std::ptrdiff_t>(i), same)) continue;
    std::vector<int> bearers;
    for (std::size_t other = i; other < rows.size(); ++other)
      if (same(rows[other])) bearers.push_back(rows[other].row);
    if (bearers.size() > 1)
      refusals.push_back({grid, SaveRule::oneRowAKey, std::move(bearers), row.key});
  }
}

void JudgeWhole(int grid, const MenuRules& rules, const MenuRows& rows,
                std::vector<Refusal>& refusals) {
  ConflictKeys keys;
  for (const MenuRow& row : rows)
    if (const int place = PlaceApart(rules, row.token); place >= 0) At(keys, place) = row.key;
  const std::string list = KeyList(rows);
  if (!bKeyConflicts(list, keys)) return;
  Refusal refusal{grid, SaveRule::keysApart, {}, {}};
  for (const MenuRow& row : rows)
    if (PlaceApart(rules, row.token) >= 0 && bKeyConflicts(list, {row.key}))
      refusal.rows.push_back(row.row);
  for (const MenuRow& row : rows)
    if (bKeyConflicts(row.key, keys)) refusal.rows.push_back(row.row);
  refusals.push_back(std::move(refusal));
}

}  // namespace

std::vector<Refusal> Refusals(int grid, const MenuRows& rows, const MeridVersion& server) {
  const MenuRules& rules = At(menuRules, grid);
  std::vector<Refusal> refusals;
  JudgeRows(grid, rules, rows, refusals);
  if (!rules.olderServersAlone || !TellsKeysApart(server)) JudgeWhole(grid, rules, rows, refusals);
  return refusals;
}

std::string RefusalText(Messages& texts, const Refusal& refusal) {
  const MenuRules& rules = At(menuRules, refusal.grid);
  switch (refusal.rule) {
    case SaveRule::keyForVoiced:
      return texts.mymyLoadString(1064);
    case SaveRule::oneRowAKey:
      return texts.mymyLoadString(rules.duplicateText) + refusal.key;
    case SaveRule::keysApart:
      break;
  }
  const std::string text = texts.mymyLoadString(rules.conflictText);
  return rules.conflictAdvice == 0 ? text
                                   : text + "\r\n" + texts.mymyLoadString(rules.conflictAdvice);
}

bool RefusedBySave(frmMain& form, int grid, const MenuRows& rows) {
  const std::vector<Refusal> refusals = Refusals(grid, rows, form.program.server);
  if (refusals.empty()) return false;
  form.lastSave = SaveOutcome::Refused(grid);
  form.program.MsgBox(RefusalText(form.program, refusals.front()));
  if (refusals.front().rule == SaveRule::oneRowAKey) {
    form.SSTab1.SetTab(grid);
    if (At(menuRules, grid).countsErrors) ++form.iKeyMapErrorCount;
  }
  return true;
}

}  // namespace dialwright
