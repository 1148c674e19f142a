// A save and a restore on real files: the process is killed at each of its system calls, and each
// call fails: with one error after the other in turn, or, with DIALWRIGHT_FAULTS=all, with each.

#include <gtest/gtest.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include "Desk.h"

namespace dialwright {
namespace {

/// What befalls a process at one of its system calls.
struct Blow {
  std::string_view name;
  int error;  ///< 0: the process is killed
  bool halfWrite = false;
};

constexpr Blow blows[] = {{"EACCES", EACCES}, {"EIO", EIO},
                          {"ENOSPC", ENOSPC}, {"half a write, then ENOSPC", ENOSPC, true},
                          {"EINTR", EINTR},   {"killed", 0}};
constexpr std::size_t errors = std::size(blows) - 1;

#ifdef __SANITIZE_ADDRESS__
// Each blow takes a process, which is dear with all that watches its memory.
constexpr std::size_t killStride = 8;
#else
constexpr std::size_t killStride = 1;
#endif

bool IsItsTurn(const Blow& blow, std::size_t at) {
  static const bool all = std::getenv("DIALWRIGHT_FAULTS") != nullptr;
  if (all || blow.error == 0) return all || at % killStride == 0;
  return at % (errors * killStride) == static_cast<std::size_t>(&blow - blows);
}

constexpr unsigned withoutFiles[]{SYS_mmap,          SYS_munmap,  SYS_mprotect,
                                  SYS_brk,           SYS_madvise, SYS_mremap,
                                  SYS_clock_gettime, SYS_futex,   SYS_rt_sigprocmask};

/// What a process tells, in memory that it shares with its parent.
struct Told {
  std::atomic<int> listener;  ///< by which its calls wait for an answer
  std::atomic<bool> working;
  std::size_t calls;  ///< those that the work has made
  long lines;         ///< that the work printed
  int status;         ///< in which it ended
};

/// Answers the calls of the process's other thread.
void AnswerCalls(Told& told, const Blow* blow, std::size_t at) {
  bool afterHalf = false;
  told.listener.wait(0);
  for (seccomp_notif call{}; ioctl(told.listener, SECCOMP_IOCTL_NOTIF_RECV, &call) == 0;
       call = {}) {
    seccomp_notif_resp answer{call.id, 0, 0, SECCOMP_USER_NOTIF_FLAG_CONTINUE};
    const bool writes = call.data.nr == SYS_write;
    const auto& [file, bytes, count, a, b, c] = call.data.args;
    if (told.working && blow && (told.calls == at || (afterHalf && writes))) {
      if (blow->error == 0) raise(SIGKILL);
      answer.flags = 0;
      answer.error = -blow->error;
      if (blow->halfWrite && writes && !afterHalf) {
        answer.error = 0;
        answer.val = write(static_cast<int>(file), reinterpret_cast<const void*>(bytes), count / 2);
      }
      afterHalf = answer.error == 0;
    }
    if (told.working) ++told.calls;
    ioctl(told.listener, SECCOMP_IOCTL_NOTIF_SEND, &answer);
  }
}

/// From here on the calls of this thread wait for an answer.
int ListenToCalls() {
  std::vector<sock_filter> filter{BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr))};
  for (const unsigned call : withoutFiles) {
    filter.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, call, 0, 1));
    filter.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
  }
  filter.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_USER_NOTIF));
  const sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
  prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
  return static_cast<int>(
      syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, SECCOMP_FILTER_FLAG_NEW_LISTENER, &program));
}

struct JobCase {
  std::string_view name;
  std::size_t job;  ///< of Jobs()
  bool ordinary;    ///< with the rights of an ordinary user, in a folder that he may not write
};

constexpr JobCase jobCases[] = {
    {"save", 0, false}, {"restore", 1, false}, {"saveInReadOnlyFolder", 0, true}};

class SystemCalls : public testing::TestWithParam<JobCase> {
 protected:
  ~SystemCalls() override { munmap(&told, sizeof told); }

