// The rewrite of the checksum line, with whatever stands in the file.

#include "Fuzz.h"
#include "ScriptText.h"
#include "scripts/Checksum.h"

namespace {

constexpr std::string_view path = R"(C:\a.cdh)";

/// The rewritten text, line by line. A run of carriage returns is one end with the line feed behind
/// it; without one each of them ends a line.
std::string Rewritten(const std::string& text, const std::string& checksumText) {
  std::string result;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find_first_of("\r\n", at), text.size());
    const std::string line = text.substr(at, end - at);
    const std::string start = line.substr(std::min(line.find_first_not_of(' '), line.size()), 4);
    result += (UpperCase(start) == "#CRC" ? "#CRC " + checksumText : line) + "\r\n";
    const std::size_t feed = std::min(text.find_first_not_of('\r', end), text.size());
    at = feed < text.size() && text[feed] == '\n' ? feed + 1 : end + 1;
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

  const std::string found = store.Bytes(path);
  // A script in UTF-16 is none that a server reads: nothing writes into it.
  const bool wide = bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
  need(found == (wide ? bytes : Rewritten(bytes, text)));
  need(desk.printer.lines.empty());
  // A text whose first characters look like the mark is another text from then on.
  if (wide || found.starts_with("\xFF\xFE") || found.starts_with("\xFE\xFF")) return;
  need(ScriptChecksum(found) == checksum && ChecksumFits(found));
  UpdateChecksumForFile(desk.program, text, path);
  need(store.Bytes(path) == found);
}
