#include "scripts/Checksum.h"

#include <memory>
#include <optional>
#include <string>

#include "messages/FailureTrap.h"
#include "platform/Failure.h"
#include "platform/ScriptChecksumComponent.h"
#include "scripts/modTimeFunctions.h"
#include "shell/Program.h"
#include "text/Lines.h"
#include "text/Text.h"

namespace dialwright {

namespace {

constexpr int mostRequests = 6;
constexpr std::string_view checksumMark = "#CRC";
constexpr std::string_view lineEnd = "\r\n";

/// One request. Every failure counts as no answer; the component is kept once it could be created.
std::int32_t RequestChecksum(Program& program, std::string_view path) {
  const std::int32_t stamp =
      lngRequestStamp(dtLocalToUTC(program.services.clock, program.services.clock.Now()));
  try {
    if (!program.checksum) program.checksum = program.services.checksums.CreateObject();
    return program.checksum->CalculateFileChecksum(stamp, path);
  } catch (const RuntimeFailure&) {
    return 0;
  }
}

/// The script with the checksum in its line, byte by byte the same but for that and the line ends;
/// none if it stands there so already.
std::optional<std::string> WithChecksum(std::string_view script, std::string_view checksumText) {
  const std::string checksumLine = std::string(checksumMark) + " " + std::string(checksumText);
  std::string text;
  std::size_t taken = 0;  // of the script; what stays as it is need not be taken line by line
  for (LineReader lines(script); !lines.AtEnd();) {
    if (!lines.PlainLines(checksumMark[0]).empty()) continue;
    const std::size_t start = lines.Place();
    const std::string_view line = lines.Next();
    const std::size_t next = lines.Place();
    const std::string_view wanted = IsChecksumLine(line) ? checksumLine : line;
    const std::string_view end = script.substr(start, next - start).substr(line.size());
    if (line == wanted && end == lineEnd) continue;
    if (taken == 0) text.reserve(script.size() + script.size() / 16);
    text.append(script.substr(taken, start - taken)).append(wanted).append(lineEnd);
    taken = next;
  }
  if (taken == 0) return std::nullopt;
  return text.append(script.substr(taken));
}

}  // namespace

std::int32_t lngRequestStamp(const SystemTime& utc) {
  const std::int32_t stamp = utc.year * (utc.month + utc.day) * (utc.hour + 3 * utc.minute);
  return utc.second % 2 == 0 ? stamp - utc.second : stamp + utc.second;
}

std::int32_t lngGetFileChecksum(Program& program, std::string_view path) {
  if (path.empty() || !program.files.FileExists(path)) return 0;
  for (int request = 0; request < mostRequests; ++request)
    if (const std::int32_t checksum = RequestChecksum(program, path)) return checksum;
  return 0;
}

std::string strChecksumText(std::int32_t checksum) {
  return (checksum < 0 ? "" : " ") + std::to_string(checksum);
}

bool IsChecksumLine(std::string_view line) {
  return StartsWithIgnoringCase(Trim(line), checksumMark);
}

bool UpdateChecksumForFile(Program& program, std::string_view checksumText, std::string_view path) {
  if (checksumText.empty() || path.empty() || !program.files.FileExists(path)) return false;
  const FailureTrap step{program, FailurePrefix::localizedModule, "UpdateChecksumForFile",
                         "Form Form1"};
  FileStore& files = program.services.files;
  std::string script;
  if (!step([&] { script = files.Read(path); }) || IsUtf16(script)) return false;
  const std::optional<std::string> text = WithChecksum(script, checksumText);
  return step([&] {
    const auto file = files.Open(path, FileStore::Opening::truncate, true);
    file->Write(text ? *text : script);
    file->Flush();
    file->Close();
  });
}

}  // namespace dialwright