  /// Does the work in a process of its own, with a blow at one of its calls or with none.
  void Work(const Blow* blow = nullptr, std::size_t at = 0) {
    new (&told) Told{};
    const pid_t child = fork();
    if (child == 0) {
      // Each call goes to and fro between two threads: they are quickest on one processor.
      cpu_set_t processor;
      CPU_ZERO(&processor);
      CPU_SET(static_cast<unsigned>(sched_getcpu()), &processor);
      sched_setaffinity(0, sizeof processor, &processor);
      std::thread(AnswerCalls, std::ref(told), blow, at).detach();
      desk.printer.lines.clear();
      told.listener = ListenToCalls();
      told.listener.notify_one();
      told.working = told.listener > 0;
      if (told.working) job.work(desk);
      told.working = false;
      told.lines = std::ssize(desk.printer.lines);
      _exit(0);
    }
    waitpid(child, &told.status, 0);
  }

  static long LeftoversIn(const Files& files) {
    return std::ranges::count_if(files, [](const auto& file) {
      return file.first.find(".dialwright-") != std::string::npos;
    });
  }

  /// One blow, and what is wrong afterwards; nothing if all is well.
  std::string FaultOf(const Blow& blow, std::size_t at) {
    server.PutBack(before);
    const bool killed = blow.error == 0;
    Work(&blow, at);
    const Files found = server.Snapshot();
    std::vector<std::string> torn;
    std::string wrong = FaultOfFiles(before, after, found, torn);
    if (!torn.empty()) ++tornRuns;
    if (told.status != (killed ? SIGKILL : 0)) wrong = "it did not end as it should";
    if (told.lines > lines + 1) wrong = "reported more than once";
    // One file at most is written in place at a time, and whole where nothing really fails.
    if (torn.size() > (blow.error == EINTR ? 0 : 1)) wrong = "torn: " + torn.back();
    if (LeftoversIn(found) > (killed ? 1 : 0)) wrong = "a temporary file is left";
    // Who may not make a file beside the script writes in it, and may leave the end of the old
    // text.
    if (killed && GetParam().ordinary) torn.assign(slotScripts.begin(), slotScripts.end());
    job.work(desk);
    if (GetParam().job == 0 && LeftoversIn(server.Snapshot()) > 0)
      wrong = "left by a killed process";
    return wrong.empty() ? FaultOfRepeat(before, after, server.Snapshot(), torn) : wrong;
  }

  const std::unique_ptr<OrdinaryUser> user =
      GetParam().ordinary ? std::make_unique<OrdinaryUser>() : nullptr;
  Server server;
  Desk desk{server.disk};
  const Job& job = Jobs()[GetParam().job];
  Told& told = *static_cast<Told*>(
      mmap(nullptr, sizeof(Told), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
  Files before, after;
  long lines = 0;
  int tornRuns = 0;
};

TEST_P(SystemCalls, ABlowAtEachOfThem) {
  job.prepare(desk);
  before = server.Snapshot();
  job.work(desk);
  after = server.Snapshot();
  server.PutBack(before);
  const auto scripts = server.folder / "drive_c/Telhost/Localize/Scripts";
  if (GetParam().ordinary) std::filesystem::permissions(scripts, std::filesystem::perms(0555));

  Work();
  if (told.listener < 0) GTEST_SKIP() << "no process can be listened to here";
  ASSERT_EQ(told.status, 0);
  ASSERT_EQ(server.Snapshot(), after);
  lines = told.lines;
  const std::size_t calls = told.calls;
  int wrong = 0;
  for (const Blow& blow : blows) {
    int fallen = 0;
    tornRuns = 0;
    for (std::size_t at = 0; at < calls && wrong < 5; ++at) {
      if (!IsItsTurn(blow, at)) continue;
      ++fallen;
      const std::string what = FaultOf(blow, at);
      if (what.empty()) continue;
      ++wrong;
      ADD_FAILURE() << blow.name << " at call " << at << ": " << what;
    }
    EXPECT_GT(fallen, 0);
    std::printf("%s, %s: %d of %zu calls, %d leave a torn file\n", GetParam().name.data(),
                blow.name.data(), fallen, calls, tornRuns);
  }
  std::filesystem::permissions(scripts, std::filesystem::perms(0755));
}

INSTANTIATE_TEST_SUITE_P(Jobs, SystemCalls, testing::ValuesIn(jobCases),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace dialwright
