#pragma once

#include <span>
#include <string_view>

#include "Server.h"
#include "platform/FileLanguages.h"
#include "platform/RegistryFile.h"
#include "platform/ScriptChecksumComponent.h"
#include "shell/frmMain.h"
#include "transcript/World.h"

namespace dialwright {

/// A user's whole program over files of the test's own.
class Desk {
 public:
  /// The registry is that of a server of the sandbox.
  explicit Desk(FileStore& store, std::string_view server = newestServer);

  frmMain& form() { return *program.main; }
  void start();
  /// Gives two actions of each menu each other's keys and turns over options of the setup.
  void edit();
  /// Presses the save button, whether or not something has changed.
  void save();

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

/// Something a user does that reads or writes files.
struct Job {
  std::string_view name;
  void (*prepare)(Desk& desk);
  void (*work)(Desk& desk);
  /// What the user does after a failure to have what he wanted.
  void (*again)(Desk& desk);
};
std::span<const Job> Jobs();

}  // namespace dialwright
