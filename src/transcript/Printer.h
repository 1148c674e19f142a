#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace dialwright {

/// The lines that a step prints.
struct Printer {
  void Line(std::string text) { lines.push_back(std::move(text)); }

  std::vector<std::string> lines;
};

/// A text between double quotes, with <CR>, <LF> and <TAB> for those characters.
std::string Shown(std::string_view text);
/// The same without the quotes.
std::string ShownBare(std::string_view text);

/// An error of the transcript itself.
struct TranscriptError {
  std::string message;
};

}  // namespace dialwright
