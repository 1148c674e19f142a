#include "InputLines.h"

namespace dialwright {

namespace {

/// How long a peer is waited for, in milliseconds, when a step may still be given text.
constexpr int givenTextPause = 100;
constexpr int noTimeout = -1;

}  // namespace

std::optional<std::string> InputLines::Next() {
  while (buffer.find('\n') == std::string::npos && Fill(noTimeout)) {
  }
  if (buffer.empty()) return {};
  const std::size_t end = buffer.find('\n');
  std::string line = buffer.substr(0, end);
  buffer.erase(0, end == std::string::npos ? end : end + 1);
  return line;
}

std::optional<std::string> InputLines::Peek() {
  while (buffer.find('\n') == std::string::npos && Fill(givenTextPause)) {
  }
  if (buffer.empty()) return {};
  return buffer.substr(0, buffer.find('\n'));
}

bool InputLines::Fill(int timeout) {
  if (ended) return false;
  char bytes[4096];
  const std::optional<std::size_t> count = ReadInput(timeout, bytes, sizeof bytes);
  if (!count) return false;
  ended = *count == 0;
  buffer.append(bytes, *count);
  return !ended;
}

}  // namespace dialwright
