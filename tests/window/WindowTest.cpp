#include "WindowTest.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QTableView>
#include <cstdio>
#include <filesystem>
#include <utility>

#include "../support/TempFolder.h"
#include "shell/events/Lifecycle.h"

namespace dialwright {

const std::vector<std::string> keyRefused{
    "msgbox OK \"Key assignments can only consist of digits from 0-9 or the # and * keys\""};

WindowTest::WindowTest()
    : world(printer), form(*world.program.main), user(world.program), window(user.Shown()) {
  namespace fs = std::filesystem;
  const fs::path image = fs::path(DIALWRIGHT_SOURCE_DIR) / "sandbox/merid-7.0-2.0";
  fs::copy(image / "drive_c", world.HostPath("C:\\"),
           fs::copy_options::recursive | fs::copy_options::overwrite_existing);
  for (const auto& file : fs::recursive_directory_iterator(world.HostPath("C:\\")))
    fs::permissions(file, fs::perms::owner_write, fs::perm_options::add);
  ReadRegistryFile(BytesOf(image / "server.reg"), world.registry);
  Form_Load(form);
  user.Started();
  for (const QTableView* grid : window.findChildren<QTableView*>())
    new QAbstractItemModelTester(grid->model(),
                                 QAbstractItemModelTester::FailureReportingMode::Fatal, &window);
}

void WindowTest::Press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QWidget* target = window.focusWidget();
  QTest::keyClick(target != nullptr ? target : &window, key, modifiers);
  QCoreApplication::processEvents();
}

std::string WindowTest::Focused() {
  const Control* active = form.focus.ActiveControl();
  const QWidget* keyboard = window.focusWidget();
  const std::string name = active != nullptr ? active->Name : "";
  EXPECT_EQ(keyboard != nullptr ? keyboard->objectName().toStdString() : "", name);
  return name;
}

std::vector<std::string> WindowTest::Shown() { return std::exchange(printer.lines, {}); }

}  // namespace dialwright

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& message) {
    if (!message.startsWith("This plugin does not support"))
      std::fprintf(stderr, "%s\n", qPrintable(message));
  });
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
