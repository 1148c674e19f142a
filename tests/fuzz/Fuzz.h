#pragma once

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "Desk.h"
#include "text/Ansi.h"

using namespace dialwright;

inline void need(bool holds) {
  if (!holds) std::abort();
}

/// What holds for any bytes; aborts where it does not.
void Check(const std::string& bytes);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Check({reinterpret_cast<const char*>(data), size});
  return 0;
}
