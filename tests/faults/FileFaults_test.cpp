// Every operation on files that a user's work takes fails once, in every way that it can. Those
// behind the first sixty, which the rows of the documents repeat over and over, fail in one way
// after the other, or, with DIALWRIGHT_FAULTS=all, each in each.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "Desk.h"
#include "FaultyFiles.h"
#include "ScriptText.h"

namespace dialwright {
namespace {

using Lines = std::vector<std::string>;

constexpr Fault faults[] = {
    {"permission", Failure::permissionDenied, Fault::Reach::nothing},
    {"disk full, short write", Failure::diskFull, Fault::Reach::half},
    {"device error", Failure::deviceIOError, Fault::Reach::nothing},
    {"device error behind it", Failure::deviceIOError, Fault::Reach::all},
    {"path gone", Failure::pathNotFound, Fault::Reach::nothing, true},
    {"device gone for good", Failure::deviceUnavailable, Fault::Reach::nothing, false, true},
};

bool isItsTurn(const Fault& fault, std::size_t at) {
  static const bool all = std::getenv("DIALWRIGHT_FAULTS") != nullptr;
  constexpr std::size_t stride = 7;  // the rows' own operations come in other numbers
  return all || at < 60 || at % stride == static_cast<std::size_t>(&fault - faults);
}

/// Who has to report a failure of an operation on a file of that name; the first row that fits.
struct Reporter {
  Operation kind;
  std::string_view path;
  Lines procedures;
};
const Lines page{"ConstructKeyDocument"};
const Lines document{"ConstructKeyDocument", "FinishXMLMappingSection", "AddEmptySection",
                     "FinishXMLDocument"};
const Lines checksum{"UpdateChecksumForFile"};
const Reporter reporters[] = {
    {Operation::replace, "", {}},  // writes of keys are silent
    {Operation::folder, "\\pdf", {"GeneratePDFWalletCard"}},
    {Operation::folder, "", {"BackupScriptFiles"}},
    {Operation::names, "", {"RestoreScriptfiles"}},
    {Operation::copy, ".xml", {"GeneratePDFWalletCard"}},
    {Operation::copy, ".htm", {"cmdSave_Click"}},
    {Operation::copy, "", {"BackupScriptFiles", "RestoreScriptfiles"}},
    {Operation::remove, ".htm", {"cmdSave_Click", "ConstructKeyDocument"}},
    {Operation::remove, ".xml", {"cmdSave_Click"}},
};

Lines reportersOf(const FileOperation& failed) {
  if (failed.isQuestion()) return {};
  for (const Reporter& reporter : reporters)
    if (reporter.kind == failed.kind && failed.path.ends_with(reporter.path))
      return reporter.procedures;
  if (failed.path.ends_with(".htm")) return page;
  return failed.path.ends_with(".xml") ? document : checksum;
}

/// The lines of what is said without the reports of a fault.
Lines withoutReports(Lines said, const Fault& fault, const Lines& procedures) {
  const RuntimeFailure failure(fault.failure);
  for (const std::string& procedure : procedures) {
    const bool isChecksum = procedure == checksum[0];
    std::erase(said, "msgbox OK \"" + std::string(isChecksum ? "(error):" : "Error ") +
                         std::to_string(failure.number) + " (" + failure.description +
                         ") in procedure " + procedure + " of Form " +
                         (isChecksum ? "Form1" : "frmMain") + "\"");
  }
  return said;
}

/// What one run of a job left.
struct Played {
  Lines lines;
  std::vector<FileOperation> operations;
  Files before, after, again;
};

Played play(const Job& job, const std::optional<Fault>& fault = {}, std::size_t at = 0) {
  FaultyFiles files(ServerFiles());
  Desk desk(files);
  job.prepare(desk);
  Played run;
  run.before = files.all();
  desk.printer.lines.clear();
  files.arm(fault, at);
  job.work(desk);
  files.disarm();
  run.operations = files.operations;
  run.lines = desk.printer.lines;
  run.after = files.all();
  // A start that found a script missing has ended the program: it is started again.
  Desk next(files);
  const bool ended = desk.form().strSetupMenuScript.empty();
  if (ended) next.start();
  job.again(ended ? next : desk);
  run.again = files.all();
  return run;
}

class FileFaults : public testing::TestWithParam<Job> {
 protected:
  const Job& job = GetParam();
  const Played good = play(job);
  std::size_t reported = 0;
  int tornRuns = 0;

