#include "cli/ServerDesk.h"

#include <ostream>

#include "beside/KeyMapExchange.h"
#include "beside/SlotReader.h"
#include "platform/EarlierFolder.h"
#include "platform/Failure.h"
#include "shell/events/Lifecycle.h"
#include "shell/events/MainEvents.h"
#include "text/Text.h"

namespace dialwright {

MsgBoxAnswer SpokenBoxes::MsgBox(std::string_view text, MsgBoxButtons buttons, std::string_view) {
  std::string line = ReplaceAll(ReplaceAll(text, "\r\n", " "), "\n", " ");
  if (buttons == MsgBoxButtons::YesNo) line += " No";
  words << line << '\n';
  return buttons == MsgBoxButtons::YesNo ? MsgBoxAnswer::No : MsgBoxAnswer::OK;
}

void NoProcesses::Shell(std::string_view, WindowState, std::string_view) {
  throw RuntimeFailure(Failure::fileNotFound);
}

ServerDesk::ServerDesk(const std::optional<std::string>& folder, int slot, std::ostream& words,
                       Writing writing)
    : host(OpenHost(folder, writing == Writing::onDisk)),
      files(writing == Writing::onDisk ? *host.files : overlay),
      boxes(words),
      program(Services{files, *host.registry, *host.clock, processes, boxes, checksums, *languages,
                       help, writing == Writing::onDisk ? EarlierFolder() : std::string()},
              host.programFolder, "Dialwright") {
  overlay.ReadAs(host.programFolder, host.shippedFolder);
  ConnectEvents(Form());
  try {
    Start(slot);
  } catch (const EndProgram&) {
    // The form has said why.
    throw CommandFailure{ExitCode::unreadable, {}};
  }
  // The form shows a script that it cannot read as one without keys; nobody here would see it.
  if (const auto fault = UnreadableScript(Form()))
    throw CommandFailure{ExitCode::unreadable, *fault};
}

void ServerDesk::Start(int slot) {
  Form_Load(Form());
  if (slot > SlotsOf(Form()))
    throw CommandFailure{ExitCode::unreadable,
                         ReplaceAll(program.mymyLoadString(1510), "%1", std::to_string(slot))};
  SelectSlot(Form(), slot);
  Form().cmdSave.Enabled = false;
}

}  // namespace dialwright
