#include "text/Number.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <iterator>
#include <limits>
#include <string>
#include <system_error>

#include "text/Text.h"

namespace dialwright {
namespace {

constexpr std::string_view whiteSpace = " \t\n\v\f\r";

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsExponentMark(char c) { return c == 'E' || c == 'e' || c == 'D' || c == 'd'; }

struct Digits {
  std::uint64_t value = 0;
  std::size_t count = 0;
  bool overflow = false;
};

// The leading digits of a base; `count` is 0 where there are none.
Digits LeadingDigits(std::string_view text, unsigned base) {
  Digits digits;
  for (const char c : text) {
    unsigned digit = base;
    if (IsDigit(c)) digit = static_cast<unsigned>(c - '0');
    if (c >= 'A' && c <= 'F') digit = static_cast<unsigned>(c - 'A') + 10;
    if (c >= 'a' && c <= 'f') digit = static_cast<unsigned>(c - 'a') + 10;
    if (digit >= base) break;
    if (digits.value > std::numeric_limits<std::uint64_t>::max() / base) digits.overflow = true;
    digits.value = digits.value * base + digit;
    ++digits.count;
  }
  return digits;
}

// The base that "&H" or "&O" announces, 0 for none.
unsigned AnnouncedBase(std::string_view text) {
  if (text.size() < 2 || text[0] != '&') return 0;
  if (text[1] == 'H' || text[1] == 'h') return 16;
  if (text[1] == 'O' || text[1] == 'o') return 8;
  return 0;
}

// An unsigned decimal number in pieces, as read from the front of a text.
struct Decimal {
  std::string mantissa;  // digits and at most one point
  std::size_t digits = 0;
  std::size_t wholeDigits = 0;
  int exponent = 0;
  std::size_t length = 0;  // of the text that was read
};

Decimal ReadDecimal(std::string_view text, bool thousands) {
  Decimal number;
  bool point = false;
  std::size_t at = 0;
  for (; at < text.size(); ++at) {
    const char c = text[at];
    if (IsDigit(c)) {
      number.mantissa.push_back(c);
      ++number.digits;
      if (!point) ++number.wholeDigits;
    } else if (c == '.' && !point) {
      number.mantissa.push_back(c);
      point = true;
    } else if (!(c == ',' && thousands && !point && number.digits > 0)) {
      break;
    }
  }
  number.length = at;
  if (number.digits == 0 || at == text.size() || !IsExponentMark(text[at])) return number;

  // The mark belongs to the number only if digits follow it.
  ++at;
  const bool negative = at < text.size() && text[at] == '-';
  if (at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
  const Digits power = LeadingDigits(text.substr(at), 10);
  if (power.count == 0) return number;
  // Far beyond any double, far below what the sum with the digits could overflow.
  constexpr std::uint64_t limit = 100'000'000;
  const int size = static_cast<int>(power.overflow ? limit : std::min(power.value, limit));
  number.exponent = negative ? -size : size;
  number.length = at + power.count;
  return number;
}

// Nothing for a number too large; one too small is 0.
std::optional<double> ValueOf(const Decimal& number) {
  const std::string text = number.mantissa + "e" + std::to_string(number.exponent);
  double value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec != std::errc::result_out_of_range) return value;
  // The place of the first digit that counts tells too large from too small.
  const std::size_t first = number.mantissa.find_first_of("123456789");
  const auto place = static_cast<std::int64_t>(number.wholeDigits) -
                     static_cast<std::int64_t>(first) + number.exponent;
  if (place > 0) return std::nullopt;
  return 0.0;
}

// The two widths of the classic integers: FFFF is -1, 10000 is 65536, FFFFFFFF is -1.
double SignedByWidth(std::uint64_t value) {
  if (value <= 0xFFFF) return static_cast<double>(static_cast<std::int16_t>(value));
  if (value <= 0xFFFFFFFF) return static_cast<double>(static_cast<std::int32_t>(value));
  return static_cast<double>(value);
}

}  // namespace

std::optional<double> NumericValue(std::string_view text) {
  text = TrimOf(text, whiteSpace);
  // Nearly all are a few plain digits. So many are exact.
  constexpr std::size_t exactDigits = 15;
  if (const Digits plain = LeadingDigits(text.substr(0, exactDigits), 10);
      plain.count > 0 && plain.count == text.size())
    return static_cast<double>(plain.value);
  if (const unsigned base = AnnouncedBase(text)) {
    const Digits digits = LeadingDigits(text.substr(2), base);
    if (digits.count == 0 || digits.count + 2 != text.size() || digits.overflow) return {};
    return static_cast<double>(digits.value);
  }
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  const Decimal number = ReadDecimal(text, true);
  if (number.digits == 0 || number.length != text.size()) return {};
  const std::optional<double> value = ValueOf(number);
  return value && negative ? -*value : value;
}

bool IsNumeric(std::string_view text) { return NumericValue(text).has_value(); }

double Val(std::string_view text) {
  std::string packed;
  std::copy_if(text.begin(), text.end(), std::back_inserter(packed),
               [](char c) { return c != ' ' && c != '\t' && c != '\n'; });
  std::string_view rest = packed;
  if (const unsigned base = AnnouncedBase(rest)) {
    return SignedByWidth(LeadingDigits(rest.substr(2), base).value);
  }
  const double sign = rest.starts_with('-') ? -1 : 1;
  if (rest.starts_with('-') || rest.starts_with('+')) rest.remove_prefix(1);
  const Decimal number = ReadDecimal(rest, false);
  if (number.digits == 0) return 0;
  return sign * ValueOf(number).value_or(std::numeric_limits<double>::infinity());
}

}  // namespace dialwright
