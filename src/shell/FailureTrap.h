#pragma once

#include <functional>
#include <string_view>

namespace dialwright {

class Program;
struct frmMain;

/// How a report of a failure opens.
enum class FailurePrefix {
  localized,        ///< string 1035, "Error "
  fixed,            ///< "Error " in every language
  localizedModule,  ///< string 1001, "(error):"
  fixedModule,      ///< "(error):" in every language
};

/// The trap of one procedure: each statement that can fail runs as a step of it. A step that fails
/// is reported once, in the system's one form, and the next statement runs.
class FailureTrap {
 public:
  /// A procedure of the main form.
  FailureTrap(frmMain& form, FailurePrefix openingText, std::string_view procedureName);
  /// A procedure elsewhere; `owner` is what stands behind " of ", as "Module MeridVersion".
  FailureTrap(Program& theProgram, FailurePrefix openingText, std::string_view procedureName,
              std::string_view owner);

  /// Runs a statement. Returns whether it ran to its end.
  bool operator()(const std::function<void()>& statement) const;

 private:
  Program& program;
  FailurePrefix prefix;
  std::string_view procedure;
  std::string_view place;
};

}  // namespace dialwright
