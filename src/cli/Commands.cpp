#include "cli/Commands.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>

#include "beside/Findings.h"
#include "beside/KeyMap.h"
#include "beside/KeyMapExchange.h"
#include "beside/KeyMapFile.h"
#include "cli/HostFile.h"
#include "cli/ServerDesk.h"
#include "cli/Words.h"
#include "keymap/KeyMapGrid.h"
#include "scripts/SetupOptions.h"
#include "text/Text.h"

namespace dialwright {

namespace {

using nlohmann::ordered_json;

constexpr int slotHeading = 1511;
constexpr int nothingFound = 1512;
constexpr int silentRow = 1513;

std::string SlotText(Program& program, int text, int slot) {
  return ReplaceAll(program.mymyLoadString(text), "%1", std::to_string(slot));
}

ordered_json FindingJson(const frmMain& form, const Finding& finding) {
  return {{"kind", KindName(finding.kind)},
          {"menu", At(menuNames, finding.grid)},
          {"text", finding.text},
          {"actions", TokensOf(form, finding)}};
}

bool HasRefusal(const std::vector<Finding>& findings) {
  return std::ranges::any_of(
      findings, [](const Finding& finding) { return finding.kind == FindingKind::refused; });
}

ordered_json ServerJson(const frmMain& form) {
  return {{"edition", EditionName(form)},
          {"server", form.program.server.currentVersion.strVersion}};
}

std::string Padded(std::string text, std::size_t width) {
  const std::size_t length = CharacterCount(text);
  return text.append(width > length ? width - length : 0, ' ');
}

void ShowMenu(frmMain& form, int grid, std::ostream& out) {
  const MenuRows rows = EffectiveRows(form, grid);
  if (rows.empty()) return;
  std::size_t keyWidth = 0, labelWidth = 0;
  for (const MenuRow& row : rows) {
    keyWidth = std::max(keyWidth, CharacterCount(row.key));
    labelWidth = std::max(labelWidth, CharacterCount(row.label));
  }
  out << '\n' << ReplaceAll(form.SSTab1.TabCaption(grid), "&", "") << '\n';
  for (const MenuRow& row : rows) {
    out << "  " << Padded(row.key, keyWidth) << "  " << Padded(row.label, labelWidth) << "  "
        << row.token;
    if (Announces(grid) && row.order == notVoiced)
      out << "  " << form.program.mymyLoadString(silentRow);
    out << '\n';
  }
}

void ShowSetup(const frmMain& form, std::ostream& out) {
  if (!form.SSTab1.TabVisible(setupTab)) return;
  out << '\n' << ReplaceAll(form.SSTab1.TabCaption(setupTab), "&", "") << '\n';
  for (const SetupOption& option : SetupOptions()) {
    const CheckBox& box = form.*option.box;
    out << "  [" << (box.Value() == 1 ? 'x' : ' ') << "] " << ReplaceAll(box.Caption(), "&", "")
        << '\n';
  }
}

}  // namespace

ExitCode Check(const Command& command, const Terminal& terminal) {
  bool refused = false;
  ordered_json server;
  int slots = 1;
  for (int slot = command.slot.value_or(1); slot <= command.slot.value_or(slots); ++slot) {
    ServerDesk desk(command.server, slot, terminal.words);
    frmMain& form = desk.Form();
    slots = SlotsOf(form);
    const std::vector<Finding> findings = Findings(form);
    refused = refused || HasRefusal(findings);
    if (command.json) {
      if (server.empty()) server = ServerJson(form);
      ordered_json found = ordered_json::array();
      for (const Finding& finding : findings) found.push_back(FindingJson(form, finding));
      server["slots"].push_back({{"slot", slot}, {"findings", std::move(found)}});
      continue;
    }
    terminal.results << SlotText(desk.TheProgram(), findings.empty() ? nothingFound : slotHeading,
                                 slot)
                     << '\n';
    for (const Finding& finding : findings) {
      terminal.results << "  ";
      PrintFinding(form, finding, terminal.results, terminal.colour);
    }
  }
  if (command.json)
    terminal.results << server.dump(2, ' ', false, ordered_json::error_handler_t::replace) << '\n';
  return refused ? ExitCode::found : ExitCode::done;
}

ExitCode Show(const Command& command, const Terminal& terminal) {
  ServerDesk desk(command.server, command.slot.value_or(1), terminal.words);
  frmMain& form = desk.Form();
  if (command.json) {
    terminal.results << KeyMapText(KeyMapOf(form));
    return ExitCode::done;
  }
  terminal.results << EditionName(form) << ' ' << form.program.server.currentVersion.strVersion
                   << ", " << SlotText(form.program, slotHeading, SelectedSlot(form)) << '\n';
  for (int grid = 0; grid < gridCount; ++grid) ShowMenu(form, grid, terminal.results);
  ShowSetup(form, terminal.results);
  return ExitCode::done;
}

ExitCode Export(const Command& command, const Terminal& terminal) {
  ServerDesk desk(command.server, command.slot.value_or(1), terminal.words);
  const std::string text = KeyMapText(KeyMapOf(desk.Form()));
  if (command.first.empty())
    terminal.results << text;
  else
    WriteHostFile(command.first, text);
  return ExitCode::done;
}

}  // namespace dialwright
