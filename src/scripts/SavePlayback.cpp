#include <array>
#include <string>
#include <string_view>

#include "keymap/Catalogue.h"
#include "scripts/KeyMapSave.h"
#include "scripts/SectionWriter.h"
#include "scripts/modCommon.h"
#include "shell/Program.h"
#include "shell/frmMain.h"
#include "text/Text.h"
#include "validation/DerivedKeyLists.h"
#include "validation/KeyConflicts.h"

namespace dialwright {

namespace {

struct Section {
  std::string_view prefix;
  MenuSection menu;
  int conflictMessage;
};

constexpr Section sections[] = {
    {"HEADER_", {1, "Message Header", 1034, true}, 1065},
    {"BODY_", {2, "Message Body", 1032, true}, 1018},
    {"FOOTER_", {3, "Message Footer", 1033, true}, 1019},
};

/// The actions whose keys an older server cannot tell from the first digit of a two-key sequence.
constexpr std::array<std::string_view, 7> conflictSuffixes{
    "SPEEDUP",      "SLOWDOWN",        "PAUSE",          "ONEKEY_VOLUME",
    "RESET_VOLUME", "DECREASE_VOLUME", "INCREASE_VOLUME"};

/// From this version on a server tells them apart.
constexpr Gate conflictsSolved{4, 0, 2, 37};

ConflictKeys ConflictKeysOf(const KeyGrid& grid, std::string_view prefix) {
  ConflictKeys keys;
  for (int row = 1; row < grid.Rows(); ++row) {
    const std::string token = UpperCase(grid.Text(row, Column::ActionToken));
    for (std::size_t i = 0; i < conflictSuffixes.size(); ++i)
      if (token == std::string(prefix) + std::string(conflictSuffixes[i]))
        keys[i] = Trim(grid.Text(row, Column::KeyAssignment));
  }
  return keys;
}

bool Refused(frmMain& form, const Section& section, const KeyGrid& grid) {
  Program& program = form.program;
  for (int row = 1; row < grid.Rows(); ++row)
    if (RefusedAsDuplicate(form, section.menu, row)) return true;
  if (conflictsSolved.IsOpen(program.server) ||
      !bKeyConflicts(KeyList(grid), ConflictKeysOf(grid, section.prefix)))
    return false;
  program.MsgBox(program.mymyLoadString(section.conflictMessage) + "\r\n" +
                 program.mymyLoadString(1148));
  return true;
}

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
    if (Refused(form, section, grid)) return false;

    SectionWriter writer(form, section.menu, form.strMessagePlaybackScript, bCreateKeyDocument,
                         second);
    const std::string terminate = WriteRows(writer, section.prefix, grid);
    const std::string keys = KeyList(grid);
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
