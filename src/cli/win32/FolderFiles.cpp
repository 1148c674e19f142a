#include "cli/win32/FolderFiles.h"

#include "text/Text.h"

namespace dialwright {

std::string FolderFiles::Placed(std::string_view path) const {
  for (const std::string& place : real)
    if (!place.empty() && StartsWithIgnoringCase(path, place) &&
        (path.size() == place.size() || path[place.size()] == '\\'))
      return std::string(path);
  const bool hasDrive = path.size() > 1 && path[1] == ':';
  const std::string drive = "drive_" + LowerCase(hasDrive ? path.substr(0, 1) : "c");
  std::string rest = ReplaceAll(hasDrive ? path.substr(2) : path, "/", "\\");
  if (!rest.starts_with('\\')) rest.insert(0, "\\");
  // Nothing leads out of the server's folder.
  if ((rest + "\\").find("\\..\\") != std::string::npos) return {};
  return folder + "\\" + drive + rest;
}

}  // namespace dialwright
