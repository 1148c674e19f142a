#include "text/Ansi.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace dialwright {
namespace {

constexpr char32_t replacement = 0xFFFD;

// Bytes 0x80 to 0x9F; all others are the characters of the same number.
constexpr std::array<char16_t, 32> upperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

unsigned char ByteAt(std::string_view text, std::size_t at) {
  return static_cast<unsigned char>(text[at]);
}

void AppendUtf8(std::string& out, char32_t c) {
  const auto put = [&out](char32_t byte) { out.push_back(static_cast<char>(byte)); };
  const auto putTail = [&put, c](int shift) { put(0x80 | ((c >> shift) & 0x3F)); };
  if (c < 0x80) {
    put(c);
  } else if (c < 0x800) {
    put(0xC0 | (c >> 6));
    putTail(0);
  } else if (c < 0x10000) {
    put(0xE0 | (c >> 12));
    putTail(6);
    putTail(0);
  } else {
    put(0xF0 | (c >> 18));
    putTail(12);
    putTail(6);
    putTail(0);
  }
}

// The character at `at`, which moves behind it. A sequence that is not UTF-8 (overlong forms and
// surrogates too) gives one replacement and is left at its first byte that cannot belong to it.
char32_t NextCharacter(std::string_view text, std::size_t& at) {
  const unsigned char lead = ByteAt(text, at++);
  if (lead < 0x80) return lead;
  const int tails = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
  if (lead < 0xC2 || lead > 0xF4) return replacement;
  unsigned char low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
  unsigned char high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
  char32_t c = lead & (0x3Fu >> tails);
  for (int i = 0; i < tails; ++i) {
    if (at == text.size() || ByteAt(text, at) < low || ByteAt(text, at) > high) return replacement;
    c = (c << 6) | (ByteAt(text, at++) & 0x3Fu);
    low = 0x80;
    high = 0xBF;
  }
  return c;
}

char AnsiByte(char32_t c) {
  if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<char>(c);
  for (std::size_t i = 0; i < upperControls.size(); ++i) {
    if (upperControls[i] == c) return static_cast<char>(0x80 + i);
  }
  return '?';
}

// Nearly all text is ASCII, and both conversions leave that as it is.
std::size_t AsciiEnd(std::string_view text, std::size_t from) {
  while (from < text.size() && ByteAt(text, from) < 0x80) ++from;
  return from;
}

void AppendUnit(std::string& out, char32_t unit) {
  out.push_back(static_cast<char>(unit & 0xFF));
  out.push_back(static_cast<char>((unit >> 8) & 0xFF));
}

}  // namespace

AnsiBytes::AnsiBytes(std::string_view utf8) : bytes(utf8) {
  if (AsciiEnd(utf8, 0) == utf8.size()) return;
  converted = Utf8ToAnsi(utf8);
  bytes = converted;
}

std::string Windows1252ToUtf8(std::string_view ansi) {
  std::string result;
  result.reserve(ansi.size());
  for (std::size_t at = 0; at < ansi.size();) {
    const std::size_t end = AsciiEnd(ansi, at);
    result.append(ansi.substr(at, end - at));
    for (at = end; at < ansi.size() && ByteAt(ansi, at) >= 0x80; ++at) {
      const unsigned char byte = ByteAt(ansi, at);
      AppendUtf8(result, byte < 0xA0 ? upperControls[byte - 0x80u] : byte);
    }
  }
  return result;
}

std::string Utf8ToWindows1252(std::string_view utf8) {
  std::string result;
  result.reserve(utf8.size());
  for (std::size_t at = 0; at < utf8.size();) {
    const std::size_t end = AsciiEnd(utf8, at);
    result.append(utf8.substr(at, end - at));
    at = end;
    while (at < utf8.size() && ByteAt(utf8, at) >= 0x80) {
      result.push_back(AnsiByte(NextCharacter(utf8, at)));
    }
  }
  return result;
}

bool IsUtf8(std::string_view bytes) {
  for (std::size_t at = AsciiEnd(bytes, 0); at < bytes.size(); at = AsciiEnd(bytes, at)) {
    const std::size_t from = at;
    // U+FFFD itself is text like any other.
    if (NextCharacter(bytes, at) == replacement && bytes.substr(from, at - from) != "\xEF\xBF\xBD")
      return false;
  }
  return true;
}

std::string Utf16ToUtf8(std::string_view littleEndianBytes) {
  const auto unitAt = [&](std::size_t at) -> char32_t {
    return ByteAt(littleEndianBytes, at) + 0x100u * ByteAt(littleEndianBytes, at + 1);
  };
  const std::size_t end = littleEndianBytes.size() & ~std::size_t{1};
  std::string result;
  result.reserve(end / 2);
  for (std::size_t at = 0; at < end; at += 2) {
    char32_t c = unitAt(at);
    if (c >= 0xD800 && c <= 0xDFFF) {
      const char32_t next = c < 0xDC00 && at + 2 < end ? unitAt(at + 2) : 0;
      if (next >= 0xDC00 && next <= 0xDFFF) {
        c = 0x10000 + ((c - 0xD800) << 10) + (next - 0xDC00);
        at += 2;
      } else {
        c = replacement;
      }
    }
    AppendUtf8(result, c);
  }
  return result;
}

std::string Utf8ToUtf16(std::string_view utf8) {
  std::string result;
  result.reserve(utf8.size() * 2);
  for (std::size_t at = 0; at < utf8.size();) {
    const char32_t c = NextCharacter(utf8, at);
    if (c < 0x10000) {
      AppendUnit(result, c);
    } else {
      AppendUnit(result, 0xD800 + ((c - 0x10000) >> 10));
      AppendUnit(result, 0xDC00 + ((c - 0x10000) & 0x3FF));
    }
  }
  return result;
}

}  // namespace dialwright
