// Every operation on files that a user's work takes fails once, in every way that it can. Those
// behind the first sixty, which the rows of the documents repeat over and over, fail in one way
// after the other, or, with DIALWRIGHT_FAULTS=all, each in each.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "Desk.h"
#include "ScriptText.h"

namespace dialwright {
namespace {

constexpr Fault faults[] = {
    {"permission", Failure::permissionDenied, Fault::Reach::nothing},
    {"disk full, short write", Failure::diskFull, Fault::Reach::half},
    {"device error", Failure::deviceIOError, Fault::Reach::nothing},
    {"device error behind it", Failure::deviceIOError, Fault::Reach::all},
    {"path gone", Failure::pathNotFound, Fault::Reach::nothing, true},
    {"device gone for good", Failure::deviceUnavailable, Fault::Reach::nothing, false, true},
};

bool IsItsTurn(const Fault& fault, std::size_t at) {
  static const bool all = std::getenv("DIALWRIGHT_FAULTS") != nullptr;
  constexpr std::size_t stride = 7;  // the rows' own operations come in other numbers
  return all || at < 60 || at % stride == static_cast<std::size_t>(&fault - faults);
}

/// What one run of a job left.
struct Played {
  std::vector<std::string> lines;
  std::vector<FileOperation> operations;
  Files before, after, again;
};

Played Play(const Job& job, const std::optional<Fault>& fault = {}, std::size_t at = 0) {
  MemoryFileStore files(ServerFiles());
  Desk desk(files);
  job.prepare(desk);
  Played run;
  run.before = files.All();
  desk.printer.lines.clear();
  files.Arm(fault, at);
  job.work(desk);
  files.Disarm();
  run.operations = files.operations;
  run.lines = desk.printer.lines;
  run.after = files.All();
  job.work(desk);
  if (job.name == "preset") desk.Save();  // which alone writes nothing
  run.again = files.All();
  return run;
}

class FileFaults : public testing::TestWithParam<Job> {
 protected:
  const Job& job = GetParam();
  const Played good = Play(job);
  std::size_t reported = 0;
  int tornRuns = 0;

  /// What is wrong with what the user was told and with the checksums; nothing if all is well.
  std::string FaultOfOneFailure(const Fault& fault, const FileOperation& failed, Played& run) {
    const std::string report = "(" + RuntimeFailure(fault.failure).description + ") in procedure ";
    const std::size_t reports = std::erase_if(run.lines, [&report](const std::string& line) {
      return line.find(report) != std::string::npos;
    });
    reported += reports;
    // Of the keys neither reads nor writes are reported; the checksum's component is asked again.
    const bool replaces = failed.kind == FileOperation::replace;
    // A version that cannot be kept stops nothing, and the window tells.
    const bool mayBeSilent =
        replaces || failed.kind == FileOperation::read || failed.path.starts_with("u:\\");
    if (reports > (replaces ? 0 : 1) || (reports == 0 && !mayBeSilent))
      return "reported " + std::to_string(reports) + " times";
    std::vector<std::string> wanted = good.lines;
    if (job.name == "restore" && reports > 0)
      wanted.back() = "msgbox OK \"" +
                      std::string(failed.kind == FileOperation::names ? "0" : "2") +
                      " files restored\"";
    if (run.lines != wanted) return "the work went on in another way";
    for (const std::string& path : slotScripts)
      if (reports == 0 && run.after.at(path) != run.before.at(path) &&
          !ChecksumFits(run.after.at(path)))
        return "a checksum does not fit";
    return {};
  }

  std::string FaultOf(const Fault& fault, std::size_t at, Played& run) {
    const FileOperation& failed = run.operations.at(at);
    std::vector<std::string> torn;
    std::string wrong = FaultOfFiles(run.before, good.after, run.after, torn);
    if (!torn.empty()) ++tornRuns;
    // The checksum is written in place, as the server demands: what breaks in the middle of it
    // leaves a beginning of the file. Nothing else may.
    const bool rewriting =
        failed.kind == FileOperation::open || failed.kind == FileOperation::write ||
        failed.kind == FileOperation::flush || failed.kind == FileOperation::close;
    for (const std::string& path : torn)
      if (!rewriting || path != failed.path) wrong = "torn: " + path;
    // What a user is told of what cannot be seen, or of failure upon failure, is not counted here.
    if (wrong.empty() && !fault.lasting && failed.kind != FileOperation::question)
      wrong = FaultOfOneFailure(fault, failed, run);
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
      const bool seen = operation.kind == FileOperation::question && !fault.hides;
      if (seen || !IsItsTurn(fault, at)) continue;
      ++played;
      Played run = Play(job, fault, at);
      const std::string what = FaultOf(fault, at, run);
      if (what.empty()) continue;
      ++wrong;
      ADD_FAILURE() << fault.name << " in operation " << at << " on " << operation.path << ": "
                    << what << "\n"
                    << testing::PrintToString(run.lines);
    }
    EXPECT_GT(played, 0);
    const std::string told = fault.lasting ? "" : std::to_string(reported) + " reported, ";
    std::printf("%s, %s: %d of %zu operations, %s%d leave a torn file\n", job.name.data(),
                fault.name.data(), played, good.operations.size(), told.c_str(), tornRuns);
  }
}

INSTANTIATE_TEST_SUITE_P(Jobs, FileFaults, testing::ValuesIn(Jobs().begin(), Jobs().end()),
                         [](const auto& info) { return ReplaceAll(info.param.name, " ", ""); });

}  // namespace
}  // namespace dialwright
