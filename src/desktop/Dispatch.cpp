#include "desktop/Dispatch.h"

#include <QCoreApplication>

#include "platform/Failure.h"

namespace dialwright {

bool Dispatch::run(const std::function<void()>& work) { return depth == 0 && perform(work); }

bool Dispatch::runInModalBox(const std::function<void()>& work) { return perform(work); }

void Dispatch::end() {
  over = true;
  QCoreApplication::exit();
}

bool Dispatch::perform(const std::function<void()>& work) {
  if (over) return false;
  ++depth;
  try {
    work();
  } catch (const EndProgram&) {
    end();
  } catch (...) {
    thrown = std::current_exception();
    end();
  }
  --depth;
  if (afterWork) afterWork();
  return true;
}

}  // namespace dialwright
