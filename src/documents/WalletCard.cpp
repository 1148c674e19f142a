#include "documents/WalletCard.h"

#include <string>

#include "messages/FailureTrap.h"
#include "shell/Program.h"

namespace dialwright {

namespace {

/// The alternate mappings' files are named "Optional".
constexpr ReferenceCard referenceCards[] = {
    {&frmMain::mnuWKWStandard, "\\XMLShots\\StandardKeyMap.XML"},
    {&frmMain::mnuWKWOptional1, "\\XMLShots\\Optional1KeyMap.XML"},
    {&frmMain::mnuWKWAlternateN, "\\XMLShots\\OptionalNKeyMap.XML"},
    {&frmMain::mnuWKWAlternateS, "\\XMLShots\\OptionalSKeyMap.XML"},
    {&frmMain::mnuWKWAlternateX, "\\XMLShots\\OptionalXKeyMap.XML"},
};

}  // namespace

std::span<const ReferenceCard> ReferenceCards() { return referenceCards; }

void GeneratePDFWalletCard(frmMain& form, std::string_view source) {
  const FailureTrap step{form.program, FailurePrefix::fixed, "GeneratePDFWalletCard"};
  Program& program = form.program;
  FileSystemObject& files = program.files;
  const std::string tool = program.folder + "\\PDFFoldoutBuilder";
  if (!files.FolderExists(tool + "\\PDF")) step([&] { files.CreateFolder(tool + "\\PDF"); });
  if (!source.empty()) {
    if (!files.FileExists(source)) {
      program.MsgBox("File not found: " + std::string(source));
      return;
    }
    step([&] { files.CopyFile(source, program.folder + "\\XMLKeyMap.XML", true); });
  }
  step([&] { program.ChDir(tool); });
  const bool isRunning = step([&] {
    program.Shell("java -classpath \"" + tool + ";" + tool + "\\itext-1.3.jar\" FBuilder",
                  WindowState::hidden);
  });
  if (program.cardStarted)
    program.cardStarted({.isOfForm = source.empty(), .isRunning = isRunning});
}

}  // namespace dialwright
