#pragma once

#include <functional>
#include <string_view>

namespace dialwright {

class Messages;

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
  /// `owner` is what stands behind " of ": the main form, or a module as "Module MeridVersion".
  FailureTrap(Messages& reportTo, FailurePrefix openingText, std::string_view procedureName,
              std::string_view owner = "Form frmMain");

  /// Runs a statement. Returns whether it ran to its end.
  bool operator()(const std::function<void()>& statement) const;

 private:
  Messages& messages;
  FailurePrefix prefix;
  std::string_view procedure;
  std::string_view place;
};

}  // namespace dialwright
