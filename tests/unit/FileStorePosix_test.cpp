#include "platform/FileStorePosix.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <csignal>

#include "../support/TempFolder.h"
#include "platform/Failure.h"

namespace dialwright {
namespace {

namespace fs = std::filesystem;

template <typename Action>
int FailureNumber(Action action) {
  try {
    action();
  } catch (const RuntimeFailure& failure) {
    return failure.number;
  }
  return 0;
}

class FileStorePosixTest : public testing::Test {
 protected:
  TempFolder host;
  FileStorePosix store{host.path.string(), 'c'};

  std::size_t filesIn(std::string_view folder) const {
    const fs::directory_iterator entries(host / folder);
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
  }
};

TEST_F(FileStorePosixTest, PathsOfTheHost) {
  host.write("drive_c/Telhost/Localize/a.cdh", "x");
  const std::string c = (host / "drive_c").string();
  const std::pair<std::string_view, std::string> cases[] = {
      {R"(C:\Telhost\Localize\a.cdh)", c + "/Telhost/Localize/a.cdh"},
      {R"(c:\TELHOST\localize\A.CDH)", c + "/Telhost/Localize/a.cdh"},
      {R"(C:/Telhost/Localize/a.cdh)", c + "/Telhost/Localize/a.cdh"},
      {R"(C:\\Telhost\.\x\..\Localize\a.cdh)", c + "/Telhost/Localize/a.cdh"},
      {R"(C:\..\..\..\telhost)", c + "/Telhost"},
      {R"(\telhost\NEW.txt)", c + "/Telhost/NEW.txt"},
      {R"(C:\nowhere\LOCALIZE\New.txt)", c + "/nowhere/LOCALIZE/New.txt"},
      {R"(D:\Telhost)", (host / "drive_d/Telhost").string()},
      {"C:", c},
      {"/etc\\passwd", "/etc/passwd"},
      {"a\\b\\", "a/b"},
  };
  for (const auto& [path, hostPath] : cases) EXPECT_EQ(store.HostPath(path), hostPath) << path;
  EXPECT_EQ(FileStorePosix(host.path.string()).HostPath(R"(\usr\share)"), "/usr/share");
}

TEST_F(FileStorePosixTest, TheExactSpellingGoesFirst) {
  host.write("drive_c/a/NAME.txt", "upper");
  host.write("drive_c/a/name.txt", "lower");
  host.write("drive_c/a/Name.TXT", "mixed");
  EXPECT_EQ(store.read(R"(C:\a\name.txt)"), "lower");
  EXPECT_EQ(store.read(R"(C:\A\Name.TXT)"), "mixed");
  EXPECT_EQ(store.read(R"(C:\a\nAME.txt)"), "upper");
}

TEST_F(FileStorePosixTest, KindsStampsAndNames) {
  host.write("drive_c/f/b.txt", "12345");
  host.write("drive_c/f/A.txt", "");
  host.write("drive_c/f/c/d.txt", "");
  ASSERT_EQ(mkfifo((host / "drive_c/f/pipe").c_str(), 0600), 0);
  EXPECT_EQ(store.kind(R"(C:\F\B.TXT)"), FileStore::Kind::file);
  EXPECT_EQ(store.kind(R"(C:\f\)"), FileStore::Kind::folder);
  EXPECT_EQ(store.kind(R"(C:\f\b.txt\c)"), FileStore::Kind::none);
  EXPECT_EQ(store.kind(R"(C:\f\pipe)"), FileStore::Kind::none);
  EXPECT_EQ(store.kind(""), FileStore::Kind::none);
  EXPECT_EQ(store.kind(std::string_view("C:\\f\\b.txt\0x", 12)), FileStore::Kind::none);
  EXPECT_EQ(store.fileNames(R"(C:\f)"), (std::vector<std::string>{"A.txt", "b.txt"}));

  const std::optional<FileStamp> before = store.stamp(R"(C:\f\b.txt)");
  ASSERT_TRUE(before);
  EXPECT_EQ(before->size, 5u);
  EXPECT_EQ(store.stamp(R"(C:\f\B.txt)"), before);
  const auto time = fs::last_write_time(host / "drive_c/f/b.txt");
  usleep(20'000);
  host.write("drive_c/f/b.txt", "54321");
  fs::last_write_time(host / "drive_c/f/b.txt", time);  // as a tool that keeps times does
  EXPECT_NE(store.stamp(R"(C:\f\b.txt)"), before);
  EXPECT_EQ(store.stamp(R"(C:\f)"), std::nullopt);
}

TEST_F(FileStorePosixTest, ReadingAndWriting) {
  fs::create_directories(host / "drive_c/f");
  const std::string bytes = std::string("a\0\r\n\xFF", 5) + std::string(100'000, 'x');
  const auto write = [&](FileStore::Opening opening, std::string_view text) {
    const auto file = store.open(R"(C:\F\new.bin)", opening, true);
    file->write(text);
    file->close();
  };
  write(FileStore::Opening::truncate, "old text");
  write(FileStore::Opening::truncate, bytes);
  EXPECT_EQ(store.read(R"(C:\f\NEW.BIN)"), bytes);
  write(FileStore::Opening::append, "more");
  EXPECT_EQ(host.read("drive_c/f/new.bin"), bytes + "more");
}

TEST_F(FileStorePosixTest, FailuresAreTheClassicOnes) {
  host.write("drive_c/f/a.txt", "a");
  host.write("drive_c/f/locked.txt", "l");
  fs::permissions(host / "drive_c/f/locked.txt", fs::perms(0444));
  ASSERT_EQ(mkfifo((host / "drive_c/f/pipe").c_str(), 0600), 0);
  const std::string longName = R"(C:\f\)" + std::string(300, 'n');
  const auto open = [&](std::string_view path, bool create) {
    store.open(path, FileStore::Opening::truncate, create);
  };
  EXPECT_EQ(FailureNumber([&] { store.read(R"(C:\f\b.txt)"); }), 53);
  EXPECT_EQ(FailureNumber([&] { store.read(R"(C:\g\b.txt)"); }), 76);
  EXPECT_EQ(FailureNumber([&] { store.read(R"(C:\f\a.txt\b)"); }), 76);
  EXPECT_EQ(FailureNumber([&] { store.read(R"(C:\f)"); }), 75);
  EXPECT_EQ(FailureNumber([&] { store.read(R"(C:\f\pipe)"); }), 68);
  EXPECT_EQ(FailureNumber([&] { store.read(longName); }), 52);
  EXPECT_EQ(FailureNumber([&] { store.read(std::string_view("C:\\f\\a.txt\0", 11)); }), 52);
  EXPECT_EQ(FailureNumber([&] { open(R"(C:\f\b.txt)", false); }), 53);
  EXPECT_EQ(FailureNumber([&] { open(R"(C:\g\b.txt)", true); }), 76);
  EXPECT_EQ(FailureNumber([&] { open(R"(C:\f)", true); }), 75);
  EXPECT_EQ(FailureNumber([&] { open(R"(C:\f\locked.txt)", true); }), 70);
  EXPECT_EQ(FailureNumber([&] { store.replace(R"(C:\f\locked.txt)", "x"); }), 70);
  EXPECT_EQ(FailureNumber([&] { store.replace(R"(C:\f\b.txt)", "x"); }), 53);
  EXPECT_EQ(FailureNumber([&] { store.replace(R"(C:\f)", "x"); }), 75);
  EXPECT_EQ(FailureNumber([&] { store.copy(R"(C:\f\a.txt)", R"(C:\f\locked.txt)", true); }), 70);
  EXPECT_EQ(FailureNumber([&] { store.copy(R"(C:\f\a.txt)", R"(C:\f\A.TXT)", false); }), 58);
  EXPECT_EQ(FailureNumber([&] { store.copy(R"(C:\f\b.txt)", R"(C:\f\c.txt)", true); }), 53);
  EXPECT_EQ(FailureNumber([&] { store.copy(R"(C:\f\a.txt)", R"(C:\g\c.txt)", true); }), 76);
  EXPECT_EQ(FailureNumber([&] { store.remove(R"(C:\f\b.txt)", true); }), 53);
  EXPECT_EQ(FailureNumber([&] { store.remove(R"(C:\f)", true); }), 53);
  EXPECT_EQ(FailureNumber([&] { store.remove(R"(C:\f\locked.txt)", false); }), 70);
  EXPECT_EQ(FailureNumber([&] { store.createFolder(R"(C:\F)"); }), 58);
  EXPECT_EQ(FailureNumber([&] { store.createFolder(R"(C:\g\h)"); }), 76);
  EXPECT_EQ(FailureNumber([&] { store.fileNames(R"(C:\g)"); }), 76);
  EXPECT_EQ(FailureNumber(
                [&] { store.open("/dev/full", FileStore::Opening::append, false)->write("x"); }),
            61);
  EXPECT_EQ(host.read("drive_c/f/locked.txt"), "l");
  EXPECT_EQ(filesIn("drive_c/f"), 3u) << "a failure left something behind";

  store.remove(R"(C:\f\LOCKED.txt)", true);
  store.createFolder(R"(C:\F\g)");
  EXPECT_FALSE(fs::exists(host / "drive_c/f/locked.txt"));
  EXPECT_TRUE(fs::is_directory(host / "drive_c/f/g"));
}

TEST_F(FileStorePosixTest, CopyingKeepsPermissionsOfWhatIsThere) {
  host.write("drive_c/a.txt", "new");
  host.write("drive_c/b.txt", "old");
  fs::permissions(host / "drive_c/a.txt", fs::perms(0440));
  fs::permissions(host / "drive_c/b.txt", fs::perms(0606));
  store.copy(R"(C:\a.txt)", R"(C:\B.txt)", true);
  store.copy(R"(C:\a.txt)", R"(C:\c.txt)", false);
  EXPECT_EQ(host.read("drive_c/b.txt"), "new");
  EXPECT_EQ(fs::status(host / "drive_c/b.txt").permissions(), fs::perms(0606));
  EXPECT_EQ(host.read("drive_c/c.txt"), "new");
  EXPECT_EQ(fs::status(host / "drive_c/c.txt").permissions(), fs::perms(0640));
}

TEST_F(FileStorePosixTest, ReplacingKeepsWhatIsNotText) {
  host.write("drive_c/f/a.txt", "old");
  const fs::path path = host / "drive_c/f/a.txt";
  fs::permissions(path, fs::perms(0640));
  if (geteuid() == 0) {
    ASSERT_EQ(chown(path.c_str(), 1234, 2345), 0);
  }
  const bool attributes = setxattr(path.c_str(), "user.note", "kept", 4, 0) == 0;

  store.replace(R"(C:\f\A.txt)", "new text");

  EXPECT_EQ(host.read("drive_c/f/a.txt"), "new text");
  struct stat status {};
  ASSERT_EQ(stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 0640u);
  if (geteuid() == 0) {
    EXPECT_EQ(status.st_uid, 1234u);
    EXPECT_EQ(status.st_gid, 2345u);
  }
  char note[4] = {};
  if (attributes) {
    EXPECT_EQ(getxattr(path.c_str(), "user.note", note, sizeof note), 4);
    EXPECT_EQ(std::string_view(note, 4), "kept");
  }
  EXPECT_EQ(filesIn("drive_c/f"), 1u);
}

TEST_F(FileStorePosixTest, ReplacingGoesThroughSymbolicLinksAndLeavesOtherNamesWhole) {
  host.write("elsewhere/target.txt", "old");
  fs::create_directories(host / "drive_c/f");
  fs::create_symlink("../../elsewhere/target.txt", host / "drive_c/f/link.txt");
  fs::create_symlink("link.txt", host / "drive_c/f/second.txt");
  fs::create_hard_link(host / "elsewhere/target.txt", host / "elsewhere/other.txt");

  store.replace(R"(C:\f\second.txt)", "new");

  EXPECT_TRUE(fs::is_symlink(host / "drive_c/f/link.txt"));
  EXPECT_TRUE(fs::is_symlink(host / "drive_c/f/second.txt"));
  EXPECT_EQ(host.read("elsewhere/target.txt"), "new");
  EXPECT_EQ(host.read("elsewhere/other.txt"), "old");
}

// What only a user without the machine's rights can meet, done by such a user in a child process.
class AsCommonUser {
 public:
  template <typename Action>
  static int Run(Action action) {
    const pid_t child = fork();
    if (child == 0) {
      if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) _exit(99);
      _exit(action());
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
  }
};

TEST_F(FileStorePosixTest, AFolderThatMayNotBeWritten) {
  host.write("drive_c/f/a.txt", "old bytes");
  fs::permissions(host / "drive_c/f/a.txt", fs::perms(0666));
  fs::permissions(host / "drive_c/f", fs::perms(0555));
  fs::permissions(host.path, fs::perms(0755));
  struct stat before {};
  struct stat after {};
  ASSERT_EQ(stat((host / "drive_c/f/a.txt").c_str(), &before), 0);

  const int result = AsCommonUser::Run(
      [&] { return FailureNumber([&] { store.replace(R"(C:\f\a.txt)", "new"); }); });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(host.read("drive_c/f/a.txt"), "new");
  ASSERT_EQ(stat((host / "drive_c/f/a.txt").c_str(), &after), 0);
  EXPECT_EQ(after.st_ino, before.st_ino);

  // A limit on the size of files stops the writing half-way.
  const std::string old(10'000, 'o');
  host.write("drive_c/f/a.txt", old);
  const int limited = AsCommonUser::Run([&] {
    signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{20'000, 20'000};
    setrlimit(RLIMIT_FSIZE, &limit);
    return FailureNumber([&] { store.replace(R"(C:\f\a.txt)", std::string(30'000, 'n')); });
  });
  EXPECT_EQ(limited, 61);
  EXPECT_EQ(host.read("drive_c/f/a.txt"), old);
  fs::permissions(host / "drive_c/f", fs::perms(0755));
}

TEST_F(FileStorePosixTest, AFileOfSomebodyElseKeepsItsOwner) {
  if (geteuid() != 0) GTEST_SKIP() << "only the owner of the machine can give files away";
  host.write("drive_c/f/a.txt", "old");
  fs::permissions(host / "drive_c/f/a.txt", fs::perms(0666));
  fs::permissions(host / "drive_c/f", fs::perms(0777));
  fs::permissions(host.path, fs::perms(0755));
  EXPECT_EQ(AsCommonUser::Run(
                [&] { return FailureNumber([&] { store.replace(R"(C:\f\a.txt)", "new"); }); }),
            0);
  struct stat status {};
  ASSERT_EQ(stat((host / "drive_c/f/a.txt").c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, 0u);
  EXPECT_EQ(host.read("drive_c/f/a.txt"), "new");
  EXPECT_EQ(filesIn("drive_c/f"), 1u);

  fs::permissions(host / "drive_c/f/a.txt", fs::perms(0644));
  EXPECT_EQ(AsCommonUser::Run(
                [&] { return FailureNumber([&] { store.replace(R"(C:\f\a.txt)", "newer"); }); }),
            70);
  EXPECT_EQ(host.read("drive_c/f/a.txt"), "new");
}

TEST_F(FileStorePosixTest, AReplacementThatFailsLeavesTheOldBytes) {
  const std::string old(10'000, 'o');
  host.write("drive_c/f/a.txt", old);
  fs::permissions(host.path, fs::perms(0755));
  fs::permissions(host / "drive_c/f", fs::perms(0777));
  fs::permissions(host / "drive_c/f/a.txt", fs::perms(0666));
  if (geteuid() == 0) {
    ASSERT_EQ(chown((host / "drive_c/f/a.txt").c_str(), 65534, 65534), 0);
  }
  const int limited = AsCommonUser::Run([&] {
    signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{20'000, 20'000};
    setrlimit(RLIMIT_FSIZE, &limit);
    return FailureNumber([&] { store.replace(R"(C:\f\a.txt)", std::string(30'000, 'n')); });
  });
  EXPECT_EQ(limited, 61);
  EXPECT_EQ(host.read("drive_c/f/a.txt"), old);
  EXPECT_EQ(filesIn("drive_c/f"), 1u) << "the temporary file is still there";
}

}  // namespace
}  // namespace dialwright
