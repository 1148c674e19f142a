#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace dialwright {

class Program;
struct frmMain;

/// A script as it stood at a time.
struct EarlierScript {
  std::string path;
  std::string kept;  ///< the file that holds its contents

  friend bool operator==(const EarlierScript&, const EarlierScript&) = default;
};

/// The scripts of a slot as they stood before the first write of a save or a restore.
struct EarlierVersion {
  std::string time;  ///< local, as "2007-03-04 05:06:07"
  std::vector<EarlierScript> scripts;
};

/// The versions kept of the selected slot, the newest first.
std::vector<EarlierVersion> EarlierVersions(const frmMain& form);

/// Keeps the scripts of a slot as they stand now; those that are not there are left out, and
/// nothing is kept if the newest version is the same. Equal contents are kept once. The first
/// version stays for ever, and so do the last 200. Returns whether all could be kept; stops nothing
/// and says nothing.
bool KeepEarlierVersion(Program& program, int slot, const std::vector<std::string>& paths);

}  // namespace dialwright
