#include <string>
#include <string_view>

#include "keymap/Catalogue.h"
#include "scripts/KeyMapSave.h"
#include "scripts/SectionWriter.h"
#include "scripts/modCommon.h"
#include "shell/frmMain.h"
#include "validation/DerivedKeyLists.h"
#include "validation/SaveRules.h"

namespace dialwright {

namespace {

struct Section {
  std::string_view prefix;
  MenuSection menu;
};

constexpr Section sections[] = {
    {"HEADER_", {1, "Message Header"}},
    {"BODY_", {2, "Message Body"}},
    {"FOOTER_", {3, "Message Footer"}},
};

/// Writes the rows; returns the keys that end the playback.
std::string WriteRows(SectionWriter& writer, std::string_view prefix, const KeyGrid& grid) {
  std::string strTerminateKeys(extendedKeys);
  const std::string operatorToken = std::string(prefix) + "OPERATOR";
  for (int row = 1; row < grid.Rows(); ++row) {
    const RowToSave values = writer.Row(row);
    if (FindAction(PlaybackActions(), values.token, prefix) != nullptr) {
      writer.Write(values.token, values.keyValue);
      if (values.token == operatorToken) writer.Write(std::string(prefix) + "HELP", Quoted({}));
    }
    strTerminateKeys =
        strAddToTerminatePlaybackKeys(strTerminateKeys, values.keyValue, values.token);
  }
  return strTerminateKeys;
}

}  // namespace

bool SaveVCRKeyInfo(frmMain& form, bool bCreateKeyDocument, bool second) {
  const bool single = form.bSingleKeyMap != false16;
  for (const Section& section : sections) {
    const KeyGrid& grid = At(form.gridKeyMap, section.menu.grid);
    const MenuRows rows = RowsOf(grid);
    if (RefusedBySave(form, section.menu.grid, rows)) return false;

    SectionWriter writer(form, section.menu, form.strMessagePlaybackScript, bCreateKeyDocument,
                         second);
    const std::string terminate = WriteRows(writer, section.prefix, grid);
    const std::string keys = KeyList(rows);
    const auto derived = [&](std::string_view name, const std::string& value) {
      writer.Write(std::string(section.prefix) + std::string(name), value);
    };
    derived("DOUBLE_KEYS", BlankAndQuoted(single ? strGetDoubleKeys(keys) : ""));
    derived("EXTENDED_DOUBLE_KEYS", BlankAndQuoted(single ? strGetExtendedDoubleKeys(keys) : ""));
    derived("IGNORE_KEYS", BlankAndQuoted({}));
    derived("INVALID_KEYS", BlankAndQuoted({}));
    derived("TERMINATE_PLAYBACK_KEYS", Quoted(single ? terminate + strGetInactiveKeys(keys) : ""));
    writer.Finish();
  }
  return true;
}

}  // namespace dialwright
