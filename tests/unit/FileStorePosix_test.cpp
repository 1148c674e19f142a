#include "platform/FileStorePosix.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <csignal>
#include <tuple>

#include "../support/FailureNumber.h"
#include "../support/TempFolder.h"

namespace dialwright {

namespace fs = std::filesystem;

struct FileStorePosixTest : testing::Test {
  TempFolder host;
  FileStorePosix store{host.path.string(), 'c'};

  struct stat status(std::string_view name) const {
    struct stat result {};
    EXPECT_EQ(stat((host / name).c_str(), &result), 0) << name;
    return result;
  }
  auto filesIn(std::string_view folder) const {
    return std::distance(fs::directory_iterator(host / folder), fs::directory_iterator());
  }
};

TEST_F(FileStorePosixTest, PathsOfTheHost) {
  host.write("drive_c/Telhost/Localize/a.cdh", "x");
  const std::string c = (host / "drive_c").string();
  const std::pair<std::string_view, std::string> cases[] = {
      {R"(c:\TELHOST/localize\A.CDH)", c + "/Telhost/Localize/a.cdh"},
      {R"(C:\\Telhost\.\x\..\Localize\a.cdh)", c + "/Telhost/Localize/a.cdh"},
      {R"(C:\..\..\..\telhost)", c + "/Telhost"},
      {R"(\nowhere\LOCALIZE\New.txt)", c + "/nowhere/LOCALIZE/New.txt"},
      {R"(D:\Telhost)", (host / "drive_d/Telhost").string()},
      {"/etc\\passwd", "/etc/passwd"},
      {"a\\b\\", "a/b"},
  };
  for (const auto& [path, hostPath] : cases) EXPECT_EQ(store.HostPath(path), hostPath) << path;
  EXPECT_EQ(FileStorePosix(host.path.string()).HostPath(R"(\usr\share)"), "/usr/share");

  // The exact spelling goes first.
  const std::string names[] = {"NAME.txt", "name.txt", "Name.TXT"};
  for (const std::string& name : names) host.write("drive_c/a/" + name, name);
  for (const std::string& name : names) EXPECT_EQ(store.read(R"(C:\A\)" + name), name);
  EXPECT_EQ(store.read(R"(C:\a\nAME.txt)"), "NAME.txt");
}

TEST_F(FileStorePosixTest, OddPathsAndDevices) {
  host.write("drive_c/f/a.txt", "a");
  ASSERT_EQ(mkfifo((host / "drive_c/f/pipe").c_str(), 0600), 0);
  using namespace std::string_view_literals;
  for (const auto path : {R"(C:\f\pipe)"sv, ""sv, "C:\\f\\a.txt\0x"sv})
    EXPECT_EQ(store.kind(path), FileStore::Kind::none) << path;
  const std::string longName = R"(C:\f\)" + std::string(300, 'n');
  const std::pair<std::string, int> reads[] = {
      {R"(C:\f\pipe)", 68}, {R"(C:\f\a.txt\b)", 76}, {longName, 52}};
  for (const auto& [path, number] : reads)
    EXPECT_EQ(FailureNumber([&, &name = path] { store.read(name); }), number) << path;
  const auto full = store.open("/dev/full", FileStore::Opening::append, false);
  EXPECT_EQ(FailureNumber([&] { full->write("x"); }), 61);
}

TEST_F(FileStorePosixTest, ACopyOverAFileKeepsAllButItsText) {
  host.write("drive_c/a.txt", "new");
  host.write("drive_c/b.txt", "old");
  const fs::path target = host / "drive_c/b.txt";
  ASSERT_EQ(chmod((host / "drive_c/a.txt").c_str(), 0440), 0);
  ASSERT_EQ(chmod(target.c_str(), 0606), 0);
  ASSERT_TRUE(geteuid() != 0 || chown(target.c_str(), 1234, 2345) == 0);
  const bool attributes = setxattr(target.c_str(), "user.note", "kept", 4, 0) == 0;
  const struct stat before = status("drive_c/b.txt");

  store.copy(R"(C:\a.txt)", R"(C:\B.txt)", true);
  EXPECT_EQ(host.read("drive_c/b.txt"), "new");
  const struct stat after = status("drive_c/b.txt");
  EXPECT_EQ(std::tuple(after.st_mode, after.st_uid, after.st_gid),
            std::tuple(before.st_mode, before.st_uid, before.st_gid));
  EXPECT_EQ(getxattr(target.c_str(), "user.note", nullptr, 0), attributes ? 4 : -1);

  store.copy(R"(C:\a.txt)", R"(C:\c.txt)", false);
  EXPECT_EQ(status("drive_c/c.txt").st_mode & 07777, 0640u);
}

// What only a user without the machine's rights can meet, done by such a user in a child process;
// a limit on the size of files stops long writings half-way.
TEST_F(FileStorePosixTest, ReplacingByACommonUser) {
  if (geteuid() != 0) GTEST_SKIP() << "only the owner of the machine can give files away";
  const std::string oldText(10'000, 'o');
  const std::tuple<mode_t, mode_t, uid_t, std::size_t, int> cases[] = {
      {0555, 0666, 0, 10, 0},           // no file can be made beside it
      {0555, 0666, 0, 30'000, 61},      // nor is there room for it
      {0777, 0666, 0, 10, 0},           // a new one would be somebody else's
      {0777, 0644, 0, 10, 70},          // it may not be written at all
      {0777, 0666, 65534, 30'000, 61},  // no room for a new one
  };
  fs::permissions(host.path, fs::perms(0755));
  const fs::path file = host / "drive_c/f/a.txt";
  for (const auto& [folderMode, fileMode, owner, length, number] : cases) {
    host.write("drive_c/f/a.txt", oldText);
    ASSERT_EQ(chown(file.c_str(), owner, owner), 0);
    ASSERT_EQ(chmod(file.c_str(), fileMode), 0);
    ASSERT_EQ(chmod(file.parent_path().c_str(), folderMode), 0);
    const struct stat before = status("drive_c/f/a.txt");
    const std::string text(length, 'n');
    const pid_t child = fork();
    if (child == 0) {
      const rlimit limit{20'000, 20'000};
      signal(SIGXFSZ, SIG_IGN);
      if (setrlimit(RLIMIT_FSIZE, &limit) != 0 || setgid(65534) != 0 || setuid(65534) != 0)
        _exit(99);
      _exit(FailureNumber([&] { store.replace(R"(C:\f\a.txt)", text); }));
    }
    int result = 0;
    waitpid(child, &result, 0);
    EXPECT_EQ(WIFEXITED(result) ? WEXITSTATUS(result) : -1, number);
    EXPECT_EQ(host.read("drive_c/f/a.txt"), number == 0 ? text : oldText);
    const struct stat after = status("drive_c/f/a.txt");
    EXPECT_EQ(std::pair(after.st_uid, after.st_ino), std::pair(before.st_uid, before.st_ino));
    EXPECT_EQ(filesIn("drive_c/f"), 1);
  }
}

}  // namespace dialwright
