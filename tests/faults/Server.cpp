#include "Server.h"

#include <unistd.h>

#include <algorithm>
#include <stdexcept>

#include "ScriptText.h"
#include "text/Text.h"

namespace dialwright {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view temporary = ".dialwright-";

std::string nameOf(std::string_view path) { return std::string(path.substr(path.rfind('\\') + 1)); }

bool isDocument(std::string_view path) {
  return path.ends_with("\\xmlkeymap.xml") || path.ends_with("mappings.htm");
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

bool hasNewKeys(std::string_view before, std::string_view after, std::string_view found) {
  const ScriptText old(before);
  const ScriptText whole(after);
  const ScriptText now(found);
  bool holds = ChecksumFits(found);
  for (std::size_t i = 0; i < ScriptText::sections; ++i)
    for (const auto& [key, value] : whole.keys.at(i)) {
      const auto was = old.keys.at(i).find(key);
      const auto is = now.keys.at(i).find(key);
      const bool changed = was == old.keys.at(i).end() || was->second != value;
      holds = holds && (!changed || (is != now.keys.at(i).end() && is->second == value));
    }
  return holds;
}

}  // namespace

Server::Server() {
  const fs::path project = DIALWRIGHT_SOURCE_DIR;
  const fs::path scripts = folder / "drive_c/Telhost/Localize/Scripts";
  const fs::path program = folder / "drive_c/Dialwright";
  fs::create_directories(scripts);
  fs::create_directories(program / "XMLShots");
  fs::create_directories(program / "PDFFoldoutBuilder");
  const auto copy = [](const fs::path& from, const fs::path& to) { fs::copy(from, to); };
  for (const std::string_view name : slotScripts)
    copy(project / "sandbox/merid-7.0-2.0/drive_c/Telhost/Localize/Scripts" / name, scripts);
  copy(project / "sandbox/merid-7.0-2.0/drive_c/Telhost/Localize/Scripts/SubMsgPlay_AlternateN.cde",
       scripts);
  copy(project / "program/XMLShots/StandardKeyMap.XML", program / "XMLShots");
  folder.write("drive_c/Dialwright/Blank_Map_Template_50.htm",
               "<p>%CONV_NAME%\r\n%MENU_NEW% %BODY_DELETE% %MSGMENU_SAVE% %MAIN_GREETINGS%\r\n");
}

std::string Server::script(std::string_view name) {
  return LowerCase(R"(C:\Telhost\Localize\Scripts\)" + std::string(name));
}

std::string Server::backup(std::string_view name) {
  return LowerCase(R"(C:\Dialwright\Backup\)" + std::string(name));
}

Server::Snapshot Server::snapshot() const {
  Snapshot files;
  for (const auto& entry : fs::recursive_directory_iterator(folder / "drive_c"))
    if (entry.is_regular_file()) {
      const std::string path = fs::relative(entry.path(), folder / "drive_c").string();
      files["c:\\" + LowerCase(ReplaceAll(path, "/", "\\"))] =
          folder.read(fs::relative(entry.path(), folder.path).string());
    }
  return files;
}

void Server::putBack(const Snapshot& files) {
  for (const auto& [path, bytes] : snapshot())
    if (!files.contains(path)) fs::remove(disk.HostPath(path));
  for (const auto& [path, bytes] : files)
    if (disk.kind(path) != FileStore::Kind::file || disk.read(path) != bytes)
      std::ofstream(disk.HostPath(path), std::ios::binary) << bytes;
}

void Server::giveToOrdinaryUser() const {
  if (geteuid() != 0) return;
  bool given = chown(folder.path.c_str(), ordinaryUser, ordinaryUser) == 0;
  for (const auto& entry : fs::recursive_directory_iterator(folder.path))
    given = chown(entry.path().c_str(), ordinaryUser, ordinaryUser) == 0 && given;
  if (!given) throw std::runtime_error("the files cannot be given away");
}

std::string FaultOfFiles(const Server::Snapshot& before, const Server::Snapshot& after,
                         const Server::Snapshot& found, std::vector<std::string>& torn) {
  for (const auto& [path, old] : before) {
    const auto now = found.find(path);
    if (isDocument(path) || (now != found.end() && now->second == old)) continue;
    if (now == found.end()) return "gone: " + path;
    const std::string script = Server::script(nameOf(path));
    const bool isBackup = path == Server::backup(nameOf(path));
    if (isBackup && now->second == found.at(script)) continue;
    if (isBackup || path != script) return "changed: " + path;
    if (now->second == after.at(path) || isSectionWise(old, after.at(path), now->second)) continue;
    if (!after.at(path).starts_with(now->second)) return "neither old nor new: " + path;
    torn.push_back(path);
  }
  return {};
}

std::string FaultOfRepeat(const Server::Snapshot& before, const Server::Snapshot& wanted,
                          const Server::Snapshot& found, const std::vector<std::string>& torn) {
  for (const auto& [path, bytes] : wanted) {
    const auto now = found.find(path);
    if (now == found.end()) return "not made again: " + path;
    if (now->second == bytes) continue;
    const std::string script = Server::script(nameOf(path));
    if (std::ranges::find(torn, script) == torn.end()) return "not put right: " + path;
    if (!hasNewKeys(before.at(script), bytes, now->second)) return "keys not put right: " + path;
  }
  for (const auto& [path, bytes] : found)
    if (!wanted.contains(path) && path.find(temporary) == std::string::npos) return "more: " + path;
  return {};
}

}  // namespace dialwright
