#include "scripts/ScriptWatch.h"

#include "scripts/EarlierVersions.h"
#include "shell/Program.h"
#include "shell/frmMain.h"

namespace dialwright {

void NoteScripts(frmMain& form) {
  Program& program = form.program;
  ++form.safety.revision;
  form.safety.seen.clear();
  form.safety.overwritten.clear();
  form.safety.notBroughtBack.clear();
  for (const std::string& path : SlotScripts(form))
    form.safety.seen.push_back({path, program.profile.Seen(path), program.profile.CanRead(path)});
}

std::vector<std::string> ScriptsChangedByOthers(const frmMain& form) {
  std::vector<std::string> changed;
  for (const FileSafety::Seen& script : form.safety.seen)
    if (form.program.services.files.Stamp(script.path) != script.stamp)
      changed.push_back(script.path);
  return changed;
}

SlotBatch::SlotBatch(const frmMain& form) {
  for (const std::string& path : SlotScripts(form))
    batches.push_back(std::make_unique<ProfileBatch>(form.program.profile, path));
}

FirstWrite::FirstWrite(frmMain& theForm) : form(theForm) {
  form.program.profile.beforeWrite = [this] { IsNext(); };
}

FirstWrite::~FirstWrite() {
  form.program.profile.beforeWrite = nullptr;
  if (!hasBeen) return;
  form.safety.overwritten.clear();
  for (std::size_t i = 0; i < before.size(); ++i) {
    FileSafety::Seen& script = form.safety.seen[i];
    const std::optional<FileStamp> now = form.program.services.files.Stamp(script.path);
    if (now == before[i]) continue;
    if (before[i] != script.stamp) form.safety.overwritten.push_back(script.path);
    script.stamp = now;
    script.isReadable = true;
  }
}

void FirstWrite::IsNext() {
  if (hasBeen) return;
  hasBeen = true;
  for (const FileSafety::Seen& script : form.safety.seen)
    before.push_back(form.program.services.files.Stamp(script.path));
  form.safety.notKept = !KeepEarlierVersion(form.program, SelectedSlot(form), SlotScripts(form));
}

}  // namespace dialwright
