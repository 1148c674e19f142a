#pragma once

#include <vector>

#include "Printer.h"
#include "beside/FindAction.h"
#include "beside/Trial.h"

namespace dialwright {

class History;
class Program;

/// What stands beside the form, as transcripts print it.
void ShowFindings(const Program& program, Printer& printer);
void ShowKeypad(const Program& program, Printer& printer);
void ShowVoiced(const Program& program, Printer& printer);
void ShowHappenings(const Program& program, const std::vector<Happening>& happened,
                    Printer& printer);
/// What the user has changed since the last load or complete save.
void ShowChanges(History& history, Printer& printer);
void ShowMatches(const std::vector<Match>& matches, Printer& printer);

}  // namespace dialwright
