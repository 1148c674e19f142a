#pragma once

#include <QString>
#include <memory>
#include <optional>
#include <string>

namespace dialwright {

class MainWindow;
class Program;

/// The server that a window is for, and where the program stands for it.
struct Place {
  std::string serverFolder;   ///< of the host, where the registry is a file
  std::string programFolder;  ///< a path of the system, without a backslash at its end
  std::string programFile;    ///< the program file's name without its extension
  QString serverName;         ///< empty for the machine's own server
};

/// Which server the next window is for.
class Opening {
 public:
  virtual ~Opening() = default;
  /// Asks the user where that is not clear. Nothing when there is to be no further window.
  virtual std::optional<Place> Next() = 0;
  /// Gives the window its way to another server, where there is one. `program` is the window's own.
  virtual void Offer(MainWindow& window, Program& program) = 0;
  /// The window has come up.
  virtual void Opened(const Place& place) = 0;
};

/// To be called once the application is made. Null, and told on standard error, when the command
/// line is wrong.
std::unique_ptr<Opening> MakeOpening();

/// Answers a command line that asks for no window; to be called before the application is made,
/// which needs a display. Whether it did.
bool AnswerWithoutWindow(int argc, char** argv);

}  // namespace dialwright
