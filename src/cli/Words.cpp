#include "cli/Words.h"

#include <ostream>
#include <string>

#include "text/Text.h"

namespace dialwright {

namespace {

constexpr int skippedText = 1503;

}  // namespace

void PrintFinding(const frmMain& form, const Finding& finding, std::ostream& out, bool colour) {
  const char* begin = finding.kind == FindingKind::refused ? "\x1B[31m" : "\x1B[33m";
  out << (colour ? begin : "") << KindName(finding.kind) << (colour ? "\x1B[0m" : "") << ' '
      << At(menuNames, finding.grid) << ": "
      << ReplaceAll(ReplaceAll(finding.text, "\r\n", " "), "\n", " ");
  for (const std::string& token : TokensOf(form, finding)) out << ' ' << token;
  out << '\n';
}

void PrintSkipped(const std::vector<SkippedAction>& skipped, Messages& strings,
                  std::ostream& words) {
  if (skipped.empty()) return;
  words << strings.mymyLoadString(skippedText) << '\n';
  for (const SkippedAction& action : skipped)
    words << "  " << At(menuNames, action.grid) << ' ' << action.action << '\n';
}

}  // namespace dialwright
