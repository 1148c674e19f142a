// Draws the pictures of the help from the real window: help_pictures LANGUAGE FOLDER, the language
// by the code of its library.
#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QEnterEvent>
#include <QFont>
#include <QTest>
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
constexpr QSize windowSize(740, 500);
constexpr int fontHeight = 10;
/// The room that the keypad takes beside the tabs, and what it lacks below.
constexpr int panelWidth = 290;
constexpr int panelExtra = 90;

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

  template <class Kind>
  Kind& Part(const char* name) {
    auto* part = window.findChild<Kind*>(name);
    if (part == nullptr) throw std::runtime_error(std::string("nothing is called ") + name);
    return *part;
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
  constexpr std::pair<int, const char*> tabs[] = {
      {mainMenuGrid, "tab-main"},   {bodyGrid, "tab-body"},  {afterMessageGrid, "tab-after"},
      {globalsGrid, "tab-globals"}, {setupTab, "tab-setup"},
  };
  for (const auto& [tab, name] : tabs) {
    scene.user.Tab(tab);
    scene.Take(scene.window, name);
  }
}

/// A key that another row has, just typed.
void TakeFindings(Scene& scene) {
  scene.user.Tab(mainMenuGrid);
  scene.user.Row(mainMenuGrid, "MENU_SAVED");
  scene.user.Type("1", true);
  scene.Take(scene.window, "findings");
  scene.user.Type("3", true);
}

void TakeKeypad(Scene& scene) {
  scene.user.Tab(afterMessageGrid);
  auto& panel = scene.Part<QWidget>("keypadPanel");
  scene.Part<QAction>("mnuKeypad").trigger();
  scene.window.resize(windowSize + QSize(panelWidth, panelExtra));
  auto& pointed = scene.Part<QAbstractButton>("key(1)");
  QEnterEvent enters({}, {}, {});
  QApplication::sendEvent(&pointed, &enters);
  scene.Take(panel, "keypad");
  scene.Part<QAction>("mnuTryKeys").trigger();
  for (const char key : {'7', '3', '1', '4', '5'}) QTest::keyClick(&pointed, key);
  scene.Take(panel, "trying");
  scene.Part<QAction>("mnuTryKeys").trigger();
  scene.Part<QAction>("mnuKeypad").trigger();
}

void TakeSearch(Scene& scene) {
  scene.Part<QAction>("mnuFindAction").trigger();
  QTest::keyClicks(&scene.Part<QWidget>("findLine"), "7");
  scene.Take(scene.Part<QWidget>("findAction"), "find");
  scene.Part<QDialog>("findAction").reject();
}

void TakePictures(const std::string& code, const fs::path& folder) {
  Scene scene(code, folder);
  scene.window.resize(windowSize);
  TakeTabs(scene);
  TakeFindings(scene);
  TakeKeypad(scene);
  TakeSearch(scene);
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
