#include "Runner.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>

#include "InputLines.h"

namespace dialwright {

namespace {

std::string ReadFile(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw TranscriptError{"cannot read " + path.string()};
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

std::vector<std::string> AllTranscripts() {
  std::vector<std::string> files;
  const auto folder = std::filesystem::path(DIALWRIGHT_SOURCE_DIR) / "tests/transcripts";
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
    if (entry.path().extension() == ".transcript") files.push_back(entry.path().string());
  std::sort(files.begin(), files.end());
  return files;
}

/// Whether a line was printed as it must be. An empty line of a file is shown as "| ", and editors
/// that drop blanks at a line's end leave a lone "|".
bool IsExpected(const std::string& expected, const std::string& printed) {
  return expected == printed || (expected == "|" && printed == "| ");
}

void PrintDifference(const std::string& file, const Step& step,
                     const std::vector<std::string>& printed) {
  std::printf("%s:%zu: > %s\n", file.c_str(), step.line, step.text.c_str());
  for (const std::string& line : step.expected) std::printf("  - %s\n", line.c_str());
  for (const std::string& line : printed) std::printf("  + %s\n", line.c_str());
}

/// Plays a file; returns whether every step printed what it must. With `update` the file is
/// rewritten with what was printed.
bool PlayFile(const std::string& file, const MakeUser& makeUser, bool update) {
  Transcript transcript = ParseTranscript(ReadFile(file));
  Player player(makeUser);
  bool passed = !transcript.steps.empty();
  for (Step& step : transcript.steps) {
    std::vector<std::string> printed = player.Play(step);
    if (update) {
      step.expected = std::move(printed);
    } else if (!std::ranges::equal(step.expected, printed, IsExpected)) {
      PrintDifference(file, step, printed);
      passed = false;
    }
  }
  if (update) std::ofstream(file, std::ios::binary) << TranscriptText(transcript);
  return passed;
}

void ServePeer(const MakeUser& makeUser) {
  Player player(makeUser);
  InputLines input;
  while (std::optional<std::string> line = input.Next()) {
    if (!line->empty() && line->back() == '\r') line->pop_back();
    if (line->empty() || line->front() == ';') continue;
    Step step;
    step.text = line->starts_with("> ") ? line->substr(2) : *line;
    std::string given;
    while (TakesText(step.text)) {
      const std::optional<std::string> following = input.Peek();
      if (!following || !GivenText(*following, given)) break;
      step.given.push_back(given);
      input.Next();
    }
    for (const std::string& printed : player.Play(step)) std::printf("%s\n", printed.c_str());
    std::puts(".");
    std::fflush(stdout);
  }
}

}  // namespace

int RunTranscripts(const std::vector<std::string>& arguments, const MakeUser& makeUser) {
  UseBinaryStreams();
  bool update = false;
  std::vector<std::string> files;
  for (const std::string& argument : arguments) {
    if (argument == "-") {
      ServePeer(makeUser);
      return 0;
    }
    if (argument == "--update")
      update = true;
    else
      files.push_back(argument);
  }
  if (files.empty()) files = AllTranscripts();
  int passed = 0;
  int failed = 0;
  for (const std::string& file : files) {
    bool good = false;
    try {
      good = PlayFile(file, makeUser, update) || update;
    } catch (const TranscriptError& error) {
      std::printf("%s: %s\n", file.c_str(), error.message.c_str());
    }
    ++(good ? passed : failed);
  }
  std::printf("%d passed, %d failed\n", passed, failed);
  return failed == 0 && passed > 0 ? 0 : 1;
}

}  // namespace dialwright
