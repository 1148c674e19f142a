#include "shell/FailureTrap.h"

#include <string>

#include "platform/Failure.h"
#include "shell/Program.h"
#include "shell/frmMain.h"

namespace dialwright {

namespace {

std::string opening(Program& program, FailurePrefix prefix) {
  switch (prefix) {
    case FailurePrefix::localized:
      return program.mymyLoadString(1035);
    case FailurePrefix::localizedModule:
      return program.mymyLoadString(1001);
    case FailurePrefix::fixedModule:
      return "(error):";
    case FailurePrefix::fixed:
      break;
  }
  return "Error ";
}

}  // namespace

FailureTrap::FailureTrap(frmMain& form, FailurePrefix openingText, std::string_view procedureName)
    : FailureTrap(form.program, openingText, procedureName, "Form frmMain") {}

FailureTrap::FailureTrap(Program& theProgram, FailurePrefix openingText,
                         std::string_view procedureName, std::string_view owner)
    : program(theProgram), prefix(openingText), procedure(procedureName), place(owner) {}

bool FailureTrap::operator()(const std::function<void()>& statement) const {
  try {
    statement();
    return true;
  } catch (const RuntimeFailure& failure) {
    program.MsgBox(opening(program, prefix) + std::to_string(failure.number) + " (" +
                   failure.description + ") in procedure " + std::string(procedure) + " of " +
                   std::string(place));
    return false;
  }
}

}  // namespace dialwright
