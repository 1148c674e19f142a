#pragma once

namespace dialwright {

/// The program's own number, from the build's first lines.
struct ProgramVersion {
  int iMajor;
  int iMinor;
  int iRevision;
};

extern const ProgramVersion programVersion;

}  // namespace dialwright
