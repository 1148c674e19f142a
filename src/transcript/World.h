#pragma once

#include <cstdint>
#include <deque>
#include <filesystem>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "Printer.h"
#include "WorldPlace.h"
#include "platform/Clock.h"
#include "platform/FileStore.h"
#include "platform/HelpViewer.h"
#include "platform/MessageBoxes.h"
#include "platform/Processes.h"
#include "platform/ScriptChecksumComponent.h"
#include "shell/Program.h"

namespace dialwright {

/// A file store in which single files can be locked: they are there, but cannot be opened.
class LockableFiles : public FileStore {
 public:
  explicit LockableFiles(FileStore& realFiles) : files(realFiles) {}

  void Lock(std::string_view path);
  void Unlock(std::string_view path);

  Kind KindOf(std::string_view path) override { return files.KindOf(path); }
  std::optional<FileStamp> Stamp(std::string_view path) override;
  std::vector<std::string> FileNames(std::string_view folder) override;
  std::string Read(std::string_view path) override;
  void ReadInto(std::string_view path, std::string& bytes) override;
  std::unique_ptr<OutputFile> Open(std::string_view path, Opening opening, bool create) override;
  void Replace(std::string_view path, std::string_view bytes) override;
  void Copy(std::string_view from, std::string_view to, bool overwrite) override;
  void Remove(std::string_view path, bool force) override;
  void CreateFolder(std::string_view path) override;
  std::string RealPath(std::string_view path) override;
  bool IsWritable(std::string_view path) override;
  std::unique_ptr<FolderLock> Lock(std::string_view folder,
                                   std::chrono::milliseconds patience) override;
  void RemoveLeftovers(std::string_view folder) override;

 private:
  bool IsLocked(std::string_view path) const;
  void RefuseLocked(std::string_view path) const;

  FileStore& files;
  std::set<std::string> locked;
};

/// A clock that stands, in a zone that is UTC.
class StandingClock : public Clock {
 public:
  SystemTime Now() override { return now; }
  std::optional<FileTime> LocalFileTimeToFileTime(FileTime local) override { return local; }

  SystemTime now{2007, 3, 4, 5, 6, 7, 0};
};

/// Message boxes that print themselves and take their answers from a list.
class ScriptedMessages : public MessageBoxes {
 public:
  explicit ScriptedMessages(Printer& output) : printer(output) {}
  MsgBoxAnswer MsgBox(std::string_view text, MsgBoxButtons buttons,
                      std::string_view title) override;

  std::deque<MsgBoxAnswer> answers;

 private:
  Printer& printer;
};

class PrintedProcesses : public Processes {
 public:
  explicit PrintedProcesses(Printer& output) : printer(output) {}
  void Shell(std::string_view commandLine, WindowState state,
             std::string_view currentFolder) override;

 private:
  Printer& printer;
};

/// A help viewer of which only the doors are seen.
class PrintedHelp : public HelpViewer {
 public:
  explicit PrintedHelp(Printer& output) : printer(output) {}
  WindowHandle HtmlHelpA(WindowHandle owner, std::string_view path, unsigned command,
                         std::uintptr_t data) override;
  bool IsWindow(WindowHandle window) override { return window != 0 && window == shown; }
  void SendMessageA(WindowHandle window, unsigned message, std::uintptr_t first,
                    std::uintptr_t second) override;
  void Sleep(unsigned) override {}

 private:
  Printer& printer;
  WindowHandle shown = 0;
};

/// The checksum component, there or not, with its own answers or a transcript's.
class ScriptedChecksums : public ScriptChecksumFactory {
 public:
  ScriptedChecksums(FileStore& files, Printer& output) : own(files), printer(output) {}
  std::unique_ptr<ScriptChecksumComponent> CreateObject() override;
  std::int32_t Answer(std::int32_t stamp, std::string_view path);

  bool present = true;
  /// The answers to come, the last of which stays; nothing in it is a call that fails. Empty: the
  /// component's own operation.
  std::deque<std::optional<std::int32_t>> answers;

 private:
  CrcChecksumFactory own;
  Printer& printer;
};

/// The world of one transcript, fresh and empty: its files lie in a folder of its own, which goes
/// with it.
class World {
 public:
  explicit World(Printer& output);
  ~World();
  World(const World&) = delete;
  World& operator=(const World&) = delete;

  /// Where a path of the system really lies.
  std::filesystem::path HostPath(std::string_view path) const { return disk.HostPath(path); }
  /// Makes a file and its folders.
  void MakeFile(std::string_view path, std::string_view bytes);

 private:
  WorldFolder root;

 public:
  WorldDisk disk;
  Printer& printer;
  LockableFiles files;
  WorldRegistry registry;
  StandingClock clock;
  PrintedProcesses processes;
  ScriptedMessages messages;
  ScriptedChecksums checksums;
  WorldLanguages languages;
  PrintedHelp help;
  Program program;
};

}  // namespace dialwright
