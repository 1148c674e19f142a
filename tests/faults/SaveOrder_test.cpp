// When a save writes: each script once, and before a message box whatever was to be written by
// then.

#include <gtest/gtest.h>

#include <algorithm>

#include "Desk.h"

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
  const Desk* desk = nullptr;
  std::vector<std::pair<std::string, std::size_t>> replaced;
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

}  // namespace
}  // namespace dialwright
