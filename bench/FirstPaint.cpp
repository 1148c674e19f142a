// Linked to a program with a window: ends it once its first window is painted, and prints how long
// that took since START (in nanoseconds of the monotonic clock, from the environment), the most
// memory that the process had by then, and the window's size.

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <string>

namespace {

long long Now() {
  timespec time{};
  clock_gettime(CLOCK_MONOTONIC, &time);
  return time.tv_sec * 1'000'000'000LL + time.tv_nsec;
}

long PeakKilobytes() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);)
    if (line.starts_with("VmHWM:")) return std::atol(line.c_str() + 6);
  return 0;
}

class FirstPaint : public QObject {
 public:
  bool eventFilter(QObject* object, QEvent* event) override {
    auto* widget = event->type() == QEvent::Paint ? qobject_cast<QWidget*>(object) : nullptr;
    if (window != nullptr || widget == nullptr || !widget->isWindow()) return false;
    window = widget;
    startTimer(0);  // behind the painting of all that is in the window, which is shown by then
    return false;
  }

 protected:
  void timerEvent(QTimerEvent*) override {
    const char* start = std::getenv("START");
    const long long began = start != nullptr ? std::atoll(start) : 0;
    std::printf("%lld %ld %d %d\n", (Now() - began) / 1000, PeakKilobytes(), window->width(),
                window->height());
    std::fflush(stdout);
    std::_Exit(0);
  }

 private:
  const QWidget* window = nullptr;
};

void Watch() {
  static FirstPaint firstPaint;
  QCoreApplication::instance()->installEventFilter(&firstPaint);
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(Watch)
