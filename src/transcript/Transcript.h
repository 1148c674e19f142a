#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace dialwright {

/// One step of a transcript: what the user does or sees, the text it is given, and what it must
/// print.
struct Step {
  std::size_t line = 0;  ///< counted from 1
  std::string text;      ///< without the mark in front
  std::vector<std::string> given;
  std::vector<std::string> expected;
  std::vector<std::string> remarks;  ///< blank lines and comments behind the step's output
};

struct Transcript {
  std::vector<std::string> head;  ///< what stands before the first step
  std::vector<Step> steps;
};

Transcript ParseTranscript(std::string_view text);
/// The file's text, with each step's `expected`.
std::string TranscriptText(const Transcript& transcript);

/// The words of a step: divided by blanks; one that holds blanks stands in double quotes.
std::vector<std::string> SplitWords(std::string_view step);

/// Whether a step is given text by the lines behind it.
bool TakesText(std::string_view step);
/// The text of a line that begins with "| " or is a lone "|"; nothing for another.
bool GivenText(std::string_view line, std::string& text);

}  // namespace dialwright
