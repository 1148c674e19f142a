#pragma once

#include <exception>
#include <functional>

namespace dialwright {

/// The way from an event of the toolkit into the system. Nothing that the system throws passes the
/// toolkit's event loop: the end of the program and failures of its own are kept here, and the loop
/// is left.
class Dispatch {
 public:
  /// Runs an event's work. Returns false without running it once the program has ended, and while
  /// other work is not done: a timer may fire while a message box is up, a user cannot.
  bool Run(const std::function<void()>& work);
  /// The same for a modal box of the program's own, which lives inside the work that has shown it.
  bool RunInModalBox(const std::function<void()>& work);

  /// Whether work is being done: a save may be half-way while its message box is up.
  bool Busy() const { return depth > 0; }

  /// The window was closed.
  void end();
  bool Ended() const { return over; }
  /// What has ended the program, if it was not the user.
  std::exception_ptr Failure() const { return thrown; }

  /// Called where a step of the user begins.
  std::function<void()> stepBegins;
  /// Whether the next work belongs to the step of the work before, as what a button does when the
  /// mouse that has pressed it is released.
  bool goesOn = false;
  /// Called after each piece of work: the moment to show what it has changed.
  std::function<void()> afterWork;

 private:
  bool Perform(const std::function<void()>& work);

  int depth = 0;
  bool over = false;
  std::exception_ptr thrown;
};

}  // namespace dialwright
