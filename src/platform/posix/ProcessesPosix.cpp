#include "platform/posix/ProcessesPosix.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <vector>

#include "platform/posix/DescriptorPosix.h"
#include "platform/standins/CommandLine.h"
#include "text/Text.h"

namespace dialwright {
namespace {

using Words = std::vector<std::string>;
using ToHostPath = ProcessesPosix::ToHostPath;

bool HasPath(std::string_view program) {
  return program.find_first_of("\\/:") != std::string_view::npos;
}

// A colon separates the entries of the host's class path, whatever stands around it: an entry with
// one in its name is given as seen from the folder that the program starts in.
std::string ClassPathEntry(const std::string& path, std::string_view folder) {
  if (path.find(':') == std::string::npos || !path.starts_with(folder)) return path;
  const std::string_view rest = std::string_view(path).substr(folder.size());
  if (rest.empty()) return ".";
  return rest.starts_with('/') ? std::string(rest.substr(1)) : path;
}

std::string HostClassPath(std::string_view classPath, std::string_view folder,
                          const ToHostPath& hostPath) {
  std::string result;
  while (!classPath.empty()) {
    const std::string_view entry = classPath.substr(0, classPath.find(';'));
    if (!result.empty()) result.push_back(':');
    result.append(HasPath(entry) ? ClassPathEntry(hostPath(entry), folder) : std::string(entry));
    classPath.remove_prefix(entry.size());
    if (!classPath.empty()) classPath.remove_prefix(1);
  }
  return result;
}

// What the host is to run: the words of the system's command line in the host's terms.
Words HostWords(Words words, std::string_view folder, const ToHostPath& hostPath) {
  if (EqualsIgnoringCase(words[0], "explorer") || EqualsIgnoringCase(words[0], "explorer.exe")) {
    words[0] = "xdg-open";
    if (words.size() > 1 && words[1].find("://") == std::string::npos) {
      words[1] = hostPath(words[1]);
    }
    return words;
  }
  if (HasPath(words[0])) words[0] = hostPath(words[0]);
  for (std::size_t i = 1; i + 1 < words.size(); ++i) {
    if (words[i] == "-classpath") {
      words[i + 1] = HostClassPath(words[i + 1], folder, hostPath);
      break;
    }
  }
  return words;
}

bool IsProgram(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
         access(path.c_str(), X_OK) == 0;
}

// Found here, not by the started process, which may call little before it becomes the program.
std::string FindProgram(const std::string& program) {
  if (program.find('/') != std::string::npos) return program;
  const char* variable = std::getenv("PATH");
  std::string_view folders = variable != nullptr ? variable : "/usr/local/bin:/usr/bin:/bin";
  while (!folders.empty()) {
    const std::string_view folder = folders.substr(0, folders.find(':'));
    std::string candidate = std::string(folder) + "/" + program;
    if (folder.starts_with('/') && IsProgram(candidate)) return candidate;
    folders.remove_prefix(folder.size());
    if (!folders.empty()) folders.remove_prefix(1);
  }
  throw RuntimeFailure(Failure::fileNotFound);
}

// The variables that a program is started with: this process's own. Java takes the names of files
// for ASCII in the C locale, so that a folder with other letters would not be found.
Words Environment(std::string_view folder) {
  Words variables;
  for (char** variable = environ; *variable != nullptr; ++variable)
    variables.emplace_back(*variable);
  const bool ascii =
      std::ranges::all_of(folder, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
  if (ascii) return variables;
  for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
    const char* value = std::getenv(name);
    if (value == nullptr || *value == '\0') continue;
    const std::string locale = LowerCase(value);
    if (locale.find("utf-8") != std::string::npos || locale.find("utf8") != std::string::npos)
      return variables;
    break;
  }
  std::erase_if(variables, [](const std::string& text) { return text.starts_with("LC_ALL="); });
  variables.emplace_back("LC_ALL=C.UTF-8");
  return variables;
}

// Sent by the process that could not become the program.
struct StartReport {
  int error = 0;
  bool inFolder = false;
};

struct Start {
  const char* program;
  char* const* arguments;
  char* const* environment;
  const char* folder;
  int null;
  int report;
};

// From here to the end of RunChild only calls that are safe in the copy of a process with threads.
[[noreturn]] void GiveUp(const Start& start, bool inFolder) {
  const StartReport report{errno, inFolder};
  const ssize_t sent = write(start.report, &report, sizeof report);
  _exit(sent == sizeof report ? 127 : 126);
}

[[noreturn]] void RunProgram(const Start& start) {
  if (chdir(start.folder) != 0) GiveUp(start, true);
  for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
    if (dup2(start.null, stream) < 0) GiveUp(start, false);
  }
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
  signal(SIGPIPE, SIG_DFL);
  execve(start.program, start.arguments, start.environment);
  GiveUp(start, false);
}

// Ends at once, so that the program becomes a child of the system and nobody has to wait for it.
[[noreturn]] void RunChild(const Start& start) {
  setsid();
  const pid_t child = fork();
  if (child == 0) RunProgram(start);
  if (child < 0) GiveUp(start, false);
  _exit(0);
}

// A descriptor that stays clear of the standard streams, which the child gives away.
Descriptor Raised(int number) {
  Descriptor low(number);
  if (number > STDERR_FILENO) return low;
  return Descriptor(fcntl(number, F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
}

StartReport AwaitStart(const Descriptor& reports) {
  StartReport report;
  ssize_t count = 0;
  do {
    count = read(reports.Number(), &report, sizeof report);
  } while (count < 0 && errno == EINTR);
  return count == sizeof report ? report : StartReport{};
}

std::vector<char*> Pointers(Words& words) {
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  return pointers;
}

StartReport Run(const std::string& program, Words& words, const std::string& folder) {
  const std::vector<char*> arguments = Pointers(words);
  Words variables = Environment(folder);
  const std::vector<char*> environment = Pointers(variables);

  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) return {errno};
  const Descriptor reports = Raised(ends[0]);
  Descriptor report = Raised(ends[1]);
  const Descriptor null = Raised(open("/dev/null", O_RDWR | O_CLOEXEC));
  if (!reports || !report || !null) return {EMFILE};

  const Start start{program.c_str(), arguments.data(), environment.data(),
                    folder.c_str(),  null.Number(),    report.Number()};
  const pid_t child = fork();
  if (child == 0) RunChild(start);
  if (child < 0) return {errno};
  while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
  }
  report.Close();
  return AwaitStart(reports);
}

}  // namespace

void ProcessesPosix::Shell(std::string_view commandLine, WindowState,
                           std::string_view currentFolder) {
  Words words = SplitCommandLine(commandLine);
  if (words.empty() || words[0].empty()) throw RuntimeFailure(Failure::invalidProcedureCall);
  const std::string folder = currentFolder.empty() ? "." : hostPath(currentFolder);
  words = HostWords(std::move(words), folder, hostPath);
  const std::string program = FindProgram(words[0]);

  const StartReport report = Run(program, words, folder);
  if (report.error == 0) return;
  if (report.inFolder && report.error == ENOENT) throw RuntimeFailure(Failure::pathNotFound);
  throw RuntimeFailure(FailureOfErrno(report.error));
}

}  // namespace dialwright
