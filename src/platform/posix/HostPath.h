#pragma once

#include <string>
#include <string_view>

namespace dialwright {

/// The host's spelling of a path of the system, without a look at the disk: drives are folders
/// `drive_x` of `hostFolder`. A current drive of 0 is none.
std::string SpelledHostPath(std::string_view path, std::string_view hostFolder, char currentDrive);

/// The path as it stands on the disk: as it is spelled, or else with each name found without regard
/// to the case of ASCII letters. From the first name that is not there the spelling stays.
std::string ExistingSpelling(std::string_view hostPath);

/// A path of the host as a path of the system. A backslash, a quotation mark or a semicolon in a
/// name would mean something else there, in a path or on a command line; such characters stand in
/// it as U+F000 and their number, as on network drives of the system, and `SpelledHostPath` puts
/// them back.
std::string SystemPath(std::string_view hostPath);

/// The folder of a host path, "." where the path is a bare name.
std::string FolderOf(std::string_view hostPath);

}  // namespace dialwright
