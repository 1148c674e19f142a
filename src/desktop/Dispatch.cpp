#include "desktop/Dispatch.h"

#include <QCoreApplication>

#include "platform/Failure.h"

namespace dialwright {

bool Dispatch::Run(const std::function<void()>& work) { return depth == 0 && Perform(work); }

bool Dispatch::RunInModalBox(const std::function<void()>& work) { return Perform(work); }

void Dispatch::end() {
  over = true;
  QCoreApplication::exit();
}

bool Dispatch::Perform(const std::function<void()>& work) {
  if (over) return false;
  if (depth == 0 && !goesOn && stepBegins) stepBegins();
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
