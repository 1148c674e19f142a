#pragma once

#include <memory>
#include <optional>
#include <string>

#include "cli/CommandLine.h"
#include "cli/Host.h"
#include "platform/HelpViewer.h"
#include "platform/MessageBoxes.h"
#include "platform/Processes.h"
#include "platform/ScriptChecksumComponent.h"
#include "platform/standins/OverlayFiles.h"
#include "shell/Program.h"
#include "shell/frmMain.h"

namespace dialwright {

/// Boxes as lines of a terminal; a question is answered No.
class SpokenBoxes : public MessageBoxes {
 public:
  explicit SpokenBoxes(std::ostream& output) : words(output) {}
  MsgBoxAnswer MsgBox(std::string_view text, MsgBoxButtons buttons,
                      std::string_view title) override;

 private:
  std::ostream& words;
};

/// The core on a terminal: nothing is started, and there is no help window.
class NoProcesses : public Processes {
 public:
  void Shell(std::string_view commandLine, WindowState state,
             std::string_view currentFolder) override;
};
class NoHelp : public HelpViewer {
 public:
  WindowHandle HtmlHelpA(WindowHandle, std::string_view, unsigned, std::uintptr_t) override {
    return 0;
  }
  bool IsWindow(WindowHandle) override { return false; }
  void SendMessageA(WindowHandle, unsigned, std::uintptr_t, std::uintptr_t) override {}
  void Sleep(unsigned) override {}
};

/// A server with the form at work on one of its slots.
class ServerDesk {
 public:
  enum class Writing { inMemory, onDisk };

  /// Starts the form on the server of a folder or of this machine, and switches it to the slot.
  /// What it says goes to `words`. Throws CommandFailure where a user would not come so far.
  ServerDesk(const std::optional<std::string>& folder, int slot, std::ostream& words,
             Writing writing = Writing::inMemory);

  frmMain& Form() { return *program.main; }
  const frmMain& Form() const { return *program.main; }
  Program& TheProgram() { return program; }
  /// What would have been written.
  const OverlayFiles& Overlay() const { return overlay; }
  FileStore& RealFiles() { return *host.files; }
  /// Where a path of the system lies on this machine.
  std::string PlaceOf(std::string_view path) const { return host.files->RealPath(path); }

 private:
  void Start(int slot);

  Host host;
  OverlayFiles overlay{*host.files};
  FileStore& files;
  SpokenBoxes boxes;
  NoProcesses processes;
  NoHelp help;
  CrcChecksumFactory checksums{files};
  std::unique_ptr<Languages> languages = MakeLanguages(files);
  Program program;
};

}  // namespace dialwright
