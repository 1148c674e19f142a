#include "desktop/HostServices.h"

#include "platform/EarlierFolder.h"
#include "platform/ScriptChecksumComponent.h"
#include "platform/win32/ClockWin32.h"
#include "platform/win32/FileStoreWin32.h"
#include "platform/win32/HelpViewerWin32.h"
#include "platform/win32/LanguagesWin32.h"
#include "platform/win32/ProcessesWin32.h"
#include "platform/win32/RegistryWin32.h"

namespace dialwright {

namespace {

class HostServicesWin32 : public HostServices {
 public:
  Services ServicesWith(MessageBoxes& messages) override {
    return {files,     registry,  clock, processes,      messages,
            checksums, languages, help,  EarlierFolder()};
  }

 private:
  FileStoreWin32 files;
  RegistryWin32 registry;
  ClockWin32 clock;
  ProcessesWin32 processes;
  CrcChecksumFactory checksums{files};
  LanguagesWin32 languages;
  HelpViewerWin32 help;
};

}  // namespace

std::unique_ptr<HostServices> MakeHostServices(const std::string&) {
  return std::make_unique<HostServicesWin32>();
}

}  // namespace dialwright
