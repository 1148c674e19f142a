#include "cli/ServerFolder.h"

#include "cli/CommandLine.h"
#include "cli/HostFile.h"
#include "platform/Failure.h"
#include "platform/standins/RegistryFile.h"

namespace dialwright {

std::string AbsoluteFolder(const std::string& folder) {
  std::string path = Utf8Path(std::filesystem::absolute(HostFilePath(folder)).lexically_normal());
  while (path.size() > 1 && (path.ends_with('/') || path.ends_with('\\'))) path.pop_back();
  return path;
}

std::unique_ptr<Registry> RegistryIn(const std::string& folder, FileStore& files,
                                     const std::string& systemPath) {
  const std::string path = systemPath + "\\server.reg";
  if (files.KindOf(path) != FileStore::Kind::file)
    throw CommandFailure{ExitCode::unreadable,
                         folder + " is no server folder: it has no server.reg"};
  auto registry = std::make_unique<MemoryRegistry>();
  try {
    ReadRegistryFile(files.Read(path), *registry);
  } catch (const RuntimeFailure& failure) {
    throw CommandFailure{ExitCode::unreadable,
                         "server.reg in " + folder + " cannot be read: " + failure.description};
  }
  return registry;
}

}  // namespace dialwright
