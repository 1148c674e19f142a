#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

#include "keymap/Catalogue.h"
#include "keymap/KeyMapGrid.h"
#include "scripts/KeyMapSave.h"
#include "scripts/SectionWriter.h"
#include "scripts/modCommon.h"
#include "shell/frmMain.h"
#include "validation/DerivedKeyLists.h"
#include "validation/SaveRules.h"

namespace dialwright {

namespace {

constexpr MenuSection afterMessageMenu{afterMessageGrid, "After Message Menu"};

/// The receipt menu has no grid: two of its actions mirror actions of this menu, key and order.
struct Mirror {
  std::string_view token;
  std::string_view mirror;
};
constexpr Mirror mirrors[] = {{"MSGMENU_REPLY", "RECEIPT_RESEND"},
                              {"MSGMENU_FAX", "RECEIPT_PLAY_ORIGINAL_MSG"}};

constexpr std::string_view receiptActions[] = {"RECEIPT_RESEND", "RECEIPT_PLAY_ORIGINAL_MSG"};

/// Goto actions are never voiced, whatever the order cell says.
constexpr std::string_view gotoActions[] = {"MSGMENU_GOTO_ENABLE", "MSGMENU_GOTO_JUMPBACK",
                                            "MSGMENU_GOTO_JUMPFORWARD"};

template <class Names>
bool IsOneOf(const Names& names, std::string_view token) {
  return std::ranges::find(names, token) != std::end(names);
}

void WriteEntry(SectionWriter& writer, std::string_view token, std::string_view keyValue,
                std::string_view order) {
  writer.Write(token, keyValue);
  writer.Write("ORDINAL_" + std::string(token), order);
}

void WriteRow(SectionWriter& writer, const RowToSave& row) {
  if (FindAction(AfterMessageActions(), row.token) == nullptr &&
      !IsOneOf(receiptActions, row.token))
    return;
  const bool fixed = IsSavedAsNotVoiced(row.token);
  WriteEntry(writer, row.token, row.keyValue, fixed ? notVoiced : row.orderValue);
  for (const Mirror& mirror : mirrors)
    if (mirror.token == row.token) WriteEntry(writer, mirror.mirror, row.keyValue, row.orderValue);
  if (row.token == "MSGMENU_OPERATOR") WriteEntry(writer, "MSGMENU_HELP", Quoted({}), notVoiced);
  if (row.token == "MSGMENU_GOTO_JUMPBACK")
    writer.Write("ORDINAL_MSGMENU_GOTO_PREVIOUS", notVoiced);
}

/// The two columns do not hold the same keys: a file of a single slot keeps the receipt menu's
/// terminate keys as they are.
void WriteDerived(SectionWriter& writer, const std::string& keys, bool single) {
  const auto derived = [&](std::string_view key, const std::string& list) {
    writer.Write(key, BlankAndQuoted(single ? list : std::string()));
  };
  const std::string inactive = strGetInactiveKeys(keys);
  derived("MSGMENU_INACTIVE_KEYS", inactive);
  derived("RECEIPT_INACTIVE_KEYS", inactive);
  if (!single) derived("RECEIPT_TERMINATE_PLAYBACK_KEYS", {});
  derived("MSGMENU_SHORTCUT_IGNORE_KEYS", std::string(extendedKeys));
  derived("MSGMENU_DOUBLE_KEYS", strGetDoubleKeys(keys));
  derived("MSGMENU_EXTENDED_DOUBLE_KEYS", strGetExtendedDoubleKeys(keys));
}

}  // namespace

bool IsSavedAsNotVoiced(std::string_view token) { return IsOneOf(gotoActions, token); }

bool SaveAfterMessageKeyInfo(frmMain& form, bool bCreateKeyDocument, bool second) {
  const KeyGrid& grid = At(form.gridKeyMap, afterMessageMenu.grid);
  const MenuRows rows = RowsOf(grid);
  if (RefusedBySave(form, afterMessageMenu.grid, rows)) return false;

  SectionWriter writer(form, afterMessageMenu, form.strMessagePlaybackScript, bCreateKeyDocument,
                       second);
  for (int row = 1; row < grid.Rows(); ++row) WriteRow(writer, writer.Row(row));
  WriteDerived(writer, KeyList(rows), form.bSingleKeyMap != false16);
  writer.Finish();
  return true;
}

}  // namespace dialwright
