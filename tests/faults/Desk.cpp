#include "Desk.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <map>
#include <stdexcept>

#include "ScriptText.h"
#include "shell/events/Lifecycle.h"
#include "shell/events/MainEvents.h"

namespace dialwright {

namespace {

namespace fs = std::filesystem;

const fs::path source = DIALWRIGHT_SOURCE_DIR;
const std::string scriptFolder = R"(c:\telhost\localize\scripts\)";

void Edited(Desk& desk) {
  desk.Start();
  desk.Save();
  desk.Edit();
}

void Save(Desk& desk) { desk.Save(); }

constexpr Job jobs[] = {
    {"save", Edited, Save},
    {"restore",
     [](Desk& desk) {
       Edited(desk);
       for (const std::string& path : slotScripts)
         desk.files.Replace(path, "[MACROS]\r\n" + desk.files.Read(path));
     },
     [](Desk& desk) { desk.Form().mnuRestoreScripts.Click(); }},
    {"save with documents",
     [](Desk& desk) {
       desk.Form().chkGenerateHelp.SetValue(1);
       desk.Form().chkGeneratePDF.SetValue(1);
       Edited(desk);
     },
     Save},
    {"preset", Edited,
     [](Desk& desk) {
       desk.messages.answers = {MsgBoxAnswer::Yes};
       desk.Form().mnuResetKeysToAlternateKeyMappingN.Click();
     }},
};

/// What is kept of earlier versions lies on a drive of the user's own.
bool IsKept(std::string_view path) { return path.starts_with("u:\\"); }

/// The files of a drive, as their names are spelled.
Files FilesBelow(const fs::path& drive) {
  Files files;
  if (!fs::exists(drive)) return files;
  for (const auto& entry : fs::recursive_directory_iterator(drive)) {
    const std::string path = entry.path().lexically_relative(drive).string();
    if (entry.is_regular_file())
      files["C:\\" + ReplaceAll(path, "/", "\\")] = BytesOf(entry.path());
  }
  return files;
}

/// The script of which a path is the backup; nothing if it is none.
std::string ScriptOfBackup(std::string_view path) {
  constexpr std::string_view backups = R"(c:\dialwright\backup\)";
  return path.starts_with(backups) ? scriptFolder + std::string(path.substr(backups.size())) : "";
}

bool IsSectionWise(const ScriptText& old, const ScriptText& whole, const ScriptText& now) {
  bool holds = now.others == old.others;
  for (std::size_t i = 0; i < ScriptText::sections; ++i)
    holds = holds && (now.keys.at(i) == old.keys.at(i) || now.keys.at(i) == whole.keys.at(i));
  return holds;
}

/// Whether a text has what the old one got to become the whole one.
bool HasNewKeys(const ScriptText& old, const ScriptText& whole, const ScriptText& now) {
  bool holds = true;
  for (std::size_t i = 0; i < ScriptText::sections; ++i) {
    ScriptText::Keys changed;
    std::ranges::set_difference(whole.keys.at(i), old.keys.at(i),
                                std::inserter(changed, changed.end()));
    holds = holds && std::ranges::includes(now.keys.at(i), changed);
  }
  return holds;
}

}  // namespace

std::span<const Job> Jobs() { return jobs; }

const std::array<std::string, 3> slotScripts{scriptFolder + "macros_menualternate_custom.cdh",
                                             scriptFolder + "submsgplay_alternate_custom.cde",
                                             scriptFolder + "subsetupmenu_alternate1.cde"};

const Files& ServerFiles(std::string_view name) {
  static std::map<std::string, Files> servers;
  Files& files = servers[std::string(name)];
  if (!files.empty()) return files;
  files = FilesBelow(source / "sandbox" / name / "drive_c");
  const std::string ours = "C:\\Dialwright\\";
  for (const std::string file :
       {"XMLShots/StandardKeyMap.XML", "SubMsgPlay_Alternate_Custom_Internal.cde"})
    files[ours + ReplaceAll(file, "/", "\\")] = BytesOf(source / "program" / file);
  files[ours + "PDFFoldoutBuilder\\tool"] = "";
  for (const std::string version : {"Pre42", "", "_50"})
    files[ours + "Blank_Map_Template" + version + ".htm"] =
        "<p>%CONV_NAME%\r\n%MENU_NEW% %BODY_DELETE% %MSGMENU_SAVE% %MAIN_GREETINGS%\r\n";
  return files;
}

/// What a server of the sandbox exports of its registry; read once.
static const std::string& RegistryOf(std::string_view server) {
  static std::map<std::string, std::string, std::less<>> known;
  const auto [place, isNew] = known.try_emplace(std::string(server));
  if (isNew) place->second = BytesOf(source / "sandbox" / server / "server.reg");
  return place->second;
}

OrdinaryUser::OrdinaryUser() {
  ServerFiles();  // they may be the owner's alone
  RegistryOf(newestServer);
  constexpr unsigned nobody = 65534;
  if (getuid() == 0 && (setegid(nobody) != 0 || seteuid(nobody) != 0))
    throw std::runtime_error("the rights cannot be given up");
}

OrdinaryUser::~OrdinaryUser() {
  if (getuid() == 0 && (seteuid(0) != 0 || setegid(0) != 0)) std::abort();
}

Files Server::Snapshot() const { return MemoryFileStore(FilesBelow(folder / "drive_c")).All(); }

void Server::PutBack(const Files& files) {
  Files now = Snapshot();
  for (const auto& [path, bytes] : now)
    if (!files.contains(path)) fs::remove(disk.HostPath(path));
  for (const auto& [path, bytes] : files)
    if (!now.contains(path) || now[path] != bytes)
      folder.Write(fs::path(disk.HostPath(path)).lexically_relative(folder.path).string(), bytes);
}

Desk::Desk(FileStore& store, std::string_view server)
    : files(store),
      program(Services{store, registry, clock, processes, messages, checksums, languages, help,
                       R"(U:\Earlier)"},
              "C:\\Dialwright", "Dialwright") {
  ConnectEvents(*program.main);
  ReadRegistryFile(RegistryOf(server), registry);
}

void Desk::Start() { Form_Load(Form()); }

void Desk::Edit() {
  for (KeyGrid& grid : Form().gridKeyMap) {
    std::vector<int> rows;
    for (int row = 1; row < grid.Rows(); ++row)
      if (!grid.Text(row, Column::KeyAssignment).empty()) rows.push_back(row);
    if (rows.size() < 2) continue;
    const std::string key = grid.Text(rows[0], Column::KeyAssignment);
    grid.SetText(rows[0], Column::KeyAssignment, grid.Text(rows[1], Column::KeyAssignment));
    grid.SetText(rows[1], Column::KeyAssignment, key);
  }
  for (CheckBox* box : {&Form().chkMAIN_GREETINGS, &Form().chkMESSAGE_FAX})
    box->SetValue(1 - box->Value());
}

void Desk::Save() {
  messages.answers = {MsgBoxAnswer::Yes};
  Form().cmdSave.Enabled = true;
  Form().cmdSave.Click();
}

std::string FaultOfFiles(const Files& before, const Files& after, const Files& found,
                         std::vector<std::string>& torn) {
  for (const auto& [path, old] : before) {
    const bool isDocument = path.ends_with("\\xmlkeymap.xml") || path.ends_with("mappings.htm");
    if (isDocument || IsKept(path)) continue;
    const auto entry = found.find(path);
    if (entry == found.end()) return "gone: " + path;
    const std::string& now = entry->second;
    const std::string script = ScriptOfBackup(path);
    if (now == old || (!script.empty() && now == found.at(script))) continue;
    if (!path.starts_with(scriptFolder)) return "changed: " + path;
    const std::string& whole = after.at(path);
    if (now == whole || IsSectionWise(ScriptText(old), ScriptText(whole), ScriptText(now)))
      continue;
    if (!whole.starts_with(now)) return "neither old nor new: " + path;
    const bool isKept = std::ranges::any_of(found, [&bytes = old](const auto& file) {
      return IsKept(file.first) && file.second == bytes;
    });
    if (!isKept && std::ranges::any_of(found, [](const auto& f) { return IsKept(f.first); }))
      return "torn without a version to bring back: " + path;
    torn.push_back(path);
  }
  return {};
}

std::string FaultOfRepeat(const Files& before, const Files& wanted, const Files& found,
                          const std::vector<std::string>& torn) {
  for (const auto& [path, bytes] : wanted) {
    if (IsKept(path)) continue;
    const auto now = found.find(path);
    if (now == found.end()) return "not made again: " + path;
    if (now->second == bytes) continue;
    const std::string backup = ScriptOfBackup(path);
    const std::string& script = backup.empty() ? path : backup;
    if (std::ranges::find(torn, script) == torn.end() || !ChecksumFits(now->second) ||
        !HasNewKeys(ScriptText(before.at(script)), ScriptText(bytes), ScriptText(now->second)))
      return "not put right: " + path;
  }
  for (const auto& [path, bytes] : found)
    if (!wanted.contains(path) && !IsKept(path) && path.find(".dialwright-") == std::string::npos)
      return "more: " + path;
  return {};
}

}  // namespace dialwright
