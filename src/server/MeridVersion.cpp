#include "server/MeridVersion.h"

#include <limits>
#include <string_view>
#include <tuple>
#include <utility>

#include "messages/FailureTrap.h"
#include "messages/Messages.h"
#include "platform/Failure.h"
#include "platform/Registry.h"
#include "server/RegistryAPI.h"
#include "text/Text.h"

namespace dialwright {

namespace {

constexpr std::string_view moduleName = "Module MeridVersion";
constexpr std::string_view tesselKey = "SOFTWARE\\Varlo Systems\\Varlo Merid";
constexpr std::string_view meridKey = "Software\\Quillon\\";
constexpr std::string_view telhostKey = "SOFTWARE\\Quillon\\Telhost\\1.0";
constexpr std::string_view systemParametersKey = "SOFTWARE\\Quillon\\SystemParameters\\1.0";
constexpr std::string_view dominoProgId = "QLDsDomino.QlIDCDomino.1";

std::int32_t DoubleWord(Registry& registry, std::string_view key, std::string_view name) {
  const RegistryResult result = GetRegistryValue(registry, RegistryKey::localMachine, key, name,
                                                 registryDoubleWord, std::int32_t{0});
  return std::get<std::int32_t>(result);
}

std::string Text(Registry& registry, std::string_view key, std::string_view name) {
  const RegistryResult result = GetRegistryValue(registry, RegistryKey::localMachine, key, name,
                                                 registryString, std::string());
  return std::get<std::string>(result);
}

std::int16_t Narrowed(std::int32_t number) {
  using Limits = std::numeric_limits<std::int16_t>;
  if (number < Limits::min() || number > Limits::max()) throw RuntimeFailure(Failure::overflow);
  return static_cast<std::int16_t>(number);
}

/// Eight upper-case hexadecimal digits.
std::string Hexadecimal(std::int32_t number) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string result;
  for (int shift = 28; shift >= 0; shift -= 4)
    result += digits[static_cast<std::uint32_t>(number) >> shift & 0xF];
  return result;
}

/// The stored numbers show their decimal digits in hexadecimal: 0010 is ten, and 000A is nothing.
std::int16_t LeadingDecimal(std::string_view digits) {
  int value = 0;
  for (const char digit : digits) {
    if (digit < '0' || digit > '9') break;
    value = value * 10 + (digit - '0');
  }
  return static_cast<std::int16_t>(value);
}

std::string VersionText(const VersionInfo& info) {
  return std::to_string(info.iMajor) + "." + std::to_string(info.iMinor) + "(" +
         std::to_string(info.iRelease) + "." + std::to_string(info.iBuild) + ")";
}

}  // namespace

bool KnowsAServer(Registry& registry) {
  return bRegistryKeyExists(registry, RegistryKey::localMachine, tesselKey) ||
         DoubleWord(registry, meridKey, "Version Number") != 0;
}

VersionInfo MeridVersion::getVersion() {
  const FailureTrap step{messages, FailurePrefix::fixedModule, "getVersion", moduleName};
  VersionInfo info;
  if (bRegistryKeyExists(registry, RegistryKey::localMachine, tesselKey)) {
    const std::pair<std::string_view, std::int16_t VersionInfo::*> values[] = {
        {"MajorVersion", &VersionInfo::iMajor},
        {"MinorVersion", &VersionInfo::iMinor},
        {"BuildVersion", &VersionInfo::iBuild},
        {"ReleaseVersion", &VersionInfo::iRelease},
    };
    for (const auto& [name, field] : values)
      step([&, name = name, field = field] {
        info.*field = Narrowed(DoubleWord(registry, tesselKey, name));
      });
    info.bIsTessel = true16;
  } else {
    const std::string version = Hexadecimal(DoubleWord(registry, meridKey, "Version Number"));
    const std::int32_t buildNumber = DoubleWord(registry, meridKey, "Build Number");
    const std::string build = Hexadecimal(buildNumber);
    info.iMajor = LeadingDecimal(version.substr(0, 4));
    info.iMinor = LeadingDecimal(version.substr(4));
    info.iRelease = LeadingDecimal(build.substr(0, 4));
    info.iBuild = static_cast<std::int16_t>(buildNumber & 0xFFFF);
    info.bIsTessel = false16;
  }
  info.strVersion = VersionText(info);
  return info;
}

bool MeridVersion::bIsVersionGreaterThanOrEqualTo(std::int16_t iMajor, std::int16_t iMinor,
                                                  std::int16_t iRelease, std::int16_t iBuild,
                                                  std::int16_t) const {
  const VersionInfo& server = currentVersion;
  return std::tie(server.iMajor, server.iMinor, server.iRelease, server.iBuild) >=
         std::tie(iMajor, iMinor, iRelease, iBuild);
}

bool MeridVersion::RefusedBeforeVersion() {
  if (currentVersion.iMajor != 0) return false;
  messages.MarkedBox(
      MsgBoxMark::failure,
      "You need to load the verson information before calling any of the path fetch routines.");
  return true;
}

std::string MeridVersion::strGetInstallPath() {
  const FailureTrap step{messages, FailurePrefix::fixed, "strGetInstallPath", moduleName};
  if (RefusedBeforeVersion()) return {};
  std::string path;
  step([&] {
    path = currentVersion.bIsTessel != false16
               ? Text(registry, tesselKey, "InstalledFolderPath") + "\\"
               : Text(registry, telhostKey, "Root Path");
  });
  return path;
}

std::string MeridVersion::strGetScriptPath() {
  if (RefusedBeforeVersion()) return {};
  const std::string install = strGetInstallPath();
  if (install.empty()) return {};
  return install +
         (currentVersion.bIsTessel != false16 ? "TuiResources\\Scripts\\" : "Localize\\Scripts\\");
}

std::int16_t MeridVersion::iGetDirectoryBinding() {
  return EqualsIgnoringCase(Text(registry, systemParametersKey, "IDCProgID"), dominoProgId) ? 2 : 1;
}

}  // namespace dialwright
