#include "platform/posix/ProgramFolder.h"

#include <filesystem>
#include <system_error>

namespace dialwright {
namespace {

namespace fs = std::filesystem;

// What the system reads in its program folder. All else in it has been made by somebody.
struct ShippedFiles {
  std::string_view folder;
  std::string_view start;
  std::string_view extension;
};
constexpr ShippedFiles shippedFiles[] = {
    {"", "Blank_Map_Template", ".htm"}, {"", "SubMsgPlay_", ".cde"},
    {"", "Dialwright", ".dll"},         {"", "Dialwright", ".chm"},
    {"XMLShots", "", ".XML"},           {"PDFFoldoutBuilder", "", ".class"},
    {"PDFFoldoutBuilder", "", ".jar"},  {"translations", "", ".qm"},
};
constexpr std::string_view ownFolder = "Dialwright Files";

// A file that stands in every program folder.
bool IsProgramFolder(const fs::path& folder) {
  std::error_code error;
  return fs::is_regular_file(folder / "Dialwright_ENU.dll", error);
}

// Throws fs::filesystem_error.
void LayLinks(const ShippedFiles& files, const fs::path& shipped, const fs::path& own) {
  if (!fs::is_directory(shipped / files.folder)) return;
  fs::create_directories(own / files.folder);
  for (const fs::directory_entry& entry : fs::directory_iterator(shipped / files.folder)) {
    const fs::path name = entry.path().filename();
    if (!name.string().starts_with(files.start) || name.extension() != files.extension) continue;
    const fs::path link = own / files.folder / name;
    if (fs::is_symlink(link)) {
      if (fs::read_symlink(link) == entry.path()) continue;
      fs::remove(link);
    } else if (fs::exists(link)) {
      continue;
    }
    fs::create_symlink(entry.path(), link);
  }
}

}  // namespace

std::string ShippedFolder(std::string_view executableFolder) {
  const fs::path beside(executableFolder);
  const fs::path installed = beside.parent_path() / "share" / "dialwright";
  return !IsProgramFolder(beside) && IsProgramFolder(installed) ? installed.string()
                                                                : beside.string();
}

std::string ProgramFolderFor(const std::string& serverFolder, const std::string& shippedFolder) {
  const fs::path own = PlannedProgramFolder(serverFolder);
  if (own == fs::path(serverFolder)) return serverFolder;
  try {
    for (const ShippedFiles& files : shippedFiles) LayLinks(files, shippedFolder, own);
  } catch (const fs::filesystem_error&) {
    return shippedFolder;
  }
  return own.string();
}

std::string PlannedProgramFolder(const std::string& serverFolder) {
  if (IsProgramFolder(serverFolder)) return serverFolder;
  return (fs::path(serverFolder) / ownFolder).string();
}

}  // namespace dialwright
