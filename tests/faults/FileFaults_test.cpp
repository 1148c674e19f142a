// Every operation on files that a user's work takes fails once, in every way that it can.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

#include "Desk.h"
#include "MemoryDisk.h"

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

/// What one run of a job left.
struct Played {
  Lines lines;
  std::vector<FileOperation> operations;
  MemoryDisk::Snapshot before, after, again;
};

Played play(const Job& job, const MemoryDisk& server, const std::optional<Fault>& fault = {},
         std::size_t at = 0) {
  MemoryDisk disk = server;
  FaultyFiles files(disk);
  Desk desk(files, &files);
  job.prepare(desk, disk);
  Played run;
  run.before = disk.snapshot();
  desk.printer.lines.clear();
  files.arm(fault, at);
  job.work(desk);
  files.disarm();
  run.operations = files.operations();
  run.lines = std::move(desk.printer.lines);
  run.after = disk.snapshot();
  if (desk.form().strMainMenuScript.empty() || desk.form().strSetupMenuScript.empty()) {
    // A start that found no script has ended the program: it is started again.
    Desk next(files);
    next.start();
    job.again(next);
  } else {
    job.again(desk);
  }
  run.again = disk.snapshot();
  return run;
}

class Judge {
 public:
  Judge(const Job& theJob, const Played& goodRun) : job(theJob), good(goodRun) {}

  /// What is wrong with a run in which an operation failed; nothing if all is well.
  std::string judge(const Fault& fault, const Played& run, std::size_t at) {
    failed = {run.operations.begin(), run.operations.begin() + static_cast<long>(at) + 1};
    const FileOperation& operation = failed.back();
    rewriting = !reporters(job, failed).empty() &&
                reporters(job, failed).front() == "UpdateChecksumForFile";
    std::string wrong;
    lasting = fault.lasting;
    // What a user is told of what cannot be seen, or of failure upon failure, is not counted here.
    if (!lasting && !operation.isQuestion()) wrong = messages(fault, run);
    for (const auto& [path, bytes] : run.before)
      if (wrong.empty()) wrong = file(path, run);
    for (const auto& [path, bytes] : good.again)
      if (wrong.empty()) wrong = repeated(path, run);
    return wrong;
  }

  int reported = 0;

 private:
  std::string messages(const Fault& fault, const Played& run) {
    const auto procedures = reporters(job, failed);
    Lines lines = run.lines;
    for (const std::string_view procedure : procedures) {
      const auto report = std::ranges::find(lines, reportOf(fault, procedure));
      if (report == lines.end()) continue;
      lines.erase(report);
      ++reported;
      break;
    }
    const bool found = lines.size() + 1 == run.lines.size();
    if (found == procedures.empty()) return "reported in the wrong way";
    Lines wanted = good.lines;
    if (job.name == "restore" && found)
      wanted.back() = "msgbox OK \"" +
                      std::string(failed.back().kind == Operation::names ? "0" : "2") +
                      " files restored\"";
    return lines == wanted ? "" : "the work went on in another way";
  }

  std::string file(const std::string& path, const Played& run) const {
    const auto found = run.after.find(path);
    const bool backup = path.find("\\backup\\") != std::string::npos;
    const bool document = path.ends_with("xmlkeymap.xml") || path.ends_with("mappings.htm");
    if (found == run.after.end()) return document ? "" : "gone: " + path;
    const std::string& before = run.before.at(path);
    const std::string& bytes = found->second;
    if (bytes == before || document) return {};
    if (backup)
      return bytes == run.after.at(scriptOf(path)) ? "" : "a backup of nothing: " + path;
    if (job.name == "restore") return bytes == good.after.at(path) ? "" : "half restored: " + path;
    if (torn(path) && good.after.at(path).starts_with(bytes)) return {};
    if (const std::string fault = FaultOfScript(before, good.after.at(path), bytes); !fault.empty())
      return path + ": " + fault;
    const bool fits = failed.back().isQuestion() || rewriting || lasting || ChecksumFits(bytes);
    return fits ? "" : "wrong checksum: " + path;
  }

  std::string repeated(const std::string& path, const Played& run) const {
    const auto found = run.again.find(path);
    if (found == run.again.end()) return "not made again: " + path;
    if (found->second == good.again.at(path)) return {};
    const bool wasTorn = torn(path) || torn(scriptOf(path));
    if (!wasTorn) return "not put right: " + path;
    // What the broken rewrite took is gone, but the keys are there again.
    const bool right = HasNewLines(run.before.at(scriptOf(path)), good.again.at(path),
                                   found->second) &&
                       ChecksumFits(found->second);
    return right ? "" : "keys not put right: " + path;
  }

  static std::string scriptOf(const std::string& path) {
    return R"(c:\telhost\localize\scripts\)" + path.substr(path.rfind('\\') + 1);
  }

  /// The checksum is written in place, as the server demands: what breaks in the middle of it
  /// leaves a beginning of the file.
  bool torn(const std::string& path) const { return rewriting && failed.back().path == path; }

  const Job& job;
  const Played& good;
  std::vector<FileOperation> failed;
  bool rewriting = false;
  bool lasting = false;
};

class FileFaults : public testing::TestWithParam<Job> {};

TEST_P(FileFaults, EachOperationFailsInEachWay) {
  const Job& job = GetParam();
  MemoryDisk server;
  LayOut([&](std::string_view path, std::string_view bytes) { server.put(path, bytes); });
  const Played good = play(job, server);
  ASSERT_FALSE(good.operations.empty());
  Judge judge(job, good);
  int wrong = 0;
  std::size_t played = 0;
  for (const Fault& fault : faults) {
    for (std::size_t at = 0; at < good.operations.size() && wrong < 5; ++at) {
      const FileOperation& operation = good.operations[at];
      if (operation.isQuestion() && !fault.hides) continue;
      const Played run = play(job, server, fault, at);
      ++played;
      const std::string what = judge.judge(fault, run, at);
      if (what.empty()) continue;
      ++wrong;
      ADD_FAILURE() << fault.name << " in operation " << at << " on " << operation.path << ": "
                    << what << "\n"
                    << testing::PrintToString(run.lines);
    }
  }
  std::printf("%s: %zu operations, %zu faults, %d of them reported\n", job.name.data(),
              good.operations.size(), played, judge.reported);
}

INSTANTIATE_TEST_SUITE_P(Jobs, FileFaults, testing::ValuesIn(Jobs().begin(), Jobs().end()),
                         [](const auto& info) {
                           std::string name(info.param.name);
                           std::erase(name, ' ');
                           return name;
                         });

}  // namespace
}  // namespace dialwright
