#include "beside/FileNotices.h"

#include <algorithm>

#include "scripts/ScriptWatch.h"
#include "shell/Program.h"
#include "shell/frmMain.h"
#include "text/Lines.h"

namespace dialwright {

namespace {

using Paths = std::vector<std::string>;
using Remedy = FileNotice::Remedy;

void Add(const frmMain& form, std::vector<FileNotice>& notices, int number, Remedy remedy,
         const Paths& paths) {
  if (paths.empty()) return;
  FileNotice notice{form.program.mymyLoadString(number), remedy};
  for (const std::string& path : paths)
    notice.text += "\n" + form.program.services.files.RealPath(path);
  notices.push_back(std::move(notice));
}

template <class Condition>
Paths Those(const frmMain& form, Condition condition) {
  Paths paths;
  for (const FileSafety::Seen& script : form.safety.seen)
    if (condition(script)) paths.push_back(script.path);
  return paths;
}

}  // namespace

std::vector<FileNotice> FileNotices(const frmMain& form) {
  Program& program = form.program;
  FileStore& files = program.services.files;
  const FileSafety& safety = form.safety;
  const auto isThere = [&](const FileSafety::Seen& script) {
    return files.KindOf(script.path) == FileStore::Kind::file;
  };
  const Paths changed = ScriptsChangedByOthers(form);
  const auto isUnread = [&](const FileSafety::Seen& script) {
    return isThere(script) && !script.isReadable &&
           std::ranges::find(changed, script.path) == changed.end();
  };
  const auto hasChanged = [&](const FileSafety::Seen& script) {
    return isThere(script) && std::ranges::find(changed, script.path) != changed.end();
  };

  std::vector<FileNotice> notices;
  Add(form, notices, 1350, Remedy::earlierVersions, form.lastSave.files);
  Add(form, notices, 1351, Remedy::earlierVersions, safety.notBroughtBack);
  if (safety.notKept) notices.push_back({program.mymyLoadString(1352), Remedy::none});
  Add(form, notices, 1353, Remedy::earlierVersions, safety.overwritten);
  Add(form, notices, 1354, Remedy::loadAnew, Those(form, hasChanged));
  Add(form, notices, 1355, Remedy::loadAnew, Those(form, isUnread));
  Add(form, notices, 1356, Remedy::none, Those(form, [&](const FileSafety::Seen& script) {
        return !script.path.empty() && !isThere(script);
      }));
  Add(form, notices, 1357, Remedy::none, Those(form, [&](const FileSafety::Seen& script) {
        return isThere(script) && !files.IsWritable(script.path);
      }));
  return notices;
}

}  // namespace dialwright
