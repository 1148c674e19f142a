#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace dialwright {

/// Standard input by lines; can tell whether another line is on its way.
class InputLines {
 public:
  /// The next line, waited for; nothing at the end of the input.
  std::optional<std::string> Next();
  /// The next line if it is there or comes within a short pause, without taking it.
  std::optional<std::string> Peek();

 private:
  bool Fill(int timeout);

  std::string buffer;
  bool ended = false;
};

/// Waits for standard input, a number of milliseconds or without end for -1, and reads what is
/// there. Returns the number of bytes, 0 at the end of the input; nothing when the time is over.
std::optional<std::size_t> ReadInput(int timeout, char* bytes, std::size_t size);

/// Line ends go in and out as they are.
void UseBinaryStreams();

}  // namespace dialwright
