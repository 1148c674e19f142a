#include "desktop/HostServices.h"

#include "desktop/help/HelpViewerQt.h"
#include "platform/EarlierFolder.h"
#include "platform/Failure.h"
#include "platform/ScriptChecksumComponent.h"
#include "platform/posix/ClockPosix.h"
#include "platform/posix/FileStorePosix.h"
#include "platform/posix/HostPath.h"
#include "platform/posix/ProcessesPosix.h"
#include "platform/standins/FileLanguages.h"
#include "platform/standins/LocaleTable.h"
#include "platform/standins/RegistryFile.h"

namespace dialwright {

namespace {

class HostServicesPosix : public HostServices {
 public:
  explicit HostServicesPosix(const std::string& serverFolder) : files(serverFolder) {
    FillRegistry(SystemPath(serverFolder) + "\\server.reg");
  }

  Services ServicesWith(MessageBoxes& messages) override {
    return {files,     registry,  clock, processes,      messages,
            checksums, languages, help,  EarlierFolder()};
  }

 private:
  /// The server's registry, out of its file. Without one there is no server.
  void FillRegistry(const std::string& path) {
    if (files.KindOf(path) != FileStore::Kind::file) return;
    try {
      ReadRegistryFile(files.Read(path), registry);
    } catch (const RuntimeFailure&) {
      // A registry that cannot be read answers nothing, and the system says so.
    }
  }

  FileStorePosix files;
  MemoryRegistry registry;
  ClockPosix clock;
  ProcessesPosix processes{[this](std::string_view path) { return files.HostPath(path); }};
  CrcChecksumFactory checksums{files};
  FileLanguages languages{files, UserLanguageFromEnvironment()};
  HelpViewerQt help{files};
};

}  // namespace

std::unique_ptr<HostServices> MakeHostServices(const std::string& serverFolder) {
  return std::make_unique<HostServicesPosix>(serverFolder);
}

}  // namespace dialwright
