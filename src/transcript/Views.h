#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Printer.h"

namespace dialwright {

class Program;

/// What a user sees of the form, as transcripts print it.
void ShowForm(const Program& program, Printer& printer);
void ShowGrid(const Program& program, int number, bool withLabels, Printer& printer);
void ShowEdit(const Program& program, int grid, Printer& printer);
void ShowSetup(const Program& program, Printer& printer);
/// The caption of a control, a tab or a column heading. Throws TranscriptError for an unknown name.
void ShowText(Program& program, std::string_view name, Printer& printer);
void ShowLanguages(Program& program, Printer& printer);
/// What came of the last save.
void ShowSaved(const Program& program, Printer& printer);
/// The earlier versions of the slot, the newest first.
void ShowEarlier(const Program& program, Printer& printer);
void ShowFonts(const Program& program, Printer& printer);

}  // namespace dialwright
