#include "beside/StatusTexts.h"

#include "shell/Program.h"
#include "shell/frmMain.h"
#include "text/Text.h"

namespace dialwright {

namespace {

constexpr int slotNumber = 1477;
constexpr int savedAt = 1478;
constexpr int refused = 1479;
constexpr int refusedInPart = 1480;
constexpr int notAll = 1481;
constexpr int noFindings = 1482;
constexpr int oneFinding = 1483;
constexpr int severalFindings = 1484;

std::string Filled(const frmMain& form, int number, std::string_view with) {
  return ReplaceAll(form.program.mymyLoadString(number), "%1", with);
}

std::string MenuName(const frmMain& form, int grid) {
  return ReplaceAll(form.SSTab1.TabCaption(grid), "&", "");
}

/// A save writes the menus one after the other: those before the refused one are on disk.
std::string RefusedStatus(const frmMain& form) {
  const int grid = form.lastSave.grid;
  std::string written;
  for (int before = 0; before < grid; ++before)
    written += (before == 0 ? "" : ", ") + MenuName(form, before);
  const std::string text = Filled(form, grid == 0 ? refused : refusedInPart, MenuName(form, grid));
  return ReplaceAll(text, "%2", written);
}

std::string FileName(const std::string& path) { return path.substr(path.rfind('\\') + 1); }

}  // namespace

std::string ServerStatus(const frmMain& form) {
  const VersionInfo& version = form.program.server.currentVersion;
  return (version.bIsTessel != false16 ? "Tessel " : "Merid ") + version.strVersion + ", " +
         Filled(form, slotNumber, std::to_string(SelectedSlot(form)));
}

std::string FindingsStatus(const frmMain& form, std::size_t count) {
  if (count < 2) return form.program.mymyLoadString(count == 0 ? noFindings : oneFinding);
  return Filled(form, severalFindings, std::to_string(count));
}

std::string SaveStatus(const frmMain& form, const std::string& time) {
  switch (form.lastSave.kind) {
    case SaveOutcome::Kind::none:
      return {};
    case SaveOutcome::Kind::complete:
      return Filled(form, savedAt, time);
    case SaveOutcome::Kind::refused:
      return RefusedStatus(form);
    case SaveOutcome::Kind::incomplete:
      break;
  }
  std::string files;
  for (const std::string& path : form.lastSave.files)
    files += (files.empty() ? "" : ", ") + FileName(path);
  return Filled(form, notAll, files);
}

}  // namespace dialwright
