// The rewrite of the checksum line, with whatever stands in the file.

#include <cstdint>
#include <cstdlib>

#include "Desk.h"
#include "ScriptText.h"
#include "scripts/Checksum.h"
#include "text/Ansi.h"

namespace {

using namespace dialwright;

constexpr std::string_view path = R"(C:\a.cdh)";
constexpr std::string_view utf16Mark = "\xFF\xFE";

/// The rewritten text, line by line.
std::string rewritten(std::string text, const std::string& checksumText) {
  std::string result;
  if (!text.empty() && text.back() != '\n') text += "\r\n";
  for (std::size_t end = 0; (end = text.find('\n')) != std::string::npos; text.erase(0, end + 1)) {
    std::string line = text.substr(0, end);
    if (line.ends_with('\r')) line.pop_back();
    const std::string start = line.substr(std::min(line.find_first_not_of(' '), line.size()), 4);
    result += (UpperCase(start) == "#CRC" ? "#CRC " + checksumText : line) + "\r\n";
  }
  return result;
}

void need(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static MemoryFileStore store;
  static Desk desk(store);
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  store.put(path, bytes);
  const std::int32_t checksum = lngGetFileChecksum(desk.program, path);
  const std::string text = strChecksumText(checksum);
  UpdateChecksumForFile(desk.program, text, path);

  const bool wide = bytes.starts_with(utf16Mark);
  const std::string found = store.bytes(path);
  need(found == rewritten(wide ? Utf8ToAnsi(Utf16ToUtf8(bytes.substr(2))) : bytes, text));
  need(desk.printer.lines.empty());
  // A text whose first characters look like the mark is another text from then on.
  if (found.starts_with(utf16Mark)) return 0;
  need(scriptChecksum(found) == checksum && ChecksumFits(found));
  UpdateChecksumForFile(desk.program, text, path);
  need(store.bytes(path) == found);
  return 0;
}
