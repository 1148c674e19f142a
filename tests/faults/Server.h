#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "TempFolder.h"
#include "platform/FileStorePosix.h"

namespace dialwright {

/// The user that an owner of the machine becomes, who would otherwise be refused nothing.
inline constexpr unsigned ordinaryUser = 65534;

/// The files of the first slot.
inline constexpr std::string_view slotScripts[] = {"Macros_MenuAlternate_Custom.cdh",
                                                   "SubMsgPlay_Alternate_Custom.cde",
                                                   "SubSetupMenu_Alternate1.cde"};

/// The files of a server of the newest version, and a program folder with a small page template, in
/// a folder of the host. Bytes are kept by path of the system, in lower case.
class Server {
 public:
  using Snapshot = std::map<std::string, std::string>;

  Server();
  static std::string script(std::string_view name);
  static std::string backup(std::string_view name);

  Snapshot snapshot() const;
  void putBack(const Snapshot& files);
  void giveToOrdinaryUser() const;

  TempFolder folder;
  FileStorePosix disk{folder.path.string(), 'C'};
};

/// What is wrong with the files in the middle of a save; empty if all is well. Each section of a
/// script must be wholly as before or wholly as after it and all other lines as they were, a backup
/// must be the old one or that of the script, and nothing else may change but the documents. A
/// script of which only a beginning is left goes to `torn`.
std::string FaultOfFiles(const Server::Snapshot& before, const Server::Snapshot& after,
                         const Server::Snapshot& found, std::vector<std::string>& torn);

/// What is not as it should be when the work is done anew. Of a script that was torn, and of its
/// backup, the keys must be there.
std::string FaultOfRepeat(const Server::Snapshot& before, const Server::Snapshot& wanted,
                          const Server::Snapshot& found, const std::vector<std::string>& torn);

}  // namespace dialwright
