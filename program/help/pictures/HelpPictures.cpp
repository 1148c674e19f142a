// Draws the pictures of the help from the real window: help_pictures LANGUAGE FOLDER, the language
// by the code of its library.
#include <QApplication>
#include <QFont>
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <utility>

#include "desktop/QtText.h"
#include "shell/events/Lifecycle.h"
#include "transcript/World.h"
#include "transcript/window/WindowUser.h"

namespace {

using namespace dialwright;
namespace fs = std::filesystem;

/// Small enough to stand beside the text of a page.
constexpr QSize windowSize(720, 490);
constexpr int fontHeight = 10;

std::string BytesOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// A user at the window on a copy of a server image, and a camera.
class Scene {
 public:
  Scene(const std::string& code, fs::path pictureFolder)
      : folder(std::move(pictureFolder)),
        world(printer),
        user(world.program),
        window(user.Shown()) {
    const fs::path image = fs::path(DIALWRIGHT_SOURCE_DIR) / "sandbox/merid-7.0-2.0";
    fs::copy(image / "drive_c", world.HostPath("C:\\"),
             fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    for (const auto& file : fs::recursive_directory_iterator(world.HostPath("C:\\")))
      fs::permissions(file, fs::perms::owner_write, fs::perm_options::add);
    ReadRegistryFile(BytesOf(image / "server.reg"), world.registry);
    // A single library is no choice.
    for (const std::string library : {"ENU", "DEU"}) {
      const std::string name = "Dialwright_" + library + ".dll";
      world.MakeFile("C:\\Dialwright\\" + name, BytesOf(fs::path(DIALWRIGHT_PROGRAM_DIR) / name));
    }
    Form_Load(*world.program.main);
    user.Started();
    Speak(code);
  }

  /// A picture of a part of the window, or of the whole.
  void Take(QWidget& part, const std::string& name) {
    QApplication::processEvents();
    if (!part.grab().save(ToQt((folder / (name + ".png")).string())))
      throw std::runtime_error("no picture " + name);
  }

  const fs::path folder;
  Printer printer;
  World world;
  WindowUser user;
  MainWindow& window;

 private:
  void Speak(const std::string& code) {
    user.Click("mnuAbout");
    const auto& codes = world.program.language.astrLanguages;
    const auto place = std::find(codes.begin(), codes.end(), code);
    if (place == codes.end()) throw std::runtime_error("no library of " + code);
    user.Click("mnuLanguageList(" + std::to_string(place - codes.begin()) + ")");
    user.Click("cmdOK");
  }
};

void TakeTabs(Scene& scene) {
  constexpr const char* names[] = {"main", "header", "body", "footer", "after", "globals", "setup"};
  for (const int tab : {0, 2, 4, 5, 6}) {
    scene.user.Tab(tab);
    scene.Take(scene.window, std::string("tab-") + names[tab]);
  }
}

void TakePictures(const std::string& code, const fs::path& folder) {
  Scene scene(code, folder);
  scene.window.resize(windowSize);
  TakeTabs(scene);
}

}  // namespace

int main(int argc, char** argv) {
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& message) {
    if (!message.startsWith("This plugin does not support"))
      std::fprintf(stderr, "%s\n", qPrintable(message));
  });
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QFont font = QApplication::font();
  font.setPixelSize(fontHeight);
  QApplication::setFont(font);
  if (argc != 3) {
    std::fprintf(stderr, "usage: help_pictures LANGUAGE FOLDER\n");
    return 2;
  }
  try {
    TakePictures(argv[1], argv[2]);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "help_pictures: %s\n", failure.what());
    return 1;
  }
  return 0;
}
