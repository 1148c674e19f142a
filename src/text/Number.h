#pragma once

#include <optional>
#include <string_view>

namespace dialwright {

/// The number that a text stands for, by the classic numeric test: white space around it, a sign in
/// front, digits with a point, thousands separators between the digits before the point, an
/// exponent by E or D, or "&H" and "&O" with their digits. Nothing for any other text, an empty
/// one, or a number too large.
std::optional<double> NumericValue(std::string_view text);
bool IsNumeric(std::string_view text);

/// The value of a text's leading characters, 0 where there is no number: blanks are passed over,
/// and reading ends at the first character that cannot belong to a number. A separator of thousands
/// does not belong to one here. "&H" and "&O" give signed numbers of 16 or 32 bits: "&HFFFF" is -1.
/// A number too large is infinite.
double Val(std::string_view text);

}  // namespace dialwright
