#include "platform/posix/FileStorePosix.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <csignal>
#include <tuple>

#include "../../support/FailureNumber.h"
#include "../../support/TempFolder.h"

namespace dialwright {

namespace fs = std::filesystem;

struct FileStorePosixTest : testing::Test {
  TempFolder host;
  FileStorePosix store{host.path.string(), 'c'};

  struct stat Status(std::string_view name) const {
    struct stat result {};
    EXPECT_EQ(stat((host / name).c_str(), &result), 0) << name;
    return result;
  }
};

TEST_F(FileStorePosixTest, PathsOfTheHost) {
  host.Write("drive_c/Telhost/Localize/a.cdh", "x");
  const std::string c = (host / "drive_c").string();
  const std::pair<std::string_view, std::string> cases[] = {
      {R"(c:\TELHOST/localize\A.CDH)", c + "/Telhost/Localize/a.cdh"},
      {R"(C:\\Telhost\.\x\..\Localize\a.cdh)", c + "/Telhost/Localize/a.cdh"},
      {R"(\nowhere\LOCALIZE\New.txt)", c + "/nowhere/LOCALIZE/New.txt"},
      {R"(D:\Telhost)", (host / "drive_d/Telhost").string()},
      {"/etc\\passwd", "/etc/passwd"},
  };
  for (const auto& [path, hostPath] : cases) EXPECT_EQ(store.HostPath(path), hostPath) << path;
  for (const std::string name : {"NAME.txt", "name.txt", "Name.TXT"}) {
    host.Write("drive_c/a/" + name, name);
    EXPECT_EQ(store.Read(R"(C:\A\)" + name), name);
  }
  EXPECT_EQ(store.Read(R"(C:\a\nAME.txt)"), "NAME.txt") << "no spelling is the exact one";
}

TEST_F(FileStorePosixTest, ACopyOverAFileKeepsAllButItsText) {
  host.Write("drive_c/a.txt", "new");
  host.Write("drive_c/b.txt", "old");
  const fs::path target = host / "drive_c/b.txt";
  ASSERT_EQ(chmod((host / "drive_c/a.txt").c_str(), 0440), 0);
  ASSERT_EQ(chmod(target.c_str(), 0606), 0);
  ASSERT_TRUE(geteuid() != 0 || chown(target.c_str(), 1234, 2345) == 0);
  const bool attributes = setxattr(target.c_str(), "user.note", "kept", 4, 0) == 0;
  const struct stat before = Status("drive_c/b.txt");

  store.Copy(R"(C:\a.txt)", R"(C:\B.txt)", true);
  EXPECT_EQ(host.Read("drive_c/b.txt"), "new");
  const struct stat after = Status("drive_c/b.txt");
  EXPECT_EQ(std::tuple(after.st_mode, after.st_uid, after.st_gid),
            std::tuple(before.st_mode, before.st_uid, before.st_gid));
  EXPECT_EQ(getxattr(target.c_str(), "user.note", nullptr, 0), attributes ? 4 : -1);

  store.Copy(R"(C:\a.txt)", R"(C:\c.txt)", false);
  EXPECT_EQ(Status("drive_c/c.txt").st_mode & 07777, 0640u);
}

/// An access list with one more user than the permissions tell, as the system keeps it.
std::string ListFor(std::uint32_t user) {
  const std::uint32_t nobody = 0xFFFFFFFF;
  struct Entry {
    std::uint16_t who, permissions;
    std::uint32_t id;
  };
  const Entry entries[] = {
      {1, 6, nobody}, {2, 6, user}, {4, 0, nobody}, {16, 6, nobody}, {32, 0, nobody}};
  const std::uint32_t version = 2;
  return std::string(reinterpret_cast<const char*>(&version), sizeof version) +
         std::string(reinterpret_cast<const char*>(entries), sizeof entries);
}

// What the folder hands on to new files in it does not open a script to others.
TEST_F(FileStorePosixTest, AccessListsAreThoseOfTheOldFile) {
  const auto listOf = [this](std::string_view name) {
    std::string list(200, '\0');
    const ssize_t size =
        getxattr((host / name).c_str(), "system.posix_acl_access", list.data(), list.size());
    return list.substr(0, size < 0 ? 0 : static_cast<std::size_t>(size));
  };
  host.Write("drive_c/plain.txt", "old");
  host.Write("drive_c/listed.txt", "old");
  ASSERT_EQ(chmod((host / "drive_c/plain.txt").c_str(), 0640), 0);
  const std::string own = ListFor(2345), inherited = ListFor(1234);
  if (setxattr((host / "drive_c/listed.txt").c_str(), "system.posix_acl_access", own.data(),
               own.size(), 0) != 0 ||
      setxattr((host / "drive_c").c_str(), "system.posix_acl_default", inherited.data(),
               inherited.size(), 0) != 0)
    GTEST_SKIP() << "no access lists here";
  for (const auto& [name, list, mode] :
       {std::tuple("plain", std::string(), 0640u), {"listed", own, 0660u}}) {
    const std::string path = std::string("C:\\") + name;
    store.Replace(path + ".txt", "new");
    store.Copy(path + ".txt", path + ".copy", false);
    for (const std::string end : {".txt", ".copy"}) {
      EXPECT_EQ(listOf("drive_c/" + (name + end)), list) << name << end;
      EXPECT_EQ(Status("drive_c/" + (name + end)).st_mode & 0777, mode) << name << end;
    }
  }
}

// A user who may write the file but make no new one in its place: the bytes go into the old one, or
// stay where there is no room. By such a user in a child process, under a limit on files' sizes.
TEST_F(FileStorePosixTest, ReplacingByACommonUser) {
  if (geteuid() != 0) GTEST_SKIP() << "only the owner of the machine can give files away";
  const std::string oldText(10'000, 'o');
  const std::tuple<mode_t, std::size_t, int> cases[] = {
      {0555, 10, 0}, {0555, 30'000, 61}, {0777, 10, 0}};
  fs::permissions(host.path, fs::perms(0755));
  for (const auto& [folderMode, length, number] : cases) {
    host.Write("drive_c/f/a.txt", oldText);
    ASSERT_EQ(chmod((host / "drive_c/f/a.txt").c_str(), 0666), 0);
    ASSERT_EQ(chmod((host / "drive_c/f").c_str(), folderMode), 0);
    const struct stat before = Status("drive_c/f/a.txt");
    const std::string text(length, 'n');
    const pid_t child = fork();
    if (child == 0) {
      const rlimit limit{20'000, 20'000};
      signal(SIGXFSZ, SIG_IGN);
      if (setrlimit(RLIMIT_FSIZE, &limit) != 0 || setgid(65534) != 0 || setuid(65534) != 0)
        _exit(99);
      _exit(FailureNumber([&] { store.Replace(R"(C:\f\a.txt)", text); }));
    }
    int result = 0;
    waitpid(child, &result, 0);
    EXPECT_EQ(WIFEXITED(result) ? WEXITSTATUS(result) : -1, number);
    EXPECT_EQ(host.Read("drive_c/f/a.txt"), number == 0 ? text : oldText);
    EXPECT_EQ(Status("drive_c/f/a.txt").st_ino, before.st_ino);
    EXPECT_EQ(store.FileNames(R"(C:\f)").size(), 1u);
  }
}

}  // namespace dialwright
