// Any bytes are a key map, or refused with a text for it; what was read is written and read as the
// same.

#include "Fuzz.h"
#include "beside/KeyMapFile.h"
#include "language/EnglishStrings.h"

void Check(const std::string& bytes) {
  try {
    const std::string text = KeyMapText(ParseKeyMap(bytes));
    need(KeyMapText(ParseKeyMap(text)) == text);
  } catch (const KeyMapFault& fault) {
    need(EnglishString(fault.text).has_value());
  }
}
