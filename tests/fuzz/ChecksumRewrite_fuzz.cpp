// The rewrite of the checksum line, with whatever stands in the file.

#include "Fuzz.h"
#include "ScriptText.h"
#include "scripts/Checksum.h"

namespace {

constexpr std::string_view path = R"(C:\a.cdh)";

/// The rewritten text, line by line.
std::string Rewritten(std::string text, const std::string& checksumText) {
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

}  // namespace

void Check(const std::string& bytes) {
  static MemoryFileStore store;
  static Desk desk(store);
  store.Put(path, bytes);
  const std::int32_t checksum = lngGetFileChecksum(desk.program, path);
  const std::string text = strChecksumText(checksum);
  UpdateChecksumForFile(desk.program, text, path);

  const bool wide = bytes.starts_with(utf16Mark);
  const std::string found = store.Bytes(path);
  need(found == Rewritten(wide ? Utf8ToAnsi(Utf16ToUtf8(bytes.substr(2))) : bytes, text));
  need(desk.printer.lines.empty());
  // A text whose first characters look like the mark is another text from then on.
  if (found.starts_with(utf16Mark)) return;
  need(ScriptChecksum(found) == checksum && ChecksumFits(found));
  UpdateChecksumForFile(desk.program, text, path);
  need(store.Bytes(path) == found);
}
