#include "Server.h"

#include <unistd.h>

#include <algorithm>
#include <stdexcept>

#include "ScriptText.h"

namespace dialwright {

namespace {

namespace fs = std::filesystem;

const std::string scriptFolder = R"(c:\telhost\localize\scripts\)";

/// The script of which a path is the backup; nothing if it is none.
std::string scriptOfBackup(std::string_view path) {
  constexpr std::string_view backups = R"(c:\dialwright\backup\)";
  return path.starts_with(backups) ? scriptFolder + std::string(path.substr(backups.size())) : "";
}

bool isSectionWise(std::string_view before, std::string_view after, std::string_view found) {
  const ScriptText old(before);
  const ScriptText whole(after);
  const ScriptText now(found);
  bool holds = now.others == old.others;
  for (std::size_t i = 0; i < ScriptText::sections; ++i)
    holds = holds && (now.keys.at(i) == old.keys.at(i) || now.keys.at(i) == whole.keys.at(i));
  return holds;
}

/// Whether the found text has what the old one got to become the new one.
bool hasNewKeys(std::string_view before, std::string_view after, std::string_view found) {
  const ScriptText old(before);
  const ScriptText whole(after);
  const ScriptText now(found);
  for (std::size_t i = 0; i < ScriptText::sections; ++i) {
    const auto has = [i](const ScriptText& script, const auto& entry) {
      const auto key = script.keys.at(i).find(entry.first);
      return key != script.keys.at(i).end() && key->second == entry.second;
    };
    for (const auto& entry : whole.keys.at(i))
      if (!has(old, entry) && !has(now, entry)) return false;
  }
  return ChecksumFits(found);
}

}  // namespace

const std::array<std::string, 3> slotScripts{scriptFolder + "macros_menualternate_custom.cdh",
                                             scriptFolder + "submsgplay_alternate_custom.cde",
                                             scriptFolder + "subsetupmenu_alternate1.cde"};

Server::Server(std::string_view name) {
  const fs::path program = fs::path(DIALWRIGHT_SOURCE_DIR) / "program";
  const fs::path ours = folder / "drive_c/Dialwright";
  fs::create_directories(ours / "XMLShots");
  fs::copy(sandbox / name / "drive_c", folder / "drive_c", fs::copy_options::recursive);
  for (const char* file :
       {"XMLShots/StandardKeyMap.XML", "SubMsgPlay_Alternate_Custom_Internal.cde"})
    fs::copy(program / file, ours / file);
  folder.write("drive_c/Dialwright/PDFFoldoutBuilder/tool", "");
  for (const std::string page : {"Pre42", "_50"})
    folder.write("drive_c/Dialwright/Blank_Map_Template" + page + ".htm",
                 "<p>%CONV_NAME%\r\n%MENU_NEW% %BODY_DELETE% %MSGMENU_SAVE% %MAIN_GREETINGS%\r\n");
}

Files Server::snapshot() const {
  Files files;
  for (const auto& entry : fs::recursive_directory_iterator(folder / "drive_c")) {
    const std::string path = entry.path().lexically_relative(folder / "drive_c").string();
    if (entry.is_regular_file())
      files["c:\\" + LowerCase(ReplaceAll(path, "/", "\\"))] = BytesOf(entry.path());
  }
  return files;
}

void Server::putBack(const Files& files) {
  Files now = snapshot();
  for (const auto& [path, bytes] : now)
    if (!files.contains(path)) fs::remove(disk.HostPath(path));
  for (const auto& [path, bytes] : files)
    if (!now.contains(path) || now[path] != bytes)
      std::ofstream(disk.HostPath(path), std::ios::binary) << bytes;
}

void Server::giveToOrdinaryUser() const {
  if (geteuid() != 0) return;
  bool given = chown(folder.path.c_str(), ordinaryUser, ordinaryUser) == 0;
  for (const auto& entry : fs::recursive_directory_iterator(folder.path))
    given = chown(entry.path().c_str(), ordinaryUser, ordinaryUser) == 0 && given;
  if (!given) throw std::runtime_error("the files cannot be given away");
}

const Files& ServerFiles(std::string_view name) {
  static std::map<std::string, Files> servers;
  const auto [server, isNew] = servers.try_emplace(std::string(name));
  if (isNew) server->second = Server(name).snapshot();
  return server->second;
}

std::string FaultOfFiles(const Files& before, const Files& after, const Files& found,
                         std::vector<std::string>& torn) {
  for (const auto& [path, old] : before) {
    const auto now = found.find(path);
    const bool isDocument = path.ends_with("\\xmlkeymap.xml") || path.ends_with("mappings.htm");
    if (isDocument || (now != found.end() && now->second == old)) continue;
    if (now == found.end()) return "gone: " + path;
    const std::string script = scriptOfBackup(path);
    if (!script.empty() && now->second == found.at(script)) continue;
    if (!path.starts_with(scriptFolder)) return "changed: " + path;
    if (now->second == after.at(path) || isSectionWise(old, after.at(path), now->second)) continue;
    if (!after.at(path).starts_with(now->second)) return "neither old nor new: " + path;
    torn.push_back(path);
  }
  return {};
}

std::string FaultOfRepeat(const Files& before, const Files& wanted, const Files& found,
                          const std::vector<std::string>& torn) {
  for (const auto& [path, bytes] : wanted) {
    const auto now = found.find(path);
    if (now == found.end()) return "not made again: " + path;
    if (now->second == bytes) continue;
    const std::string backup = scriptOfBackup(path);
    const std::string& script = backup.empty() ? path : backup;
    if (std::ranges::find(torn, script) == torn.end()) return "not put right: " + path;
    if (!hasNewKeys(before.at(script), bytes, now->second)) return "keys not put right: " + path;
  }
  for (const auto& [path, bytes] : found)
    if (!wanted.contains(path) && path.find(".dialwright-") == std::string::npos)
      return "more: " + path;
  return {};
}

}  // namespace dialwright
