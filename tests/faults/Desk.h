#pragma once

#include <span>
#include <string_view>

#include "FaultyFiles.h"
#include "platform/FileLanguages.h"
#include "platform/RegistryFile.h"
#include "transcript/World.h"
#include "shell/frmMain.h"

namespace dialwright {

/// A user's whole program over files of the test's own.
class Desk {
 public:
  explicit Desk(FileStore& store, FaultyFiles* faulty = nullptr);

  frmMain& form() { return *program.main; }
  void start();
  /// Gives two actions of each menu each other's keys and turns over options of the setup.
  void edit();
  /// Presses the save button, whether or not something has changed.
  void save();

  Printer printer;
  ScriptedMessages messages{printer};

 private:
  /// The checksum of our own. Tells the files when it reads: its failures are its own affair.
  struct Checksums : ScriptChecksumFactory {
    Checksums(FileStore& files, FaultyFiles* faulty) : store(files), watched(faulty) {}
    std::unique_ptr<ScriptChecksumComponent> CreateObject() override;
    FileStore& store;
    FaultyFiles* watched;
  };
  MemoryRegistry registry;
  StandingClock clock;
  PrintedProcesses processes{printer};
  Checksums checksums;
  FileLanguages languages;
  PrintedHelp help{printer};

 public:
  Program program;
};

/// Something a user does that reads or writes files.
struct Job {
  std::string_view name;
  void (*prepare)(Desk& desk, FileStore& disk);
  void (*work)(Desk& desk);
  /// What the user does after a failure to have what he wanted.
  void (*again)(Desk& desk);
};
std::span<const Job> Jobs();

}  // namespace dialwright
