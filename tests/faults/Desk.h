#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "MemoryFileStore.h"
#include "TempFolder.h"
#include "platform/ScriptChecksumComponent.h"
#include "platform/posix/FileStorePosix.h"
#include "platform/standins/FileLanguages.h"
#include "platform/standins/RegistryFile.h"
#include "shell/frmMain.h"
#include "transcript/World.h"

namespace dialwright {

inline constexpr std::string_view newestServer = "merid-7.0-2.0";

/// The scripts of the first slot.
extern const std::array<std::string, 3> slotScripts;

/// The files of a server of the sandbox, and a program folder with a small page template.
const Files& ServerFiles(std::string_view name = newestServer);

/// Gives up the rights of an owner of the machine, who would be refused nothing, for its lifetime.
struct OrdinaryUser {
  OrdinaryUser();
  ~OrdinaryUser();
};

/// The same files in a folder of the host.
struct Server {
  Server() { PutBack(ServerFiles()); }
  Files Snapshot() const;
  void PutBack(const Files& files);

  TempFolder folder;
  FileStorePosix disk{folder.path.string(), 'C'};
};

/// A user's whole program over files of the test's own, with the registry of a server.
class Desk {
 public:
  explicit Desk(FileStore& store, std::string_view server = newestServer);

  frmMain& Form() { return *program.main; }
  void Start();
  /// Gives two actions of each menu each other's keys and turns over options of the setup.
  void Edit();
  /// Presses the save button, whether or not something has changed.
  void Save();

  FileStore& files;
  Printer printer;
  ScriptedMessages messages{printer};

 private:
  MemoryRegistry registry;
  StandingClock clock;
  PrintedProcesses processes{printer};
  CrcChecksumFactory checksums{files};
  FileLanguages languages{files, 1033};
  PrintedHelp help{printer};

 public:
  Program program;
};

/// Something that a user does with the files, and does again after a failure.
struct Job {
  std::string_view name;
  void (*prepare)(Desk& desk);
  void (*work)(Desk& desk);
};
std::span<const Job> Jobs();

/// What is wrong with the files in the middle of a save; empty if all is well. Each section of a
/// script must be wholly as before or wholly as after it and all other lines as they were, a backup
/// must be the old one or that of the script, and nothing else may change but the documents. A
/// script of which only a beginning is left goes to `torn`.
std::string FaultOfFiles(const Files& before, const Files& after, const Files& found,
                         std::vector<std::string>& torn);

/// What is not as it should be when the work is done anew. Of a script that was torn, and of its
/// backup, the keys must be there.
std::string FaultOfRepeat(const Files& before, const Files& wanted, const Files& found,
                          const std::vector<std::string>& torn);

}  // namespace dialwright
