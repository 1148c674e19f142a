#include "Transcript.h"

#include <algorithm>
#include <utility>

namespace dialwright {

namespace {

constexpr std::string_view stepMark = "> ";

std::vector<std::string> Lines(std::string_view text) {
  std::vector<std::string> result;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    result.emplace_back(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return result;
}

bool IsRemark(const std::string& line) { return line.empty() || line.front() == ';'; }

}  // namespace

bool TakesText(std::string_view step) {
  const std::vector<std::string> words = SplitWords(step);
  return !words.empty() && (words[0] == "file" || words[0] == "library");
}

bool GivenText(std::string_view line, std::string& text) {
  if (line != "|" && !line.starts_with("| ")) return false;
  text = line.size() > 2 ? line.substr(2) : std::string_view();
  return true;
}

Transcript ParseTranscript(std::string_view text) {
  Transcript transcript;
  std::size_t number = 0;
  for (std::string& line : Lines(text)) {
    ++number;
    if (line.starts_with(stepMark)) {
      Step step;
      step.line = number;
      step.text = line.substr(stepMark.size());
      transcript.steps.push_back(std::move(step));
      continue;
    }
    if (transcript.steps.empty()) {
      transcript.head.push_back(std::move(line));
      continue;
    }
    Step& step = transcript.steps.back();
    std::string given;
    const bool nothingYet = step.expected.empty() && step.remarks.empty();
    if (nothingYet && TakesText(step.text) && GivenText(line, given))
      step.given.push_back(std::move(given));
    else if (IsRemark(line))
      step.remarks.push_back(std::move(line));
    else
      step.expected.push_back(std::move(line));
  }
  return transcript;
}

std::string TranscriptText(const Transcript& transcript) {
  std::string text;
  const auto add = [&text](const std::vector<std::string>& some, std::string_view mark) {
    for (const std::string& line : some) {
      const bool bare = line.empty() && mark == "| ";
      text.append(bare ? "|" : mark).append(line).append("\n");
    }
  };
  add(transcript.head, "");
  for (const Step& step : transcript.steps) {
    text.append(stepMark).append(step.text).append("\n");
    add(step.given, "| ");
    add(step.expected, "");
    add(step.remarks, "");
  }
  return text;
}

std::vector<std::string> SplitWords(std::string_view step) {
  std::vector<std::string> words;
  std::size_t at = 0;
  while (at < step.size()) {
    if (step[at] == ' ') {
      ++at;
      continue;
    }
    const bool quoted = step[at] == '"';
    const std::size_t start = quoted ? at + 1 : at;
    const std::size_t end = std::min(step.find(quoted ? '"' : ' ', start), step.size());
    words.emplace_back(step.substr(start, end - start));
    at = end + (quoted ? 1 : 0);
  }
  return words;
}

}  // namespace dialwright
