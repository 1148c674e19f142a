#include "shell/Program.h"

#include <chrono>
#include <utility>

#include "platform/Failure.h"
#include "platform/ScriptChecksumComponent.h"
#include "shell/frmAbout.h"
#include "shell/frmMain.h"

namespace dialwright {

Program::Program(const Services& outside, std::string programFolder, std::string programFile)
    : services(outside),
      folder(std::move(programFolder)),
      file(std::move(programFile)),
      currentFolder(folder),
      files(outside.files),
      profile(outside.files),
      server(*this, outside.registry),
      language(*this, outside.languages, files, folder, file, loadedForms),
      help(outside.help, files, language, folder),
      main(std::make_unique<frmMain>(*this)) {
  loadedForms.push_back(main.get());
}

Program::~Program() = default;

MsgBoxAnswer Program::MsgBox(std::string_view text, MsgBoxButtons buttons, std::string_view title) {
  return MarkedBox(MsgBoxMark::usual, text, buttons, title);
}

MsgBoxAnswer Program::MarkedBox(MsgBoxMark mark, std::string_view text, MsgBoxButtons buttons,
                                std::string_view title) {
  // While a box is up the user may look at the disk: what is written so far has to be there.
  profile.FlushBatches();
  scriptLock.reset();
  const MsgBoxAnswer answer = services.messages.MarkedBox(mark, text, buttons, title);
  TakeScriptLock();
  return answer;
}

void Program::TakeScriptLock() {
  // Another editor's work takes moments; one that hangs must not hold up everybody.
  constexpr std::chrono::seconds patience{5};
  if (scriptLocks == 0 || scriptLock) return;
  const std::string& script = main->strMainMenuScript;
  const std::size_t end = script.rfind('\\');
  if (end != std::string::npos) scriptLock = services.files.Lock(script.substr(0, end), patience);
}

std::string Program::mymyLoadString(int number) { return language.mymyLoadString(number); }

void Program::Shell(std::string_view commandLine, WindowState state) {
  services.processes.Shell(commandLine, state, currentFolder);
}

void Program::ChDir(std::string_view path) {
  if (!files.FolderExists(path)) throw RuntimeFailure(Failure::pathNotFound);
  currentFolder = path;
}

frmAbout& Program::About() {
  if (!aboutBox) {
    aboutBox = std::make_unique<frmAbout>(*this);
    loadedForms.push_back(aboutBox.get());
    if (aboutCreated) aboutCreated(*aboutBox);
    frmAbout_Load(*aboutBox);
  }
  return *aboutBox;
}

bool Program::AboutIsUp() const { return aboutBox && aboutBox->Shown; }

ScriptLock::ScriptLock(Program& theProgram) : program(theProgram) {
  ++program.scriptLocks;
  program.TakeScriptLock();
}

ScriptLock::~ScriptLock() {
  if (--program.scriptLocks == 0) program.scriptLock.reset();
}

void RequestExit(Program& program) {
  if (program.main->cmdSave.Enabled &&
      program.MarkedBox(MsgBoxMark::loss, program.mymyLoadString(1169), MsgBoxButtons::YesNo) ==
          MsgBoxAnswer::No)
    return;
  program.help.CloseHelpWindow();
  throw EndProgram{};
}

}  // namespace dialwright
