#include "cli/Host.h"

// The shell's header does without the one that it needs.
// clang-format off
#include <windows.h>
#include <shellapi.h>
// clang-format on
#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <memory>
#include <string_view>

#include "cli/ServerFolder.h"
#include "cli/win32/FolderFiles.h"
#include "platform/EarlierFolder.h"
#include "platform/win32/ClockWin32.h"
#include "platform/win32/FileStoreWin32.h"
#include "platform/win32/LanguagesWin32.h"
#include "platform/win32/RegistryWin32.h"
#include "platform/win32/Win32Text.h"

namespace dialwright {

namespace {

/// Where documents and the backup of a server's folder are left.
constexpr std::string_view documentsFolder = "\\Dialwright Files";

std::string OwnFolder() {
  std::wstring path(32768, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return NarrowText(path.substr(0, path.rfind(L'\\')));
}

}  // namespace

Host OpenHost(const std::optional<std::string>& serverFolder, bool writes) {
  Host host;
  if (serverFolder) {
    const std::string folder = AbsoluteFolder(*serverFolder);
    host.files = std::make_unique<FolderFiles>(folder, std::vector{EarlierFolder(), OwnFolder()});
    host.registry = RegistryIn(folder, *host.files, folder);
    host.programFolder = folder + std::string(documentsFolder);
    host.shippedFolder = OwnFolder();
    if (writes && host.files->KindOf(host.programFolder) == FileStore::Kind::none)
      host.files->CreateFolder(host.programFolder);
  } else {
    host.programFolder = OwnFolder();
    host.files = std::make_unique<FileStoreWin32>();
    host.registry = std::make_unique<RegistryWin32>();
  }
  host.clock = std::make_unique<ClockWin32>();
  return host;
}

std::unique_ptr<Languages> MakeLanguages(FileStore&) { return std::make_unique<LanguagesWin32>(); }

std::vector<std::string> HostArguments(int, char**) {
  int count = 0;
  const std::unique_ptr<LPWSTR[], decltype(&LocalFree)> words(
      CommandLineToArgvW(GetCommandLineW(), &count), LocalFree);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i)
    arguments.push_back(NarrowText(words[static_cast<std::size_t>(i)]));
  return arguments;
}

bool PrepareOutput() {
  SetConsoleOutputCP(CP_UTF8);
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);
  // Old consoles show the signs for colours as they are.
  return false;
}

}  // namespace dialwright
