// A save and a restore on real files: the process is killed at each of its system calls, and each
// call fails: with one error after the other in turn, or, with DIALWRIGHT_FAULTS=all, with each.

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include "RealServer.h"
#include "Tracer.h"

namespace dialwright {
namespace {

struct Kind {
  std::string_view name;
  bool kill;
  int error;
  bool halfWrite = false;
};

constexpr Kind kinds[] = {
    {"EACCES", false, EACCES}, {"EIO", false, EIO},
    {"ENOSPC", false, ENOSPC}, {"half a write, then ENOSPC", false, ENOSPC, true},
    {"EINTR", false, EINTR},   {"killed", true, 0},
};
constexpr std::size_t errorKinds = std::size(kinds) - 1;

bool isItsTurn(const Kind& kind, std::size_t at) {
  static const bool all = std::getenv("DIALWRIGHT_FAULTS") != nullptr;
  return all || kind.kill || at % errorKinds == static_cast<std::size_t>(&kind - kinds);
}

struct Case {
  std::string_view name;
  std::size_t job;  ///< of Jobs()
  bool ordinary;
  bool readOnlyFolder;
};

constexpr Case cases[] = {{"save", 0, false, false},
                          {"restore", 2, false, false},
                          {"saveAsOrdinaryUser", 0, true, false},
                          {"saveInReadOnlyFolder", 0, true, true}};

class SystemCalls : public testing::TestWithParam<Case> {
 protected:
  std::string work() {
    server.desk.printer.lines.clear();
    job.work(server.desk);
    std::string text;
    for (const std::string& line : server.desk.printer.lines) text += line + "\n";
    return text;
  }

  /// What is wrong with the files that a blow has left; nothing if all is well.
  std::string judge(const RealServer::Snapshot& before, const RealServer::Snapshot& after,
                    const Kind& kind) {
    const RealServer::Snapshot found = server.snapshot();
    std::size_t torn = 0;
    std::size_t left = 0;
    for (const auto& [path, bytes] : found)
      if (path.find(".dialwright-") != std::string::npos) ++left;
    for (std::size_t i = 0; i < std::size(slotScripts); ++i) {
      const std::string script = server.script(i);
      if (!found.contains(script)) return "gone: " + script;
      const std::string& bytes = found.at(script);
      const std::string& backup = found.at(server.backup(i));
      if (backup != before.at(server.backup(i)) && backup != bytes) return "a backup of nothing";
      if (bytes == before.at(script) || bytes == after.at(script)) continue;
      if (job.name == "restore") return "half restored: " + script;
      if (FaultOfScript(before.at(script), after.at(script), bytes).empty()) continue;
      // Only the checksum, which has to be written in place, may leave a beginning of the file;
      // and whoever may not make a file beside it has nothing better than to write in place.
      if (after.at(script).starts_with(bytes) || GetParam().readOnlyFolder)
        ++torn;
      else
        return FaultOfScript(before.at(script), after.at(script), bytes);
    }
    if (torn > 0) ++tornRuns;
    if (torn > 1 || (torn == 1 && kind.error == EINTR)) return "torn";
    return left > (kind.kill ? 1u : 0u) ? "a temporary file is left" : "";
  }

  std::string judgeAgain(const RealServer::Snapshot& before, const RealServer::Snapshot& good,
                         bool wasTorn) {
    RealServer::Snapshot found = server.snapshot();
    std::erase_if(found, [](const auto& file) {
      return file.first.find(".dialwright-") != std::string::npos;
    });
    if (found == good) return {};
    if (!wasTorn) return "not put right";
    for (std::size_t i = 0; i < std::size(slotScripts); ++i) {
      const std::string path = server.script(i);
      if (found.at(path) != good.at(path) &&
          !HasNewLines(before.at(path), good.at(path), found.at(path)))
        return "keys not put right: " + path;
    }
    return {};
  }

  RealServer server;
  const Job& job = Jobs()[GetParam().job];
  int tornRuns = 0;
};

TEST_P(SystemCalls, ABlowAtEachOfThem) {
  job.prepare(server.desk, server.disk);
  if (GetParam().ordinary) server.giveToOrdinaryUser();
  const std::filesystem::path scripts = std::filesystem::path(server.script(0)).parent_path();
  const auto before = server.snapshot();
  work();
  const auto after = server.snapshot();
  server.putBack(before);
  if (GetParam().readOnlyFolder)
    std::filesystem::permissions(scripts, std::filesystem::perms(0555));

  const auto play = [&](const std::optional<Blow>& blow) {
    return Trace([&] { return work(); }, blow, GetParam().ordinary);
  };
  const Traced whole = play({});
  if (!whole.permitted) GTEST_SKIP() << "no process can be traced here";
  ASSERT_TRUE(whole.finished) << whole.said;
  ASSERT_EQ(server.snapshot(), after);
  const auto lines = std::ranges::count(whole.said, '\n');
  int wrong = 0;
  for (const Kind& kind : kinds) {
    tornRuns = 0;
    int blows = 0;
    for (std::size_t at = 0; at < whole.calls && wrong < 5; ++at) {
      if (!isItsTurn(kind, at)) continue;
      ++blows;
      server.putBack(before);
      const int tornBefore = tornRuns;
      const Traced traced = play(Blow{at, kind.kill, kind.error, kind.halfWrite});
      std::string what = judge(before, after, kind);
      if (what.empty() && traced.finished == kind.kill) what = "it did not end as it should";
      if (what.empty() && std::ranges::count(traced.said, '\n') > lines + 1)
        what = "reported more than once: " + traced.said;
      job.again(server.desk);
      if (what.empty()) what = judgeAgain(before, after, tornRuns > tornBefore);
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
