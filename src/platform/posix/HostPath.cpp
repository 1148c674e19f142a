#include "platform/posix/HostPath.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <memory>
#include <optional>

#include "text/Text.h"

namespace dialwright {
namespace {

bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

bool IsThere(const std::string& path) {
  struct stat status {};
  return lstat(path.c_str(), &status) == 0;
}

std::string OnDrive(char letter, std::string_view rest, std::string_view hostFolder) {
  std::string path(hostFolder);
  path.append("/drive_").append(LowerCase(std::string_view(&letter, 1)));
  const std::size_t drive = path.size();
  while (!rest.empty()) {
    const std::string_view name = rest.substr(0, rest.find('/'));
    rest.remove_prefix(std::min(name.size() + 1, rest.size()));
    if (name == "..") {
      if (path.size() > drive) path.erase(path.rfind('/'));
    } else if (!name.empty() && name != ".") {
      path.append("/").append(name);
    }
  }
  return path;
}

// The first name by its bytes, so that the same file is found every time.
std::optional<std::string> NameInFolder(const std::string& folder, std::string_view name) {
  const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(folder.c_str()), closedir);
  std::optional<std::string> found;
  if (!entries) return found;
  while (const dirent* entry = readdir(entries.get())) {
    const std::string_view candidate = entry->d_name;
    if (EqualsIgnoringCase(candidate, name) && (!found || candidate < *found)) found = candidate;
  }
  return found;
}

// A character of the host's names, and what stands for it in a path of the system.
struct StandIn {
  std::string_view character;
  std::string_view inSystem;
};
constexpr StandIn standIns[] = {
    {"\\", "\xEF\x81\x9C"}, {"\"", "\xEF\x80\xA2"}, {";", "\xEF\x80\xBB"}};

}  // namespace

std::string SystemPath(std::string_view hostPath) {
  std::string path(hostPath);
  for (const StandIn& standIn : standIns)
    path = ReplaceAll(path, standIn.character, standIn.inSystem);
  std::replace(path.begin(), path.end(), '/', '\\');
  return path;
}

std::string SpelledHostPath(std::string_view path, std::string_view hostFolder, char currentDrive) {
  std::string slashed(path);
  std::replace(slashed.begin(), slashed.end(), '\\', '/');
  const std::string_view text = slashed;
  if (text.size() >= 2 && IsLetter(text[0]) && text[1] == ':') {
    return OnDrive(text[0], text.substr(2), hostFolder);
  }
  if (path.starts_with('\\') && currentDrive != 0) return OnDrive(currentDrive, text, hostFolder);
  while (slashed.size() > 1 && slashed.back() == '/') slashed.pop_back();
  for (const StandIn& standIn : standIns)
    slashed = ReplaceAll(slashed, standIn.inSystem, standIn.character);
  return slashed;
}

// From the end: the folder of a name that is not there mostly is.
std::string ExistingSpelling(std::string_view hostPath) {
  std::string spelled(hostPath);
  const std::size_t slash = hostPath.rfind('/');
  const std::string_view name = hostPath.substr(slash == std::string_view::npos ? 0 : slash + 1);
  if (name.empty() || IsThere(spelled)) return spelled;
  if (slash == std::string_view::npos) return NameInFolder(".", name).value_or(spelled);
  const std::string folder = slash == 0 ? "" : ExistingSpelling(hostPath.substr(0, slash));
  std::string straight = folder + "/" + std::string(name);
  if (straight != spelled && IsThere(straight)) return straight;
  const std::optional<std::string> found = NameInFolder(folder.empty() ? "/" : folder, name);
  return found ? folder + "/" + *found : straight;
}

std::string FolderOf(std::string_view hostPath) {
  const std::size_t slash = hostPath.rfind('/');
  if (slash == std::string_view::npos) return ".";
  return std::string(hostPath.substr(0, std::max<std::size_t>(slash, 1)));
}

}  // namespace dialwright
