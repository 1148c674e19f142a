#pragma once

#include "Printer.h"

namespace dialwright {

class Program;

/// What stands beside the form, as transcripts print it.
void ShowFindings(const Program& program, Printer& printer);

}  // namespace dialwright
