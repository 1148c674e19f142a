#include "shell/events/BringBack.h"

#include <string>
#include <utility>
#include <vector>

#include "platform/Failure.h"
#include "scripts/EarlierVersions.h"
#include "shell/Program.h"
#include "shell/events/Lifecycle.h"
#include "shell/frmMain.h"

namespace dialwright {

namespace {

/// A script's path and contents.
using Contents = std::vector<std::pair<std::string, std::string>>;

/// Nothing if not all of them can be had.
Contents ContentsOf(FileStore& files, const EarlierVersion& version) {
  Contents contents;
  try {
    for (const EarlierScript& script : version.scripts)
      contents.emplace_back(script.path, files.Read(script.kept));
  } catch (const RuntimeFailure&) {
    contents.clear();
  }
  return contents;
}

void Put(FileStore& files, const std::string& path, const std::string& bytes) {
  if (files.KindOf(path) != FileStore::Kind::none) {
    files.Replace(path, bytes);
    return;
  }
  const auto file = files.Open(path, FileStore::Opening::truncate, true);
  file->Write(bytes);
  file->Flush();
  file->Close();
}

}  // namespace

bool BringEarlierVersion(frmMain& form, int number) {
  FileStore& files = form.program.services.files;
  const std::vector<EarlierVersion> versions = EarlierVersions(form);
  if (number < 1 || static_cast<std::size_t>(number) > versions.size()) return false;
  // Before anything else is kept, since that may let go of an old version.
  const Contents contents = ContentsOf(files, versions[static_cast<std::size_t>(number) - 1]);
  if (contents.empty()) return false;

  const ScriptLock lock(form.program);
  const bool isKept = KeepEarlierVersion(form.program, SelectedSlot(form), SlotScripts(form));
  std::vector<std::string> missed;
  for (const auto& [path, bytes] : contents) {
    try {
      Put(files, path, bytes);
    } catch (const RuntimeFailure&) {
      missed.push_back(path);
    }
  }
  LoadKeyMapInfo(form);
  ++form.safety.revision;
  form.safety.notKept = !isKept;
  form.safety.notBroughtBack = std::move(missed);
  return true;
}

}  // namespace dialwright
