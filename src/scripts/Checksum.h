#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Clock.h"

namespace dialwright {

class Program;

/// The stamp of a checksum request, from the parts of a date and time in UTC.
std::int32_t lngRequestStamp(const SystemTime& utc);

/// The checksum of a file by the server's component; asks up to six times. 0 when none could be
/// had. Shows no message in any case.
std::int32_t lngGetFileChecksum(Program& program, std::string_view path);

/// A checksum in decimal with a place for its sign: a blank or a minus sign in front.
std::string strChecksumText(std::int32_t checksum);

/// Whether a line of a script is its checksum line.
bool IsChecksumLine(std::string_view line);

/// Puts the checksum into every checksum line of a file, in place; ends all its lines with carriage
/// return and line feed. Returns whether the file was rewritten: one in UTF-16, which no server
/// reads, stays as it is.
bool UpdateChecksumForFile(Program& program, std::string_view checksumText, std::string_view path);

}  // namespace dialwright
