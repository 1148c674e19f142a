#include "scripts/modCommon.h"

#include "files/PrivateProfile.h"

namespace dialwright {

namespace {

constexpr std::size_t bufferSize = 127;

}  // namespace

std::string strGetIniString(PrivateProfile& profile, std::string_view section, std::string_view key,
                            std::string_view path) {
  return profile.GetPrivateProfileStringA(section, key, {}, bufferSize, path);
}

std::string Quoted(std::string_view value) { return '"' + std::string(value) + '"'; }

std::string BlankAndQuoted(std::string_view value) { return ' ' + Quoted(value); }

}  // namespace dialwright
