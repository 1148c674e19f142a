#include "desktop/HostServices.h"

#include "platform/ScriptChecksumComponent.h"
#include "platform/win32/ClockWin32.h"
#include "platform/win32/FileStoreWin32.h"
#include "platform/win32/HelpViewerWin32.h"
#include "platform/win32/LanguagesWin32.h"
#include "platform/win32/ProcessesWin32.h"
#include "platform/win32/RegistryWin32.h"
#include "platform/win32/Win32Text.h"

namespace dialwright {

namespace {

/// In the user's own data folder.
std::string EarlierFolder() {
  const wchar_t* data = _wgetenv(L"LOCALAPPDATA");
  return data == nullptr ? std::string() : NarrowText(data) + "\\Dialwright\\Earlier";
}

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
