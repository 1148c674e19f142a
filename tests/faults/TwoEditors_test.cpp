// Two editors that start and save at the same time in the same folder, each in a process of its
// own: no load finds blank keys, and every script has all its lines, all its keys and a checksum
// that fits. A hundred rounds, or as many as DIALWRIGHT_ROUNDS says.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

#include "Desk.h"
#include "ScriptText.h"

namespace dialwright {
namespace {

constexpr int loadedBlank = 2;

int KeysIn(const frmMain& form) {
  int keys = 0;
  for (const KeyGrid& grid : form.gridKeyMap)
    for (int row = 1; row < grid.Rows(); ++row)
      keys += grid.Text(row, Column::KeyAssignment).empty() ? 0 : 1;
  return keys;
}

struct TwoEditors : testing::Test {
  /// Loads, edits and saves in a process of its own; it ends with `loadedBlank` if keys are
  /// missing.
  pid_t Editor(int keys, unsigned delay) {
    const pid_t child = fork();
    if (child != 0) return child;
    usleep(delay);
    Desk desk(server.disk);
    desk.Start();
    const bool isWhole = KeysIn(desk.Form()) == keys;
    desk.Edit();
    desk.Save();
    _exit(isWhole ? 0 : loadedBlank);
  }

  Server server;
};

TEST_F(TwoEditors, LoseNothing) {
  Desk first(server.disk);
  first.Start();
  const int keys = KeysIn(first.Form());
  first.Save();
  const char* wanted = std::getenv("DIALWRIGHT_ROUNDS");
  const int rounds = wanted != nullptr ? std::atoi(wanted) : 100;
  int wrong = 0;
  for (int round = 0; round < rounds && wrong < 5; ++round) {
    const Files before = server.Snapshot();
    const pid_t editors[] = {Editor(keys, 0),
                             Editor(keys, static_cast<unsigned>(round % 40) * 100)};
    for (const pid_t editor : editors) {
      int status = 0;
      waitpid(editor, &status, 0);
      if (status == 0) continue;
      ++wrong;
      ADD_FAILURE() << "round " << round << ": an editor ended with " << WEXITSTATUS(status);
    }
    const Files after = server.Snapshot();
    for (const std::string& path : slotScripts) {
      const ScriptText old(before.at(path)), now(after.at(path));
      bool isWhole = now.others == old.others && ChecksumFits(after.at(path));
      for (std::size_t i = 0; i < ScriptText::sections; ++i)
        isWhole = isWhole && now.keys.at(i).size() == old.keys.at(i).size();
      if (isWhole) continue;
      ++wrong;
      ADD_FAILURE() << "round " << round << ": " << path << " has lost something";
    }
  }
  std::printf("%d rounds\n", rounds);
}

}  // namespace
}  // namespace dialwright
