#include "BesideViews.h"

#include "beside/Findings.h"
#include "beside/History.h"
#include "beside/Keypad.h"
#include "scripts/SetupOptions.h"
#include "shell/Program.h"

namespace dialwright {

namespace {

/// The tokens of rows of a grid, with a blank before each.
std::string Tokens(const frmMain& form, int grid, const std::vector<int>& rows) {
  std::string tokens;
  for (const int row : rows)
    tokens += " " + At(form.gridKeyMap, grid).Text(row, Column::ActionToken);
  return tokens;
}

}  // namespace

void ShowFindings(const Program& program, Printer& printer) {
  const frmMain& form = *program.main;
  for (const Finding& finding : Findings(form)) {
    const std::string grid = std::to_string(finding.grid) + " ";
    const std::string what = finding.kind == FindingKind::refused
                                 ? "refused " + grid + Shown(finding.text)
                                 : "caution " + grid + std::string(KindName(finding.kind));
    printer.Line(what + Tokens(form, finding.grid, finding.rows));
  }
}

void ShowKeypad(const Program& program, Printer& printer) {
  const frmMain& form = *program.main;
  const int tab = form.SSTab1.Tab();
  if (tab >= gridCount) return printer.Line("refused");
  for (const KeypadKey& key : KeypadOf(EffectiveRows(form, tab)))
    printer.Line(std::string(1, key.key) + " " + std::string(StateName(key.state)) +
                 Tokens(form, tab, key.exact) + Tokens(form, tab, key.longer));
}

void ShowVoiced(const Program& program, Printer& printer) {
  const frmMain& form = *program.main;
  const int tab = form.SSTab1.Tab();
  const MenuRows rows = tab < gridCount ? EffectiveRows(form, tab) : MenuRows();
  const std::vector<const MenuRow*> voiced = VoicedRows(tab, rows);
  for (const MenuRow* row : voiced) printer.Line(Shown(row->key) + " " + row->token);
  if (voiced.empty()) printer.Line("none");
}

void ShowHappenings(const Program& program, const std::vector<Happening>& happened,
                    Printer& printer) {
  const frmMain& form = *program.main;
  for (const Happening& each : happened) {
    const bool namesRows = each.what == Outcomes::does || each.what == Outcomes::clash;
    printer.Line(std::string(OutcomeName(each.what)) + " " + Shown(each.run) +
                 (namesRows ? Tokens(form, form.SSTab1.Tab(), each.rows) : ""));
  }
}

void ShowMatches(const std::vector<Match>& matches, Printer& printer) {
  int number = 0;
  for (const Match& match : matches)
    printer.Line(std::to_string(++number) + " " + std::to_string(match.grid) + " " +
                 match.row.token + " " + Shown(match.row.key));
}

void ShowChanges(History& history, Printer& printer) {
  for (const Change& change : history.Changes()) {
    const std::string grid = std::to_string(change.grid) + " ";
    switch (change.kind) {
      case Change::Kind::key:
        printer.Line(grid + change.token + " key " + Shown(change.before) + " " +
                     Shown(change.now));
        break;
      case Change::Kind::voiced:
        printer.Line(grid + change.token + " voiced");
        break;
      case Change::Kind::silent:
        printer.Line(grid + change.token + " silent");
        break;
      case Change::Kind::order:
        printer.Line(grid + "order");
        break;
      case Change::Kind::box: {
        const frmMain& form = history.TheForm();
        printer.Line((form.*SetupOptions()[change.option].box).Name + " " + change.before + " " +
                     change.now);
        break;
      }
    }
  }
}

}  // namespace dialwright
