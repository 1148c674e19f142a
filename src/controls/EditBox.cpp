#include "controls/EditBox.h"

#include "text/Text.h"

namespace dialwright {

void EditBox::SetText(std::string_view next) {
  const auto limit = static_cast<std::size_t>(MaxLength());
  text = limit == 0 ? next : FirstCharacters(next, limit);
  SelStart = 0;
  SelLength = 0;
  typed = false;
  if (changed) changed();
}

void EditBox::PutBack(std::string_view next, std::size_t start, std::size_t length, bool wasTyped) {
  text = next;
  SelStart = start;
  SelLength = length;
  typed = wasTyped;
  if (changed) changed();
}

void EditBox::PressKey(int keyAscii) {
  typed = true;
  if (KeyPress) KeyPress(keyAscii);
}

void EditBox::SelectAll() {
  SelStart = 0;
  SelLength = CharacterCount(text);
  if (changed) changed();
}

void EditBox::MoveToEnd() {
  SelStart = CharacterCount(text);
  SelLength = 0;
}

void EditBox::TypeCharacter(std::string_view character) {
  // The classic handler is given the character's code; only the first byte tells ASCII from others.
  PressKey(static_cast<unsigned char>(character.front()));
  const auto limit = static_cast<std::size_t>(MaxLength());
  if (limit != 0 && CharacterCount(text) - SelLength + 1 > limit) return;
  ReplaceSelection(character);
}

void EditBox::TypeBackspace() {
  PressKey(keyBackspace);
  if (SelLength == 0) {
    if (SelStart == 0) return;
    --SelStart;
    SelLength = 1;
  }
  ReplaceSelection({});
}

void EditBox::TextEdited(std::string_view next) {
  text = next;
  typed = true;
  MoveToEnd();
}

void EditBox::ReplaceSelection(std::string_view with) {
  const std::size_t start = FirstCharacters(text, SelStart).size();
  const std::size_t end = FirstCharacters(text, SelStart + SelLength).size();
  text.replace(start, end - start, with);
  SelStart += CharacterCount(with);
  SelLength = 0;
  if (changed) changed();
}

}  // namespace dialwright
