#include "messages/FailureTrap.h"

#include <string>

#include "messages/Messages.h"
#include "platform/Failure.h"

namespace dialwright {

namespace {

std::string Opening(Messages& messages, FailurePrefix prefix) {
  switch (prefix) {
    case FailurePrefix::localized:
      return messages.mymyLoadString(1035);
    case FailurePrefix::localizedModule:
      return messages.mymyLoadString(1001);
    case FailurePrefix::fixedModule:
      return "(error):";
    case FailurePrefix::fixed:
      break;
  }
  return "Error ";
}

}  // namespace

FailureTrap::FailureTrap(Messages& reportTo, FailurePrefix openingText,
                         std::string_view procedureName, std::string_view owner)
    : messages(reportTo), prefix(openingText), procedure(procedureName), place(owner) {}

bool FailureTrap::operator()(const std::function<void()>& statement) const {
  try {
    statement();
    return true;
  } catch (const RuntimeFailure& failure) {
    messages.MarkedBox(MsgBoxMark::failure,
                       Opening(messages, prefix) + std::to_string(failure.number) + " (" +
                           failure.description + ") in procedure " + std::string(procedure) +
                           " of " + std::string(place));
    return false;
  }
}

}  // namespace dialwright
