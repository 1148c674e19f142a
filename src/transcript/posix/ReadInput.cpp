#include <poll.h>
#include <unistd.h>

#include "InputLines.h"

namespace dialwright {

std::optional<std::size_t> ReadInput(int timeout, char* bytes, std::size_t size) {
  pollfd input{STDIN_FILENO, POLLIN, 0};
  if (poll(&input, 1, timeout) <= 0) return {};
  const ssize_t count = read(STDIN_FILENO, bytes, size);
  return count > 0 ? static_cast<std::size_t>(count) : 0;
}

void UseBinaryStreams() {}

}  // namespace dialwright
