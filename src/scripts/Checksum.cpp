#include "scripts/Checksum.h"

#include <memory>

#include "messages/FailureTrap.h"
#include "platform/Failure.h"
#include "platform/ScriptChecksumComponent.h"
#include "scripts/modTimeFunctions.h"
#include "shell/Program.h"
#include "text/Text.h"

namespace dialwright {

namespace {

constexpr int mostRequests = 6;
constexpr std::string_view checksumMark = "#CRC";

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

std::string WithChecksum(TextStream& script, std::string_view checksumText) {
  const std::string checksumLine = std::string(checksumMark) + " " + std::string(checksumText);
  std::string text;
  while (!script.AtEndOfStream()) {
    const std::string line = script.ReadLine();
    text.append(IsChecksumLine(line) ? checksumLine : line).append("\r\n");
  }
  return text;
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

void UpdateChecksumForFile(Program& program, std::string_view checksumText, std::string_view path) {
  if (checksumText.empty() || path.empty() || !program.files.FileExists(path)) return;
  const FailureTrap step{program, FailurePrefix::localizedModule, "UpdateChecksumForFile",
                         "Form Form1"};
  std::string text;
  const bool read = step([&] {
    const auto script =
        program.files.OpenTextFile(path, IOMode::reading, false, TextFormat::systemDefault);
    text = WithChecksum(*script, checksumText);
    script->Close();
  });
  if (!read) return;
  step([&] {
    const auto script = program.files.OpenTextFile(path, IOMode::writing, true, TextFormat::ansi);
    script->Write(text);
    script->Close();
  });
}

}  // namespace dialwright
