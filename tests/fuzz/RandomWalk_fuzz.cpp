#include <cstdio>
#include <cstdlib>

#include "RandomWalk.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string wrong = dialwright::WalkAtRandom({data, size});
  if (wrong.empty()) return 0;
  std::fprintf(stderr, "%s", wrong.c_str());
  std::abort();
}
