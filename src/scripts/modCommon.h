#pragma once

#include <string>
#include <string_view>

namespace dialwright {

class PrivateProfile;

/// The one section of the server's files that this program reads and writes.
inline constexpr std::string_view macrosSection = "MACROS";

/// The value of a key; empty in every case in which nothing could be had. Longer values come back
/// cut to 126 bytes.
std::string strGetIniString(PrivateProfile& profile, std::string_view section, std::string_view key,
                            std::string_view path);

/// A value in quotation marks, as the server reads it.
std::string Quoted(std::string_view value);
/// A blank and the value in quotation marks: the form of action keys and derived keys.
std::string BlankAndQuoted(std::string_view value);

}  // namespace dialwright
