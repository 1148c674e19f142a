#include "desktop/posix/ServerFolder.h"

#include <QDir>
#include <QSettings>
#include <QStandardPaths>
#include <filesystem>
#include <system_error>

#include "desktop/NumberedText.h"
#include "desktop/QtText.h"
#include "platform/Failure.h"
#include "platform/posix/FileStorePosix.h"
#include "platform/posix/HostPath.h"
#include "platform/standins/RegistryFile.h"
#include "server/MeridVersion.h"

namespace dialwright {

namespace {

namespace fs = std::filesystem;

constexpr int lastServersKept = 8;
const QString lastServersKey = "servers";

QSettings Settings() {
  return QSettings(QSettings::IniFormat, QSettings::UserScope, "dialwright", "dialwright");
}

bool HasDrive(FileStorePosix& files) {
  for (char letter = 'A'; letter <= 'Z'; ++letter)
    if (files.KindOf(std::string(1, letter) + ":\\") == FileStore::Kind::folder) return true;
  return false;
}

/// The number of the text that tells what is wrong with a folder that is there; 0 if nothing is.
int FaultIn(const std::string& folder) {
  FileStorePosix files(folder);
  const std::string path = SystemPath(folder) + "\\server.reg";
  if (files.KindOf(path) != FileStore::Kind::file) return 1558;
  MemoryRegistry registry;
  try {
    ReadRegistryFile(files.Read(path), registry);
  } catch (const RuntimeFailure&) {
    return 1559;
  }
  if (!KnowsAServer(registry)) return 1560;
  return HasDrive(files) ? 0 : 1561;
}

}  // namespace

QString ServerFolderFault(const QString& folder) {
  const int fault = QDir(folder).exists() ? FaultIn(FromQt(folder)) : 1557;
  return fault == 0 ? QString() : NumberedText(fault).arg(folder);
}

QStringList LastServers() {
  QStringList folders = Settings().value(lastServersKey).toStringList();
  folders.removeIf([](const QString& folder) { return !QDir(folder).exists(); });
  return folders;
}

void RememberServer(const QString& folder) {
  QSettings settings = Settings();
  QStringList folders = settings.value(lastServersKey).toStringList();
  folders.removeAll(folder);
  folders.prepend(folder);
  settings.setValue(lastServersKey, folders.mid(0, lastServersKept));
}

QString SampleServer(const QString& shippedFolder, QString& fault) {
  QString own = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                "/dialwright/Sample Server";
  if (QDir(own).exists()) return own;
  const fs::path whole(FromQt(own)), part(FromQt(own + ".part"));
  try {
    fs::remove_all(part);
    fs::create_directories(part.parent_path());
    fs::copy(FromQt(shippedFolder) + "/sample", part, fs::copy_options::recursive);
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(part))
      fs::permissions(entry.path(), fs::perms::owner_write, fs::perm_options::add);
    fs::rename(part, whole);
  } catch (const fs::filesystem_error& failure) {
    fault = NumberedText(1562).arg(own, QString::fromStdString(failure.code().message()));
    return {};
  }
  return own;
}

}  // namespace dialwright
