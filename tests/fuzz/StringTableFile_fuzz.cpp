// Looks up the program's numbers and the edges of the range in whatever file is given. The memory
// and undefined behaviour checks watch the reads; a text can never be longer than its file allows.

#include "Fuzz.h"
#include "platform/standins/StringTableFile.h"

void Check(const std::string& bytes) {
  const auto file = StringTableFile::Parse(bytes);
  if (!file) return;
  const auto lookUp = [&](int number) {
    const auto text = file->Find(number);
    // Three bytes at most for each two of the file, and never an empty text.
    need(!text || (!text->empty() && text->size() <= bytes.size() / 2 * 3));
  };
  for (int number = 1000; number <= 1237; ++number) lookUp(number);
  for (const int number : {-1, 0, 1, 15, 16, 65535, 65536}) lookUp(number);
}
