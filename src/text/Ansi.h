#pragma once

#include <string>
#include <string_view>

namespace dialwright {

/// The ANSI code page: the system's own on Windows, Windows-1252 elsewhere. What the code page
/// cannot hold, and what is not UTF-8, becomes '?'.
std::string AnsiToUtf8(std::string_view ansi);
std::string Utf8ToAnsi(std::string_view utf8);

/// The bytes of a text in the ANSI code page, without a copy where they are the same, as nearly
/// all are. Valid as long as the text is.
class AnsiBytes {
 public:
  explicit AnsiBytes(std::string_view utf8);
  AnsiBytes(const AnsiBytes&) = delete;
  AnsiBytes& operator=(const AnsiBytes&) = delete;
  operator std::string_view() const { return bytes; }

 private:
  std::string converted;
  std::string_view bytes;
};

/// Windows-1252, one byte a character, lossless both ways also for the five bytes that it does not
/// define (they are the control characters of the same number).
std::string Windows1252ToUtf8(std::string_view ansi);
std::string Utf8ToWindows1252(std::string_view utf8);

/// What a file in little-endian UTF-16 begins with.
inline constexpr std::string_view utf16Mark = "\xFF\xFE";

/// Whether all of the text is UTF-8.
bool IsUtf8(std::string_view bytes);

/// UTF-16 in little-endian bytes, without a mark. Halves of pairs that stand alone, and what is not
/// UTF-8, become U+FFFD; an odd last byte is dropped.
std::string Utf16ToUtf8(std::string_view littleEndianBytes);
std::string Utf8ToUtf16(std::string_view utf8);

}  // namespace dialwright
