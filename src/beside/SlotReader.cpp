#include "beside/SlotReader.h"

#include "platform/Failure.h"
#include "shell/Program.h"
#include "shell/events/Lifecycle.h"
#include "shell/events/MainEvents.h"

namespace dialwright {

namespace {

/// Keeps what would have been said. A question is answered No.
class SilentBoxes : public MessageBoxes {
 public:
  MsgBoxAnswer MsgBox(std::string_view text, MsgBoxButtons buttons, std::string_view) override {
    said += (said.empty() ? "" : "\r\n") + std::string(text);
    return buttons == MsgBoxButtons::YesNo ? MsgBoxAnswer::No : MsgBoxAnswer::OK;
  }

  std::string said;
};

}  // namespace

KeyMap KeyMapOfSlot(Program& program, int slot) {
  SilentBoxes boxes;
  const Services& real = program.services;
  // A second program on the same files, which lives no longer than the reading.
  Program reader(Services{real.files, real.registry, real.clock, real.processes, boxes,
                          real.checksums, real.languages, real.help},
                 program.folder, program.file);
  frmMain& form = *reader.main;
  ConnectEvents(form);
  try {
    Form_Load(form);
    form.cmdSave.Enabled = false;
    SelectSlot(form, slot);
  } catch (const EndProgram&) {
    throw SlotFault{boxes.said};
  }
  if (const auto fault = UnreadableScript(form)) throw SlotFault{*fault};
  return KeyMapOf(form);
}

std::optional<std::string> UnreadableScript(const frmMain& form) {
  for (const std::string& path :
       {form.strMainMenuScript, form.strMessagePlaybackScript, form.strSetupMenuScript}) {
    if (path.empty()) continue;
    try {
      form.program.services.files.Read(path);
    } catch (const RuntimeFailure& failure) {
      return path + ": " + failure.description;
    }
  }
  return std::nullopt;
}

}  // namespace dialwright
