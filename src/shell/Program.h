#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "files/FileSystemObject.h"
#include "files/PrivateProfile.h"
#include "language/mdlHTMLHelp.h"
#include "language/modLocalize.h"
#include "messages/Messages.h"
#include "platform/Processes.h"
#include "server/MeridVersion.h"

namespace dialwright {

class Clock;
class HelpViewer;
class Languages;
class Registry;
class ScriptChecksumComponent;
class ScriptChecksumFactory;
struct Form;
struct frmAbout;
struct frmMain;

/// Everything outside the program that it reaches.
struct Services {
  FileStore& files;
  Registry& registry;
  Clock& clock;
  Processes& processes;
  MessageBoxes& messages;
  ScriptChecksumFactory& checksums;
  Languages& languages;
  HelpViewer& help;
  /// Where earlier versions of scripts are kept: a folder of the user's own. Empty: there is none.
  std::string earlierFolder = {};
};

/// The card tool's start. A stock conversation's card is not of the form's key map.
struct CardStart {
  bool isOfForm = false;
  bool isRunning = false;
};

/// The composition root: the services, the program folder, and the modules that have state. It is
/// built once in `main`, or once a transcript.
class Program final : public Messages {
 public:
  /// `programFolder` without a backslash at its end; `programFile` is the program file's name
  /// without its extension.
  Program(const Services& outside, std::string programFolder, std::string programFile);
  ~Program() override;
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  MsgBoxAnswer MsgBox(std::string_view text, MsgBoxButtons buttons = MsgBoxButtons::OK,
                      std::string_view title = {}) override;
  MsgBoxAnswer MarkedBox(MsgBoxMark mark, std::string_view text,
                         MsgBoxButtons buttons = MsgBoxButtons::OK,
                         std::string_view title = {}) override;
  std::string mymyLoadString(int number) override;

  /// Starts a command line in the current folder and goes on at once.
  void Shell(std::string_view commandLine, WindowState state);
  /// Changes the current folder. Fails with 76 if there is no such folder.
  void ChDir(std::string_view path);

  /// The about box, created on first use.
  frmAbout& About();
  bool AboutIsLoaded() const { return aboutBox != nullptr; }
  bool AboutIsUp() const;
  /// For whoever shows the box: called once it is created, before it loads.
  std::function<void(frmAbout&)> aboutCreated;
  /// For whoever tells about cards: called once the card tool has been started, or could not be.
  std::function<void(const CardStart&)> cardStarted;
  /// For what stands beside the form: called behind the writing of a save that no rule
  /// refused, with what came of it in the form.
  std::function<void()> keyMapSaved;

  Services services;
  std::string folder;
  std::string file;
  std::string currentFolder;

  std::vector<Form*> loadedForms;
  FileSystemObject files;
  PrivateProfile profile;
  MeridVersion server;
  modLocalize language;
  mdlHTMLHelp help;
  std::unique_ptr<ScriptChecksumComponent> checksum;  ///< once it could be created
  std::unique_ptr<frmMain> main;

 private:
  friend class ScriptLock;
  void TakeScriptLock();

  std::unique_ptr<frmAbout> aboutBox;
  int scriptLocks = 0;
  std::unique_ptr<FolderLock> scriptLock;
};

/// While one lives no other editor saves, restores or loads scripts of the same folder. A message
/// box lets others in for as long as it is up: nobody knows when it will be answered.
class ScriptLock {
 public:
  explicit ScriptLock(Program& theProgram);
  ~ScriptLock();
  ScriptLock(const ScriptLock&) = delete;
  ScriptLock& operator=(const ScriptLock&) = delete;

 private:
  Program& program;
};

/// The common way out: asks when there are unsaved changes, and ends the program with EndProgram.
/// Returns only when the user answers No.
void RequestExit(Program& program);

}  // namespace dialwright
