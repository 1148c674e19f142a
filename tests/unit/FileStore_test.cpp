// What the files of every system have to be; what is a system's own stands in a file of its own.

#include "platform/FileStore.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <thread>

#include "../support/FailureNumber.h"
#include "transcript/World.h"

namespace dialwright {

namespace fs = std::filesystem;

struct FileStoreTest : testing::Test {
  Printer printer;
  World world{printer};
  FileStore& store = world.disk;
};

TEST_F(FileStoreTest, KindsStampsNamesAndWriting) {
  constexpr std::string_view file = R"(C:\f\b.txt)";
  world.MakeFile(file, "12345");
  for (const auto* path : {R"(C:\f\C.txt)", R"(C:\f\d\e.txt)"}) world.MakeFile(path, "");
  EXPECT_EQ(store.KindOf(R"(C:\F\B.TXT)"), FileStore::Kind::file);
  EXPECT_EQ(store.KindOf(R"(C:\f\)"), FileStore::Kind::folder);
  EXPECT_EQ(store.KindOf(R"(C:\f\b.txt\c)"), FileStore::Kind::none);
  EXPECT_EQ(store.FileNames(R"(C:\F\)"), (std::vector<std::string>{"b.txt", "C.txt"}));

  const std::optional<FileStamp> before = store.Stamp(file);
  ASSERT_TRUE(before);
  EXPECT_EQ(store.Stamp(R"(C:\f\B.txt)"), before);
  EXPECT_EQ(store.Stamp(R"(C:\f)"), std::nullopt);
  [[maybe_unused]] const auto time = fs::last_write_time(world.HostPath(file));
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  world.MakeFile(file, "54321");
#ifndef _WIN32
  fs::last_write_time(world.HostPath(file), time);  // as a tool that keeps times does
#endif
  EXPECT_NE(store.Stamp(file), before);

  const std::string bytes = std::string("a\0\r\n\xFF", 5) + std::string(100'000, 'x');
  for (const auto& [opening, text] : {std::pair(FileStore::Opening::truncate, bytes + "old text"),
                                      {FileStore::Opening::truncate, bytes},
                                      {FileStore::Opening::append, "more"}}) {
    const auto output = store.Open(R"(C:\F\new.bin)", opening, true);
    output->Write(text);
    output->Close();
  }
  EXPECT_EQ(store.Read(R"(C:\f\NEW.BIN)"), bytes + "more");
}

TEST_F(FileStoreTest, FailuresAreTheClassicOnes) {
  constexpr std::string_view file = R"(C:\f\a.txt)", folder = R"(C:\f)",
                             locked = R"(C:\f\locked.txt)", noFile = R"(C:\f\b.txt)",
                             noFolder = R"(C:\g\b.txt)";
  world.MakeFile(file, "a");
  world.MakeFile(locked, "l");
  fs::permissions(world.HostPath(locked), fs::perms(0444));
  const auto open = [&](std::string_view path, bool create) {
    store.Open(path, FileStore::Opening::truncate, create);
  };
  const std::pair<int, std::function<void()>> cases[] = {
      {53, [&] { store.Read(noFile); }},
      {76, [&] { store.Read(noFolder); }},
      {75, [&] { store.Read(folder); }},
      {53, [&] { open(noFile, false); }},
      {76, [&] { open(noFolder, true); }},
      {70, [&] { open(locked, true); }},
      {53, [&] { store.Replace(noFile, "x"); }},
      {70, [&] { store.Replace(locked, "x"); }},
      {76, [&] { store.Copy(file, noFolder, true); }},
      {70, [&] { store.Copy(file, locked, true); }},
      {58, [&] { store.Copy(file, R"(C:\f\A.TXT)", false); }},
      {53, [&] { store.Remove(noFile, true); }},
      {70, [&] { store.Remove(locked, false); }},
      {76, [&] { store.CreateFolder(R"(C:\g\h)"); }},
      {76, [&] { store.FileNames(R"(C:\g)"); }},
  };
  for (const auto& row : cases)
    EXPECT_EQ(FailureNumber(row.second), row.first) << "in row " << &row - cases;
  EXPECT_EQ(store.Read(file) + store.Read(locked), "al");
  EXPECT_EQ(store.FileNames(folder).size(), 2U) << "a failure left something behind";
  store.Remove(R"(C:\f\LOCKED.txt)", true);
  EXPECT_EQ(store.FileNames(folder).size(), 1U);
}

}  // namespace dialwright
