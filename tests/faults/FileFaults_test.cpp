// Every operation on files that a user's work takes fails once, in every way that it can. Of those
// behind the first forty, which the rows of the documents repeat over and over, each seventh fails
// in one way after the other, or, with DIALWRIGHT_FAULTS=all, each in each.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "Desk.h"
#include "ScriptText.h"
#include "Server.h"

namespace dialwright {
namespace {

using Operation = FileOperation::Kind;
using Lines = std::vector<std::string>;

constexpr Fault faults[] = {
    {"permission", Failure::permissionDenied, Fault::Reach::nothing},
    {"disk full, short write", Failure::diskFull, Fault::Reach::half},
    {"device error", Failure::deviceIOError, Fault::Reach::nothing},
    {"device error behind it", Failure::deviceIOError, Fault::Reach::all},
    {"path gone", Failure::pathNotFound, Fault::Reach::nothing, true},
    {"device gone for good", Failure::deviceUnavailable, Fault::Reach::nothing, false, true},
};

const std::vector<std::string_view> documentProcedures = {
    "ConstructKeyDocument", "FinishXMLMappingSection", "AddEmptySection", "FinishXMLDocument"};

/// The procedures of which one has to report; none where silence is required.
std::vector<std::string_view> reporters(const Job& job, const std::vector<FileOperation>& done) {
  const FileOperation& failed = done.back();
  const FileOperation::Kind before = done.size() > 1 ? done[done.size() - 2].kind : Operation::kind;
  const auto at = [&failed](std::string_view part) { return failed.path.ends_with(part); };
  // Reads and writes of keys are silent, and so is whatever befalls the checksum's component.
  if (failed.isQuestion() || failed.byComponent || failed.kind == Operation::replace) return {};
  if (failed.kind == Operation::read && before == Operation::stamp) return {};
  const bool card = job.name == "reference card";
  if (failed.kind == Operation::folder)
    return {at("pdf") ? "GeneratePDFWalletCard" : "BackupScriptFiles"};
  if (failed.kind == Operation::names) return {"RestoreScriptfiles"};
  if (failed.kind == Operation::copy) {
    if (card) return {"GeneratePDFWalletCard"};
    if (at(".htm")) return {"cmdSave_Click"};
    return {job.name == "restore" ? "RestoreScriptfiles" : "BackupScriptFiles"};
  }
  if (failed.kind == Operation::remove && before == Operation::kind) return {"cmdSave_Click"};
  if (at(".htm")) return {"ConstructKeyDocument"};
  if (at("xmlkeymap.xml")) return documentProcedures;
  return {"UpdateChecksumForFile"};
}

std::string reportOf(const Fault& fault, std::string_view procedure) {
  const RuntimeFailure failure(fault.failure);
  const bool checksum = procedure == "UpdateChecksumForFile";
  return "msgbox OK \"" + std::string(checksum ? "(error):" : "Error ") +
         std::to_string(failure.number) + " (" + failure.description + ") in procedure " +
         std::string(procedure) + " of Form " + (checksum ? "Form1" : "frmMain") + "\"";
}

bool isItsTurn(const Fault& fault, std::size_t at) {
  constexpr std::size_t varied = 40;
  constexpr std::size_t stride = 7;
  static const bool all = std::getenv("DIALWRIGHT_FAULTS") != nullptr;
  const auto number = static_cast<std::size_t>(&fault - faults);
  return all || at < varied || (at % stride == 0 && at / stride % std::size(faults) == number);
}

/// What one run of a job left.
struct Played {
  Lines lines;
  std::vector<FileOperation> operations;
  Server::Snapshot before, after, again;
};

Played play(const Job& job, const std::optional<Fault>& fault = {}, std::size_t at = 0) {
  Server server;
  FaultyFiles files(server.disk);
  Desk desk(files, &files);
  job.prepare(desk, server.disk);
  Played run;
  run.before = server.snapshot();
  desk.printer.lines.clear();
  files.arm(fault, at);
  job.work(desk);
  files.disarm();
  run.operations = files.operations;
  run.lines = std::move(desk.printer.lines);
  run.after = server.snapshot();
  if (desk.form().strSetupMenuScript.empty()) {
    // A start that found a script missing has ended the program: it is started again.
    Desk next(files);
    next.start();
    job.again(next);
  } else {
    job.again(desk);
  }
  run.again = server.snapshot();
  return run;
}

/// What is wrong with what the user was told when an operation failed; nothing if all is well.
std::string faultOfMessages(const Job& job, const Fault& fault, const Played& good, Lines lines,
                            const std::vector<FileOperation>& done, int& reported) {
  const auto procedures = reporters(job, done);
  const auto isReport = [&](const std::string& line) {
    return std::ranges::any_of(
        procedures, [&](std::string_view name) { return line == reportOf(fault, name); });
  };
  const std::size_t reports = std::erase_if(lines, isReport);
  reported += static_cast<int>(reports);
  if (reports != (procedures.empty() ? 0 : 1)) return "reported in the wrong way";
  Lines wanted = good.lines;
  if (job.name == "restore" && reports > 0) {
    const bool none = done.back().kind == Operation::names;
    wanted.back() = "msgbox OK \"" + std::string(none ? "0" : "2") + " files restored\"";
  }
  return lines == wanted ? "" : "the work went on in another way";
}

std::string faultOf(const Job& job, const Fault& fault, const Played& good, const Played& run,
                    std::size_t at, int& reported) {
  const std::vector<FileOperation> done(run.operations.begin(),
                                        run.operations.begin() + static_cast<long>(at) + 1);
  const FileOperation& failed = done.back();
  const auto procedures = reporters(job, done);
  const bool rewriting = !procedures.empty() && procedures[0] == "UpdateChecksumForFile";
  std::string wrong;
  // What a user is told of what cannot be seen, or of failure upon failure, is not counted here.
  if (!fault.lasting && !failed.isQuestion())
    wrong = faultOfMessages(job, fault, good, run.lines, done, reported);
  std::vector<std::string> torn;
  if (wrong.empty()) wrong = FaultOfFiles(run.before, good.after, run.after, torn);
  // The checksum is written in place, as the server demands: what breaks in the middle of it leaves
  // a beginning of the file. Nothing else may.
  for (const std::string& path : torn)
    if (!rewriting || path != failed.path || failed.kind == Operation::read)
      wrong = "torn: " + path;
  if (!rewriting && !fault.lasting && !failed.isQuestion())
    for (const std::string_view name : slotScripts)
      if (const std::string path = Server::script(name);
          run.after.at(path) != run.before.at(path) && !ChecksumFits(run.after.at(path)))
        wrong = "a checksum does not fit";
  return wrong.empty() ? FaultOfRepeat(run.before, good.again, run.again, torn) : wrong;
}

class FileFaults : public testing::TestWithParam<Job> {};

TEST_P(FileFaults, EachOperationFailsInEachWay) {
  const Job& job = GetParam();
  const Played good = play(job);
  ASSERT_FALSE(good.operations.empty());
  int wrong = 0;
  int played = 0;
  int reported = 0;
  for (std::size_t i = 0; i < std::size(faults) * good.operations.size() && wrong < 5; ++i) {
    const Fault& fault = faults[i % std::size(faults)];
    const std::size_t at = i / std::size(faults);
    const FileOperation& operation = good.operations[at];
    if ((operation.isQuestion() && !fault.hides) || !isItsTurn(fault, at)) continue;
    ++played;
    const Played run = play(job, fault, at);
    const std::string what = faultOf(job, fault, good, run, at, reported);
    if (what.empty()) continue;
    ++wrong;
    ADD_FAILURE() << fault.name << " in operation " << at << " on " << operation.path << ": "
                  << what << "\n"
                  << testing::PrintToString(run.lines);
  }
  std::printf("%s: %zu operations, %d faults, %d of them reported\n", job.name.data(),
              good.operations.size(), played, reported);
}

INSTANTIATE_TEST_SUITE_P(Jobs, FileFaults, testing::ValuesIn(Jobs().begin(), Jobs().end()),
                         [](const auto& info) {
                           std::string name(info.param.name);
                           std::erase(name, ' ');
                           return name;
                         });

}  // namespace
}  // namespace dialwright