  /// What is wrong with what the user was told; nothing if all is well.
  std::string faultOfMessages(const Fault& fault, const FileOperation& failed, const Played& run) {
    const Lines procedures = reportersOf(failed);
    const Lines lines = withoutReports(run.lines, fault, procedures);
    const std::size_t reports = run.lines.size() - lines.size();
    reported += reports;
    // Reads of keys and of the checksum's component are silent; the component is asked again.
    const bool mayBeSilent =
        procedures.empty() || (failed.kind == Operation::read && procedures == checksum);
    if (reports > 1 || (reports == 0 && !mayBeSilent)) return "reported in the wrong way";
    Lines wanted = good.lines;
    if (job.name == "restore" && reports > 0)
      wanted.back() = "msgbox OK \"" + std::string(failed.kind == Operation::names ? "0" : "2") +
                      " files restored\"";
    return lines == wanted ? "" : "the work went on in another way";
  }

  std::string faultOf(const Fault& fault, std::size_t at, const Played& run) {
    const FileOperation& failed = run.operations.at(at);
    // What a user is told of what cannot be seen, or of failure upon failure, is not counted here.
    const bool once = !fault.lasting && !failed.isQuestion();
    std::string wrong = once ? faultOfMessages(fault, failed, run) : "";
    std::vector<std::string> torn;
    if (wrong.empty()) wrong = FaultOfFiles(run.before, good.after, run.after, torn);
    if (!torn.empty()) ++tornRuns;
    // The checksum is written in place, as the server demands: what breaks in the middle of it
    // leaves a beginning of the file. Nothing else may.
    const bool rewriting = failed.kind == Operation::open || failed.kind == Operation::write ||
                           failed.kind == Operation::close;
    for (const std::string& path : torn)
      if (!rewriting || path != failed.path) wrong = "torn: " + path;
    const bool checksumTold = run.lines != withoutReports(run.lines, fault, checksum);
    if (!checksumTold && once)
      for (const std::string& path : slotScripts)
        if (run.after.at(path) != run.before.at(path) && !ChecksumFits(run.after.at(path)))
          wrong = "a checksum does not fit";
    return wrong.empty() ? FaultOfRepeat(run.before, good.again, run.again, torn) : wrong;
  }
};

TEST_P(FileFaults, EachOperationFailsInEachWay) {
  int wrong = 0;
  for (const Fault& fault : faults) {
    int played = 0;
    reported = 0;
    tornRuns = 0;
    for (std::size_t at = 0; at < good.operations.size() && wrong < 5; ++at) {
      const FileOperation& operation = good.operations[at];
      if ((operation.isQuestion() && !fault.hides) || !isItsTurn(fault, at)) continue;
      ++played;
      const Played run = play(job, fault, at);
      const std::string what = faultOf(fault, at, run);
      if (what.empty()) continue;
      ++wrong;
      ADD_FAILURE() << fault.name << " in operation " << at << " on " << operation.path << ": "
                    << what << "\n"
                    << testing::PrintToString(run.lines);
    }
    EXPECT_GT(played, 0);
    std::printf("%s, %s: %d of %zu operations, %zu reported, %d leave a torn file\n",
                job.name.data(), fault.name.data(), played, good.operations.size(), reported,
                tornRuns);
  }
}

INSTANTIATE_TEST_SUITE_P(Jobs, FileFaults, testing::ValuesIn(Jobs().begin(), Jobs().end()),
                         [](const auto& info) { return ReplaceAll(info.param.name, " ", ""); });

}  // namespace
}  // namespace dialwright
