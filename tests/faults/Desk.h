#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "FaultyFiles.h"
#include "platform/FileLanguages.h"
#include "platform/RegistryFile.h"
#include "runner/World.h"
#include "shell/frmMain.h"

namespace dialwright {

inline constexpr std::string_view scriptFolder = R"(C:\Telhost\Localize\Scripts\)";
inline constexpr std::string_view programFolder = R"(C:\Dialwright\)";
/// The files of the first slot.
inline constexpr std::string_view slotScripts[] = {"Macros_MenuAlternate_Custom.cdh",
                                                   "SubMsgPlay_Alternate_Custom.cde",
                                                   "SubSetupMenu_Alternate1.cde"};

/// Makes the files of a server of the newest version, and a small page template: `put` is called
/// with path and bytes.
void LayOut(const std::function<void(std::string_view path, std::string_view bytes)>& put);

/// A user's whole program over a disk of the test's own.
class Desk {
 public:
  explicit Desk(FileStore& store, FaultyFiles* faulty = nullptr);

  frmMain& form() { return *program.main; }
  void start();
  /// Gives two actions of each menu each other's keys and turns over options of the setup.
  void edit();
  /// Presses the save button, whether or not something has changed.
  void save();
  void setDocuments(int value);

  Printer printer;
  MemoryRegistry registry;
  StandingClock clock;
  PrintedProcesses processes{printer};
  ScriptedMessages messages{printer};

 private:
  /// The checksum of our own. Tells the files when it reads, since its failures are its own affair.
  struct Checksums : ScriptChecksumFactory {
    Checksums(FileStore& files, FaultyFiles* faulty) : store(files), watched(faulty) {}
    std::unique_ptr<ScriptChecksumComponent> CreateObject() override;
    FileStore& store;
    FaultyFiles* watched;
  };
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

/// What is wrong with a script that a save was at work on: each section must be wholly as before or
/// wholly as after it, all other lines as they were. Empty if all is well. The checksum line may
/// hold anything here.
std::string FaultOfScript(std::string_view before, std::string_view after, std::string_view found);

/// Whether every checksum line fits the rest of the file.
bool ChecksumFits(std::string_view script);

/// Whether the text holds every line of `after` that `before` does not have, checksum lines aside.
bool HasNewLines(std::string_view before, std::string_view after, std::string_view found);

}  // namespace dialwright
