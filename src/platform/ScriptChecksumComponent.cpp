#include "platform/ScriptChecksumComponent.h"

#include <cstddef>

#include "platform/Crc32.h"
#include "text/Lines.h"
#include "text/Text.h"

namespace dialwright {
namespace {

bool IsChecksumLine(std::string_view line) {
  const std::size_t first = line.find_first_not_of(' ');
  return first != std::string_view::npos && line[first] == '#' &&
         StartsWithIgnoringCase(line.substr(first), "#CRC");
}

std::uint32_t CrcOfLines(std::string_view text) {
  constexpr std::string_view lineEnd = "\r\n";
  Crc32 crc;
  // Lines that already end as they should are not taken one by one: `run` is where those not yet
  // added begin.
  std::size_t run = 0;
  for (LineReader lines(text); !lines.AtEnd();) {
    if (!lines.PlainLines('#').empty()) continue;
    const std::size_t start = lines.Place();
    const std::string_view line = lines.Next();
    const std::string_view end = text.substr(start, lines.Place() - start).substr(line.size());
    const bool leftOut = IsChecksumLine(line);
    if (!leftOut && end == lineEnd) continue;
    crc.Add(text.substr(run, start - run));
    if (!leftOut) {
      crc.Add(line);
      crc.Add(lineEnd);
    }
    run = lines.Place();
  }
  crc.Add(text.substr(run));
  return crc.Value();
}

class CrcChecksumComponent : public ScriptChecksumComponent {
 public:
  explicit CrcChecksumComponent(FileStore& fileStore) : store(fileStore) {}

  // The stamp is for components that guard against old requests; this one answers all.
  std::int32_t CalculateFileChecksum(std::int32_t, std::string_view path) override {
    store.ReadInto(path, bytes);
    return ScriptChecksum(bytes);
  }

 private:
  FileStore& store;
  std::string bytes;  // of the last script: the next one takes its room
};

}  // namespace

std::int32_t ScriptChecksum(std::string_view bytes) {
  const std::uint32_t crc = CrcOfLines(bytes);
  return crc == 0 ? 1 : static_cast<std::int32_t>(crc);
}

std::unique_ptr<ScriptChecksumComponent> CrcChecksumFactory::CreateObject() {
  return std::make_unique<CrcChecksumComponent>(store);
}

}  // namespace dialwright
