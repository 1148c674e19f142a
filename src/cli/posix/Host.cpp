#include "cli/Host.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string_view>

#include "cli/ServerFolder.h"
#include "platform/posix/ClockPosix.h"
#include "platform/posix/FileStorePosix.h"
#include "platform/posix/ProgramFolder.h"
#include "platform/standins/FileLanguages.h"
#include "platform/standins/LocaleTable.h"
#include "text/Text.h"

namespace dialwright {

namespace {

std::string OwnFolder() {
  return std::filesystem::read_symlink("/proc/self/exe").parent_path().string();
}

std::string SystemSpelling(const std::string& hostPath) { return ReplaceAll(hostPath, "/", "\\"); }

bool IsSet(const char* variable) {
  const char* value = std::getenv(variable);
  return value != nullptr && *value != '\0';
}

}  // namespace

Host OpenHost(const std::optional<std::string>& serverFolder, bool writes) {
  const std::string folder = serverFolder ? AbsoluteFolder(*serverFolder) : OwnFolder();
  const std::string shipped = ShippedFolder(OwnFolder());
  Host host;
  host.files = std::make_unique<FileStorePosix>(folder);
  host.registry = RegistryIn(folder, *host.files, SystemSpelling(folder));
  host.programFolder = SystemSpelling(!serverFolder ? folder
                                      : writes      ? ProgramFolderFor(folder, shipped)
                                                    : PlannedProgramFolder(folder));
  host.shippedFolder = SystemSpelling(shipped);
  host.clock = std::make_unique<ClockPosix>();
  return host;
}

std::unique_ptr<Languages> MakeLanguages(FileStore& files) {
  return std::make_unique<FileLanguages>(files, UserLanguageFromEnvironment());
}

std::vector<std::string> HostArguments(int argc, char** argv) {
  return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

bool PrepareOutput() {
  const char* terminal = std::getenv("TERM");
  return isatty(STDOUT_FILENO) != 0 && !IsSet("NO_COLOR") && terminal != nullptr &&
         std::string_view(terminal) != "dumb";
}

}  // namespace dialwright
