#include "Runner.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>

namespace dialwright {

namespace {

/// How long a peer is waited for, in milliseconds, when a step may still be given text.
constexpr int givenTextPause = 100;

std::string readFile(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw TranscriptError{"cannot read " + path.string()};
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

std::vector<std::string> allTranscripts() {
  std::vector<std::string> files;
  const auto folder = std::filesystem::path(DIALWRIGHT_SOURCE_DIR) / "tests/transcripts";
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
    if (entry.path().extension() == ".transcript") files.push_back(entry.path().string());
  std::sort(files.begin(), files.end());
  return files;
}

void printDifference(const std::string& file, const Step& step,
                     const std::vector<std::string>& printed) {
  std::printf("%s:%zu: > %s\n", file.c_str(), step.line, step.text.c_str());
  for (const std::string& line : step.expected) std::printf("  - %s\n", line.c_str());
  for (const std::string& line : printed) std::printf("  + %s\n", line.c_str());
}

/// Plays a file; returns whether every step printed what it must. With `update` the file is
/// rewritten with what was printed.
bool playFile(const std::string& file, const MakeUser& makeUser, bool update) {
  Transcript transcript = ParseTranscript(readFile(file));
  Player player(makeUser);
  bool passed = !transcript.steps.empty();
  for (Step& step : transcript.steps) {
    std::vector<std::string> printed = player.play(step);
    if (update) {
      step.expected = std::move(printed);
    } else if (printed != step.expected) {
      printDifference(file, step, printed);
      passed = false;
    }
  }
  if (update) std::ofstream(file, std::ios::binary) << TranscriptText(transcript);
  return passed;
}

/// Standard input by lines; can tell whether another line is on its way.
class InputLines {
 public:
  std::optional<std::string> next() {
    while (buffer.find('\n') == std::string::npos && fill(-1)) {
    }
    if (buffer.empty()) return {};
    return take();
  }

  /// The next line if it is there or comes within the pause, without taking it.
  std::optional<std::string> peek() {
    while (buffer.find('\n') == std::string::npos && fill(givenTextPause)) {
    }
    if (buffer.empty()) return {};
    return buffer.substr(0, buffer.find('\n'));
  }

 private:
  bool fill(int timeout) {
    pollfd input{STDIN_FILENO, POLLIN, 0};
    if (ended || poll(&input, 1, timeout) <= 0) return false;
    char bytes[4096];
    const ssize_t count = read(STDIN_FILENO, bytes, sizeof bytes);
    if (count <= 0) {
      ended = true;
      return false;
    }
    buffer.append(bytes, static_cast<std::size_t>(count));
    return true;
  }

  std::string take() {
    const std::size_t end = buffer.find('\n');
    std::string line = buffer.substr(0, end);
    buffer.erase(0, end == std::string::npos ? end : end + 1);
    return line;
  }

  std::string buffer;
  bool ended = false;
};

void servePeer(const MakeUser& makeUser) {
  Player player(makeUser);
  InputLines input;
  while (std::optional<std::string> line = input.next()) {
    if (!line->empty() && line->back() == '\r') line->pop_back();
    if (line->empty() || line->front() == ';') continue;
    Step step;
    step.text = line->starts_with("> ") ? line->substr(2) : *line;
    std::string given;
    while (TakesText(step.text)) {
      const std::optional<std::string> following = input.peek();
      if (!following || !GivenText(*following, given)) break;
      step.given.push_back(given);
      input.next();
    }
    for (const std::string& printed : player.play(step)) std::printf("%s\n", printed.c_str());
    std::puts(".");
    std::fflush(stdout);
  }
}

}  // namespace

int RunTranscripts(const std::vector<std::string>& arguments, const MakeUser& makeUser) {
  bool update = false;
  std::vector<std::string> files;
  for (const std::string& argument : arguments) {
    if (argument == "-") {
      servePeer(makeUser);
      return 0;
    }
    if (argument == "--update")
      update = true;
    else
      files.push_back(argument);
  }
  if (files.empty()) files = allTranscripts();
  int passed = 0;
  int failed = 0;
  for (const std::string& file : files) {
    bool good = false;
    try {
      good = playFile(file, makeUser, update) || update;
    } catch (const TranscriptError& error) {
      std::printf("%s: %s\n", file.c_str(), error.message.c_str());
    }
    ++(good ? passed : failed);
  }
  std::printf("%d passed, %d failed\n", passed, failed);
  return failed == 0 && passed > 0 ? 0 : 1;
}

}  // namespace dialwright
