#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

namespace dialwright {

/// What befalls a child at one of its system calls.
struct Blow {
  std::size_t at = 0;      ///< which call, from 0
  bool kill = false;       ///< the process is gone before the call is made
  int error = 0;           ///< else the call is not made and gives this error,
  bool halfWrite = false;  ///< but a write writes one half, and the next one fails
};

struct Traced {
  bool permitted = true;  ///< whether a child could be traced at all
  std::size_t calls = 0;  ///< those that were made, without those for memory
  bool finished = false;  ///< whether the work came to its end
  std::string said;       ///< what the work gave
};

/// Runs work in a child process, with a blow at one of its system calls or with none. As the
/// owner of the machine the child gives its rights up first if `ordinary` is set.
Traced Trace(const std::function<std::string()>& work, const std::optional<Blow>& blow,
             bool ordinary);

}  // namespace dialwright
