#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "platform/StringTableFile.h"

// Looks up the program's numbers and the edges of the range in whatever file is given. The memory
// and undefined behaviour checks watch the reads; a text can never be longer than its file allows.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto file =
      dialwright::StringTableFile::parse(std::string(reinterpret_cast<const char*>(data), size));
  if (!file) return 0;
  const auto lookUp = [&](int number) {
    const auto text = file->find(number);
    // Three bytes at most for each two of the file, and never an empty text.
    if (text && (text->empty() || text->size() > size / 2 * 3)) std::abort();
  };
  for (int number = 1000; number <= 1237; ++number) lookUp(number);
  for (const int number : {-1, 0, 1, 15, 16, 65535, 65536}) lookUp(number);
  return 0;
}
