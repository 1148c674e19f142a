#include "platform/Failure.h"

#include <string_view>

namespace dialwright {
namespace {

struct FailureText {
  Failure failure;
  std::string_view text;
};

constexpr FailureText failureTexts[] = {
    {Failure::invalidProcedureCall, "Invalid procedure call or argument"},
    {Failure::overflow, "Overflow"},
    {Failure::subscriptOutOfRange, "Subscript out of range"},
    {Failure::typeMismatch, "Type mismatch"},
    {Failure::badFileName, "Bad file name or number"},
    {Failure::fileNotFound, "File not found"},
    {Failure::badFileMode, "Bad file mode"},
    {Failure::deviceIOError, "Device I/O error"},
    {Failure::fileAlreadyExists, "File already exists"},
    {Failure::diskFull, "Disk full"},
    {Failure::inputPastEnd, "Input past end of file"},
    {Failure::deviceUnavailable, "Device unavailable"},
    {Failure::permissionDenied, "Permission denied"},
    {Failure::pathFileAccess, "Path/File access error"},
    {Failure::pathNotFound, "Path not found"},
    {Failure::resourceNotFound, "Resource not found"},
    {Failure::cannotCreateObject, "ActiveX component can't create object"},
};

std::string_view TextOf(Failure failure) {
  for (const FailureText& row : failureTexts) {
    if (row.failure == failure) return row.text;
  }
  return "Application-defined or object-defined error";
}

}  // namespace

RuntimeFailure::RuntimeFailure(Failure failure)
    : RuntimeFailure(static_cast<int>(failure), std::string(TextOf(failure))) {}

}  // namespace dialwright
