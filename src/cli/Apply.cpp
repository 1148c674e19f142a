#include <algorithm>
#include <ostream>

#include "beside/Findings.h"
#include "beside/History.h"
#include "beside/KeyMapFile.h"
#include "beside/TakeIn.h"
#include "cli/Commands.h"
#include "cli/KeyMapSource.h"
#include "cli/ServerDesk.h"
#include "cli/Words.h"
#include "text/Text.h"
#include "text/UnifiedDiff.h"

namespace dialwright {

namespace {

constexpr int refusedText = 1514;
constexpr int incompleteText = 1515;

/// The form's save as its button starts it, with all that the leaving of an edit box brings.
void PressSave(frmMain& form) {
  if (form.focus.Reachable(form.cmdSave) && form.focus.MoveByUser(form.cmdSave))
    form.cmdSave.Click();
}

/// Lines of a unified diff, as a person's terminal shows them.
void PrintDiff(const std::string& diff, const Terminal& terminal) {
  if (!terminal.colour) {
    terminal.results << diff;
    return;
  }
  std::string_view rest = diff;
  while (!rest.empty()) {
    const std::string_view line = rest.substr(0, std::min(rest.find('\n'), rest.size() - 1) + 1);
    const char* colour = line[0] == '+' ? "\x1B[32m" : line[0] == '-' ? "\x1B[31m" : "";
    terminal.results << colour << line << (*colour == '\0' ? "" : "\x1B[0m");
    rest.remove_prefix(line.size());
  }
}

std::optional<std::string> BytesOf(FileStore& files, const std::string& path) {
  if (files.KindOf(path) != FileStore::Kind::file) return std::nullopt;
  return files.Read(path);
}

/// The scripts come first: the copies and documents that a save leaves are of them.
void PrintChanges(ServerDesk& desk, const Terminal& terminal) {
  const auto print = [&](const OverlayFiles::Change& change) {
    PrintDiff(UnifiedDiff(desk.PlaceOf(change.path), BytesOf(desk.RealFiles(), change.path),
                          change.bytes),
              terminal);
  };
  const std::vector<std::string> scripts = SlotScripts(desk.Form());
  const auto isScript = [&](const OverlayFiles::Change& change) {
    return std::ranges::find(scripts, change.path) != scripts.end();
  };
  for (const bool ofScripts : {true, false})
    for (const auto& [key, change] : desk.Overlay().Changes())
      if (isScript(change) == ofScripts) print(change);
}

/// Tells what came of the save, and how the command ends.
ExitCode Outcome(ServerDesk& desk, std::ostream& words) {
  const SaveOutcome& outcome = desk.Form().lastSave;
  if (outcome.kind == SaveOutcome::Kind::complete) return ExitCode::done;
  if (outcome.kind == SaveOutcome::Kind::incomplete) {
    words << desk.TheProgram().mymyLoadString(incompleteText) << '\n';
    for (const std::string& path : outcome.files) words << "  " << desk.PlaceOf(path) << '\n';
  }
  return ExitCode::found;
}

}  // namespace

ExitCode Apply(const Command& command, const Terminal& terminal) {
  // What is wrong with the file is told before anything of the server is.
  const std::string bytes = ReadKeyMapFile(command.first);
  ServerDesk desk(command.server, command.slot.value_or(1), terminal.words,
                  command.dryRun ? ServerDesk::Writing::inMemory : ServerDesk::Writing::onDisk);
  frmMain& form = desk.Form();
  const KeyMap map = ParsedKeyMap(command.first, bytes, desk.TheProgram());

  History history(form);
  PrintSkipped(TakeIn(history, form, map, {}), desk.TheProgram(), terminal.words);
  const std::vector<Finding> findings = Findings(form);
  const auto refused = [](const Finding& finding) { return finding.kind == FindingKind::refused; };
  for (const Finding& finding : findings)
    if (refused(finding)) PrintFinding(form, finding, terminal.words, false);
  if (std::ranges::any_of(findings, refused)) {
    terminal.words << desk.TheProgram().mymyLoadString(refusedText) << '\n';
    return ExitCode::found;
  }
  PressSave(form);
  if (command.dryRun) PrintChanges(desk, terminal);
  return Outcome(desk, terminal.words);
}

}  // namespace dialwright
