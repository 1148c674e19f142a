#include "Tracer.h"

#include <fcntl.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

#include "Server.h"

namespace dialwright {

#if defined(__x86_64__)

namespace {

/// The work stands between two calls that it makes nowhere else.
constexpr unsigned long mark = SYS_getppid;

constexpr std::array<unsigned long, 9> withoutFiles{
    SYS_mmap,   SYS_munmap, SYS_mprotect,      SYS_brk,           SYS_madvise,
    SYS_mremap, SYS_futex,  SYS_clock_gettime, SYS_rt_sigprocmask};

[[noreturn]] void beChild(const std::function<std::string()>& work, int said, bool ordinary) {
  if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) _exit(3);
  raise(SIGSTOP);
  if (ordinary && geteuid() == 0 && (setegid(ordinaryUser) != 0 || seteuid(ordinaryUser) != 0))
    _exit(4);
  syscall(mark);
  const std::string text = work();
  syscall(mark);
  const ssize_t written = write(said, text.data(), text.size());
  _exit(written == static_cast<ssize_t>(text.size()) ? 0 : 5);
}

/// Follows a child that has stopped itself, call by call.
class Follower {
 public:
  Follower(pid_t theChild, const std::optional<Blow>& theBlow) : child(theChild), blow(theBlow) {
    ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
  }

  Traced follow() {
    int status = 0;
    int signal = 0;
    for (;;) {
      // Nothing more is to come once the blow has fallen: the child may run on by itself.
      ptrace(isOver() ? PTRACE_CONT : PTRACE_SYSCALL, child, nullptr, signal);
      if (waitpid(child, &status, 0) != child || !WIFSTOPPED(status)) break;
      const bool call = WSTOPSIG(status) == (SIGTRAP | 0x80);
      signal = call ? 0 : WSTOPSIG(status);
      if (!call) continue;
      inside = !inside;
      inside ? entry() : exit();
    }
    traced.finished = WIFEXITED(status) && WEXITSTATUS(status) == 0;
    return traced;
  }

 private:
  bool isOver() const { return blow && traced.calls > blow->at && !refused && !afterHalf; }

  void entry() {
    user_regs_struct registers{};
    ptrace(PTRACE_GETREGS, child, nullptr, &registers);
    if (registers.orig_rax == mark) working = !working;
    if (!working || registers.orig_rax == mark ||
        std::ranges::find(withoutFiles, registers.orig_rax) != withoutFiles.end())
      return;
    const bool writes = registers.orig_rax == SYS_write;
    if (blow && (traced.calls == blow->at || (afterHalf && writes))) {
      if (blow->kill) {
        kill(child, SIGKILL);
      } else if (blow->halfWrite && writes && !afterHalf) {
        registers.rdx /= 2;
        afterHalf = true;
        ptrace(PTRACE_SETREGS, child, nullptr, &registers);
      } else {
        registers.orig_rax = ~0UL;  // no call at all
        ptrace(PTRACE_SETREGS, child, nullptr, &registers);
        refused = true;
        afterHalf = false;
      }
    }
    ++traced.calls;
  }

  void exit() {
    if (!std::exchange(refused, false)) return;
    user_regs_struct registers{};
    ptrace(PTRACE_GETREGS, child, nullptr, &registers);
    registers.rax = static_cast<unsigned long long>(-static_cast<long long>(blow->error));
    ptrace(PTRACE_SETREGS, child, nullptr, &registers);
  }

  pid_t child;
  const std::optional<Blow>& blow;
  Traced traced;
  bool inside = false, working = false, refused = false, afterHalf = false;
};

}  // namespace

Traced Trace(const std::function<std::string()>& work, const std::optional<Blow>& blow,
             bool ordinary) {
  int ends[2];
  Traced traced;
  traced.permitted = false;
  if (pipe2(ends, O_CLOEXEC) != 0) return traced;
  const pid_t child = fork();
  if (child == 0) beChild(work, ends[1], ordinary);
  close(ends[1]);
  int status = 0;
  waitpid(child, &status, 0);
  if (WIFSTOPPED(status)) traced = Follower(child, blow).follow();
  char bytes[4096];
  for (ssize_t count = 0; (count = read(ends[0], bytes, sizeof bytes)) > 0;)
    traced.said.append(bytes, static_cast<std::size_t>(count));
  close(ends[0]);
  return traced;
}

#else

// The registers of other machines are not known here.
Traced Trace(const std::function<std::string()>&, const std::optional<Blow>&, bool) {
  Traced traced;
  traced.permitted = false;
  return traced;
}

#endif

}  // namespace dialwright
