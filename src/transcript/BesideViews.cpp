#include "BesideViews.h"

#include "beside/Findings.h"
#include "shell/Program.h"

namespace dialwright {

void ShowFindings(const Program& program, Printer& printer) {
  for (const Finding& finding : Findings(*program.main)) {
    const std::string grid = std::to_string(finding.grid) + " ";
    std::string line = finding.kind == FindingKind::refused
                           ? "refused " + grid + Shown(finding.text)
                           : "caution " + grid + std::string(KindName(finding.kind));
    for (const std::string& token : TokensOf(*program.main, finding)) line += " " + token;
    printer.Line(line);
  }
}

}  // namespace dialwright
