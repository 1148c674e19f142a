// A save and a restore on real files: the process is killed at each of its system calls, and each
// call fails: with one error after the other in turn, or, with DIALWRIGHT_FAULTS=all, with each.

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include "Desk.h"
#include "Server.h"
#include "Tracer.h"

namespace dialwright {
namespace {

struct Kind {
  std::string_view name;
  int error;  ///< 0: the process is killed
  bool halfWrite = false;
};

constexpr Kind kinds[] = {{"EACCES", EACCES}, {"EIO", EIO},
                          {"ENOSPC", ENOSPC}, {"half a write, then ENOSPC", ENOSPC, true},
                          {"EINTR", EINTR},   {"killed", 0}};
constexpr std::size_t errorKinds = std::size(kinds) - 1;

#ifdef __SANITIZE_ADDRESS__
// Each blow takes a process, which is dear with all that watches its memory.
constexpr std::size_t killStride = 8;
#else
constexpr std::size_t killStride = 1;
#endif

bool isItsTurn(const Kind& kind, std::size_t at) {
  static const bool all = std::getenv("DIALWRIGHT_FAULTS") != nullptr;
  if (all || kind.error == 0) return all || at % killStride == 0;
  return at % (errorKinds * killStride) == static_cast<std::size_t>(&kind - kinds);
}

struct Case {
  std::string_view name;
  std::size_t job;  ///< of Jobs()
  bool ordinary;    ///< with the rights of an ordinary user, in a folder that he may not write
};

constexpr Case cases[] = {
    {"save", 0, false}, {"restore", 1, false}, {"saveInReadOnlyFolder", 0, true}};

class SystemCalls : public testing::TestWithParam<Case> {
 protected:
  std::string work() {
    desk.printer.lines.clear();
    job.work(desk);
    std::string text;
    for (const std::string& line : desk.printer.lines) text += line + "\n";
    return text;
  }

  Traced play(const std::optional<Blow>& blow) {
    return Trace([this] { return work(); }, blow, GetParam().ordinary);
  }

  /// One blow, and what is wrong afterwards; nothing if all is well.
  std::string faultOf(const Kind& kind, std::size_t at) {
    server.putBack(before);
    const bool killed = kind.error == 0;
    const Traced traced = play(Blow{at, killed, kind.error, kind.halfWrite});
    const Files found = server.snapshot();
    std::vector<std::string> torn;
    std::string wrong = FaultOfFiles(before, after, found, torn);
    if (!torn.empty()) ++tornRuns;
    if (traced.finished == killed) wrong = "it did not end as it should";
    if (lineCount(traced.said) > lines + 1) wrong = "reported more than once: " + traced.said;
    // One file at most is written in place at a time, and whole where nothing really fails.
    if (torn.size() > (kind.error == EINTR ? 0 : 1)) wrong = "torn: " + torn.back();
    const auto left = std::ranges::count_if(found, [](const auto& file) {
      return file.first.find(".dialwright-") != std::string::npos;
    });
    if (left > (killed ? 1 : 0)) wrong = "a temporary file is left";
    // Who may not make a file beside the script writes in it, and may leave the end of the old
    // text.
    if (killed && GetParam().ordinary) torn.assign(slotScripts.begin(), slotScripts.end());
    job.again(desk);
    return wrong.empty() ? FaultOfRepeat(before, after, server.snapshot(), torn) : wrong;
  }

  static long lineCount(const std::string& text) { return std::ranges::count(text, '\n'); }

  Server server;
  Desk desk{server.disk};
  const Job& job = Jobs()[GetParam().job];
  Files before, after;
  long lines = 0;
  int tornRuns = 0;
};

TEST_P(SystemCalls, ABlowAtEachOfThem) {
  job.prepare(desk);
  if (GetParam().ordinary) server.giveToOrdinaryUser();
  before = server.snapshot();
  work();
  after = server.snapshot();
  server.putBack(before);
  const auto scripts = server.folder / "drive_c/Telhost/Localize/Scripts";
  if (GetParam().ordinary) std::filesystem::permissions(scripts, std::filesystem::perms(0555));

  const Traced whole = play({});
  if (!whole.permitted) GTEST_SKIP() << "no process can be traced here";
  ASSERT_TRUE(whole.finished) << whole.said;
  ASSERT_EQ(server.snapshot(), after);
  lines = lineCount(whole.said);
  int wrong = 0;
  for (const Kind& kind : kinds) {
    int blows = 0;
    tornRuns = 0;
    for (std::size_t at = 0; at < whole.calls && wrong < 5; ++at) {
      if (!isItsTurn(kind, at)) continue;
      ++blows;
      const std::string what = faultOf(kind, at);
      if (what.empty()) continue;
      ++wrong;
      ADD_FAILURE() << kind.name << " at call " << at << ": " << what;
    }
    std::printf("%s, %s: %d of %zu calls, %d leave a torn file\n", GetParam().name.data(),
                kind.name.data(), blows, whole.calls, tornRuns);
  }
  std::filesystem::permissions(scripts, std::filesystem::perms(0755));
}

INSTANTIATE_TEST_SUITE_P(Jobs, SystemCalls, testing::ValuesIn(cases),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace dialwright
