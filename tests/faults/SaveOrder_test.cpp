// When a save writes: each script once, and before a message box whatever was to be written by
// then. What a signal in the middle leaves, and what many saves leave of earlier versions.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <set>

#include "Desk.h"
#include "scripts/EarlierVersions.h"

namespace dialwright {
namespace {

/// Files that note how many boxes the user had seen when a script was replaced.
struct NotingFiles : MemoryFileStore {
  using MemoryFileStore::MemoryFileStore;
  void Replace(std::string_view path, std::string_view bytes) override {
    if (desk && path.find("Scripts") != std::string_view::npos)
      replaced.emplace_back(path.substr(path.rfind('\\') + 1, 8), desk->printer.lines.size());
    MemoryFileStore::Replace(path, bytes);
  }
  void Remove(std::string_view path, bool force) override {
    removed.emplace_back(path.substr(path.rfind('\\') + 1), force);
    MemoryFileStore::Remove(path, force);
  }
  const Desk* desk = nullptr;
  std::vector<std::pair<std::string, std::size_t>> replaced;
  std::vector<std::pair<std::string, bool>> removed;
};

struct SaveOrder : testing::Test {
  SaveOrder() {
    desk.Start();
    desk.Edit();
    desk.printer.lines.clear();
    files.desk = &desk;
  }
  NotingFiles files{ServerFiles()};
  Desk desk{files};
  using Replaced = std::vector<std::pair<std::string, std::size_t>>;
};

TEST_F(SaveOrder, EachScriptIsReplacedOnce) {
  desk.Save();
  std::ranges::sort(files.replaced);
  EXPECT_EQ(files.replaced, (Replaced{{"Macros_M", 0}, {"SubMsgPl", 0}, {"SubSetup", 0}}));
}

TEST_F(SaveOrder, WhatStandsBeforeARefusalIsOnTheDiskWhenItsBoxComesUp) {
  KeyGrid& body = At(desk.Form().gridKeyMap, 2);
  body.SetText(1, Column::KeyAssignment, "5");
  body.SetText(2, Column::KeyAssignment, "5");
  desk.Save();
  std::ranges::sort(files.replaced);
  EXPECT_EQ(files.replaced, (Replaced{{"Macros_M", 0}, {"SubMsgPl", 0}}));
  EXPECT_EQ(desk.Form().lastSave.grid, 2);
}

TEST_F(SaveOrder, TheOldKeyMapDocumentGoesEvenIfItIsReadOnly) {
  files.Put(desk.Form().strXMLKeyMapFile, "old");
  desk.Save();
  EXPECT_EQ(files.removed, (std::vector{std::pair(std::string("XMLKeyMap.XML"), true)}));
}

/// Real files that end the process politely in the middle of each replacement.
struct EndingFiles : FileStorePosix {
  EndingFiles(const Server& server, int endingSignal)
      : FileStorePosix(server.folder.path.string(), 'C'), number(endingSignal) {}
  void Replace(std::string_view path, std::string_view bytes) override {
    raise(number);
    FileStorePosix::Replace(path, bytes);
  }
  int number;
};

TEST(SaveEnd, ASignalWaitsForIt) {
  Server undisturbed;
  Desk desk(undisturbed.disk);
  desk.Start();
  desk.Edit();
  desk.Save();
  const Files wanted = undisturbed.Snapshot();
  for (const int number : {SIGTERM, SIGHUP}) {
    Server server;
    const pid_t child = fork();
    if (child == 0) {
      EndingFiles files(server, number);
      Desk another(files);
      another.Start();
      another.Edit();
      another.Save();
      _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(WIFSIGNALED(status) ? WTERMSIG(status) : 0, number);
    const Files found = server.Snapshot();
    for (const std::string& path : slotScripts) EXPECT_TRUE(found.at(path) == wanted.at(path));
  }
}

TEST(EarlierVersionsKept, AreTheFirstAndTheLastTwoHundred) {
  MemoryFileStore files(ServerFiles());
  Desk desk(files);
  desk.Start();
  const std::string first = files.Bytes(slotScripts[0]);
  constexpr int saves = 240;
  for (int number = 0; number < saves; ++number) {
    At(desk.Form().gridKeyMap, 0).SetText(1, Column::KeyAssignment, std::to_string(1000 + number));
    desk.Save();
  }
  const std::vector<EarlierVersion> versions = EarlierVersions(desk.Form());
  ASSERT_EQ(versions.size(), 201U);
  EXPECT_TRUE(files.Read(versions.back().scripts[0].kept) == first);
  std::set<std::string> kept;
  for (std::size_t i = 0; i < versions.size(); ++i) {
    for (const EarlierScript& script : versions[i].scripts) kept.insert(script.kept);
    const std::string text = files.Read(versions[i].scripts[0].kept);
    const std::string key = "MENU_NEW= \"" + std::to_string(1000 + saves - 2 - static_cast<int>(i));
    EXPECT_TRUE(i + 1 == versions.size() || text.find(key) != std::string::npos) << i;
  }
  const Files all = files.All();
  const auto isKept = [](const auto& file) { return file.first.starts_with("u:\\"); };
  EXPECT_EQ(std::ranges::count_if(all, isKept), std::ssize(kept) + 1) << "contents and their list";
}

}  // namespace
}  // namespace dialwright
