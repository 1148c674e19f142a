#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "MemoryFileStore.h"
#include "TempFolder.h"
#include "platform/FileStorePosix.h"

namespace dialwright {

/// The user that an owner of the machine becomes, who would otherwise be refused nothing.
inline constexpr unsigned ordinaryUser = 65534;

inline constexpr std::string_view newestServer = "merid-7.0-2.0";
inline const std::filesystem::path sandbox =
    std::filesystem::path(DIALWRIGHT_SOURCE_DIR) / "sandbox";

/// The scripts of the first slot.
extern const std::array<std::string, 3> slotScripts;

/// The files of a server of the sandbox, and a program folder with a small page template, in a
/// folder of the host.
class Server {
 public:
  explicit Server(std::string_view name = newestServer);

  Files snapshot() const;
  void putBack(const Files& files);
  void giveToOrdinaryUser() const;

  TempFolder folder;
  FileStorePosix disk{folder.path.string(), 'C'};
};

/// The same files for a server in memory.
const Files& ServerFiles(std::string_view name = newestServer);

/// What is wrong with the files in the middle of a save; empty if all is well. Each section of a
/// script must be wholly as before or wholly as after it and all other lines as they were, a backup
/// must be the old one or that of the script, and nothing else may change but the documents. A
/// script of which only a beginning is left goes to `torn`.
std::string FaultOfFiles(const Files& before, const Files& after, const Files& found,
                         std::vector<std::string>& torn);

/// What is not as it should be when the work is done anew. Of a script that was torn, and of its
/// backup, the keys must be there.
std::string FaultOfRepeat(const Files& before, const Files& wanted, const Files& found,
                          const std::vector<std::string>& torn);

}  // namespace dialwright
