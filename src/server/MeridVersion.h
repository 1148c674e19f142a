#pragma once

#include <cstdint>
#include <string>

namespace dialwright {

class Messages;
class Registry;

/// A 16-bit boolean: -1 is true.
using Boolean16 = std::int16_t;
inline constexpr Boolean16 true16 = -1;
inline constexpr Boolean16 false16 = 0;

/// Which server this is: its edition and its version, major.minor(release.build).
struct VersionInfo {
  Boolean16 bIsTessel = false16;
  std::int16_t iMajor = 0;
  std::int16_t iMinor = 0;
  std::int16_t iRelease = 0;
  std::int16_t iBuild = 0;
  std::string strVersion;
};

/// Whether the registry knows a server of either edition.
bool KnowsAServer(Registry& registry);

/// What the machine's registry tells of the server. The version is read once, at start; the paths
/// and the directory binding are read at each call.
class MeridVersion {
 public:
  /// `boxes` takes the reports of failures; both outlive this.
  MeridVersion(Messages& boxes, Registry& source) : messages(boxes), registry(source) {}

  /// The server's version, read from the registry; does not touch `currentVersion`.
  VersionInfo getVersion();
  /// Whether the server's version is at least the given one; the fifth number is not looked at.
  bool bIsVersionGreaterThanOrEqualTo(std::int16_t iMajor, std::int16_t iMinor,
                                      std::int16_t iRelease, std::int16_t iBuild,
                                      std::int16_t unused) const;
  /// The server's folder, as a backslash ends it; empty when there is none.
  std::string strGetInstallPath();
  /// The folder of the conversation scripts with its backslash; empty when there is none.
  std::string strGetScriptPath();
  /// 2 on a server bound to Lotus Domino, else 1. Its failure reaches the caller's trap.
  std::int16_t iGetDirectoryBinding();

  VersionInfo currentVersion;

 private:
  bool RefusedBeforeVersion();

  Messages& messages;
  Registry& registry;
};

}  // namespace dialwright
