#include "platform/posix/FolderLockPosix.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <string_view>
#include <thread>
#include <vector>

#include "platform/posix/DescriptorPosix.h"
#include "platform/posix/ReplaceFilePosix.h"

namespace dialwright {
namespace {

volatile std::sig_atomic_t heldSignal = 0;

extern "C" void HoldSignal(int number) { heldSignal = number; }

/// What ends a process politely waits for the end of this; it comes then.
class SignalHold {
 public:
  SignalHold() {
    heldSignal = 0;
    for (Kept& kept : all) {
      struct sigaction hold {};
      hold.sa_handler = HoldSignal;
      hold.sa_flags = SA_RESTART;
      sigemptyset(&hold.sa_mask);
      kept.isHeld = sigaction(kept.number, nullptr, &kept.before) == 0 &&
                    kept.before.sa_handler != SIG_IGN &&
                    sigaction(kept.number, &hold, nullptr) == 0;
    }
  }
  ~SignalHold() {
    for (const Kept& kept : all) {
      if (kept.isHeld) sigaction(kept.number, &kept.before, nullptr);
    }
    if (heldSignal != 0) raise(heldSignal);
  }
  SignalHold(const SignalHold&) = delete;
  SignalHold& operator=(const SignalHold&) = delete;

 private:
  struct Kept {
    int number;
    struct sigaction before {};
    bool isHeld = false;
  };
  std::array<Kept, 2> all{{{SIGTERM}, {SIGHUP}}};
};

class FolderLockPosix : public FolderLock {
 public:
  FolderLockPosix(const std::string& hostFolder, std::chrono::milliseconds patience)
      : folder(Descriptor::Open(hostFolder, O_RDONLY | O_DIRECTORY)) {
    const auto end = std::chrono::steady_clock::now() + patience;
    // Only another's lock is waited for: a file system without locks has none to give.
    while (folder && flock(folder.Number(), LOCK_EX | LOCK_NB) != 0 &&
           (errno == EWOULDBLOCK || errno == EINTR) && std::chrono::steady_clock::now() < end) {
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
  }

 private:
  SignalHold signals;  // the last to go: the folder is free before the process ends
  Descriptor folder;
};

/// The process that a temporary file's name tells of; 0 if it is no such name.
pid_t MakerOf(std::string_view name) {
  if (!name.starts_with(siblingStart)) return 0;
  name.remove_prefix(siblingStart.size());
  int process = 0;
  const auto [end, fault] = std::from_chars(name.data(), name.data() + name.size(), process);
  const bool whole = fault == std::errc() && end != name.data() + name.size() && *end == '-';
  return whole && process > 0 ? process : 0;
}

}  // namespace

std::unique_ptr<FolderLock> LockFolder(const std::string& hostFolder,
                                       std::chrono::milliseconds patience) {
  return std::make_unique<FolderLockPosix>(hostFolder, patience);
}

void RemoveLeftovers(const std::string& hostFolder) {
  const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(hostFolder.c_str()), closedir);
  if (!entries) return;
  while (const dirent* entry = readdir(entries.get())) {
    const pid_t maker = MakerOf(entry->d_name);
    if (maker == 0 || kill(maker, 0) == 0 || errno != ESRCH) continue;
    const std::string path = hostFolder + "/" + entry->d_name;
    struct stat status {};
    if (lstat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
        status.st_uid == geteuid()) {
      unlink(path.c_str());
    }
  }
}

}  // namespace dialwright
