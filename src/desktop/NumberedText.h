#pragma once

#include <QString>

#include "desktop/QtText.h"
#include "language/EnglishStrings.h"
#include "shell/Program.h"

namespace dialwright {

/// The text of that number in the program's language.
inline QString NumberedText(Program& program, int number) {
  return ToQt(program.mymyLoadString(number));
}

/// The English text of that number, for where no program runs yet; empty if there is none.
inline QString NumberedText(int number) { return ToQt(EnglishString(number).value_or("")); }

}  // namespace dialwright
