#pragma once

#include <exception>
#include <string>
#include <utility>

namespace dialwright {

/// The failures that services report, by their classic numbers.
enum class Failure : int {
  invalidProcedureCall = 5,
  overflow = 6,
  subscriptOutOfRange = 9,
  typeMismatch = 13,
  badFileName = 52,
  fileNotFound = 53,
  badFileMode = 54,
  deviceIOError = 57,
  fileAlreadyExists = 58,
  diskFull = 61,
  inputPastEnd = 62,
  deviceUnavailable = 68,
  permissionDenied = 70,
  pathFileAccess = 75,
  pathNotFound = 76,
  resourceNotFound = 326,
  cannotCreateObject = 429,
};

/// A failure of a service, as the user reads it in a report: number and description.
class RuntimeFailure : public std::exception {
 public:
  RuntimeFailure(int failureNumber, std::string text)
      : number(failureNumber), description(std::move(text)) {}
  /// The failure with its classic description. Whoever knows the identifier of a resource that was
  /// not found gives the text with it instead: "Resource with identifier 'N' not found".
  explicit RuntimeFailure(Failure failure);

  const char* what() const noexcept override { return description.c_str(); }

  int number;
  std::string description;
};

/// Ends the program at once. No trap catches it; it unwinds to `main`, to the window's event
/// dispatch or to the runner.
struct EndProgram {};

}  // namespace dialwright
