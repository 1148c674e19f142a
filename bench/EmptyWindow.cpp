// A window with nothing in it, as large as it is told: what any program with a window pays.

#include <QApplication>
#include <QMainWindow>
#include <cstdlib>

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QMainWindow window;
  if (argc > 2) window.resize(std::atoi(argv[1]), std::atoi(argv[2]));
  window.show();
  return QApplication::exec();
}
