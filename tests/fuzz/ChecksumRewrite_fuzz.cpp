// The rewrite of the checksum line, with whatever stands in the file.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "Desk.h"
#include "ScriptText.h"
#include "Server.h"
#include "scripts/Checksum.h"
#include "text/Ansi.h"

namespace dialwright {
namespace {

constexpr std::string_view path = R"(C:\a.cdh)";
constexpr std::string_view utf16Mark = "\xFF\xFE";

/// The rewritten text, character by character.
std::string rewritten(std::string_view text, const std::string& checksumText) {
  std::string result, line;
  const auto endLine = [&] {
    const std::size_t first = line.find_first_not_of(' ');
    std::string start = first == std::string::npos ? "" : line.substr(first, 4);
    for (char& c : start)
      if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    result += (start == "#CRC" ? "#CRC " + checksumText : line) + "\r\n";
    line.clear();
  };
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\n')
      endLine();
    else if (text.substr(i, 2) != "\r\n")
      line += text[i];
  }
  if (!text.empty() && text.back() != '\n') endLine();
  return result;
}

void need(bool holds) {
  if (!holds) std::abort();
}

}  // namespace
}  // namespace dialwright

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace dialwright;
  static Server server;
  static Desk desk(server.disk);
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  server.folder.write("drive_c/a.cdh", bytes);
  const std::int32_t checksum = lngGetFileChecksum(desk.program, path);
  const std::string text = strChecksumText(checksum);
  UpdateChecksumForFile(desk.program, text, path);

  const bool wide = bytes.starts_with(utf16Mark);
  const std::string ansi = wide ? Utf8ToAnsi(Utf16ToUtf8(bytes.substr(utf16Mark.size()))) : bytes;
  const std::string found = server.disk.read(path);
  need(found == rewritten(ansi, text));
  need(desk.printer.lines.empty());
  // A text whose first characters look like the mark is another text from then on.
  if (found.starts_with(utf16Mark)) return 0;
  need(scriptChecksum(found) == checksum);
  need(ChecksumFits(found));
  UpdateChecksumForFile(desk.program, text, path);
  need(server.disk.read(path) == found);
  return 0;
}
