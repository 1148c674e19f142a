#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "files/PrivateProfile.h"
#include "platform/FileStore.h"

namespace dialwright {

struct frmMain;

/// Notes the selected slot's scripts as they stand, which is as the form shows them.
void NoteScripts(frmMain& form);

/// The scripts that somebody else has changed since they were loaded or written here.
std::vector<std::string> ScriptsChangedByOthers(const frmMain& form);

/// While it lives the slot's files are read once, and replaced only where somebody looks: before a
/// message box, and at its end. So after a crash a script's keys are either all old or all new.
struct SlotBatch {
  explicit SlotBatch(const frmMain& form);
  std::vector<std::unique_ptr<ProfileBatch>> batches;
};

/// Around the writes of a save: right before the first of them it keeps the scripts as an earlier
/// version and looks who else has written into them; at its end it notes them as written.
class FirstWrite {
 public:
  explicit FirstWrite(frmMain& theForm);
  ~FirstWrite();
  FirstWrite(const FirstWrite&) = delete;
  FirstWrite& operator=(const FirstWrite&) = delete;

  /// The first write is about to come, unless it has been.
  void IsNext();

 private:
  frmMain& form;
  bool hasBeen = false;
  std::vector<std::optional<FileStamp>> before;
};

}  // namespace dialwright
