#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "controls/Control.h"

namespace dialwright {

inline constexpr int keyBackspace = 8;

/// A one-line edit box. Lengths and positions count characters of the UTF-8 text.
struct EditBox : Control {
  const std::string& Text() const { return text; }
  /// Cuts the text to the maximum length. Runs no key press.
  void SetText(std::string_view next);
  /// Selects the whole text.
  void SelectAll();

  /// What a user's key does: the key press handler runs first, also for a character that the
  /// maximum length then refuses; the character replaces the selection.
  void TypeCharacter(std::string_view character);
  void TypeBackspace();
  /// Puts the cursor behind the text, with nothing selected.
  void MoveToEnd();
  /// The text as a window's own editing has left it, after the key press handler has run.
  void TextEdited(std::string_view next);
  /// A user's key, before it changes the text: runs the key press handler.
  void PressKey(int keyAscii);
  /// Whether the user has typed since the text was given or last went into the grid.
  bool Typed() const { return typed; }
  /// The text has gone into the grid.
  void TakeOver() { typed = false; }
  /// Puts back a text as it stood, with its selection, whatever the maximum length is.
  void PutBack(std::string_view next, std::size_t start, std::size_t length, bool wasTyped);

  /// The longest text that may be typed or given, in characters; 0 is no limit. A lower limit
  /// leaves the text as it is.
  Property<int, Control> MaxLength{*this, 0};
  std::size_t SelStart = 0;
  std::size_t SelLength = 0;

  std::function<void(int keyAscii)> KeyPress;
  std::function<void(bool& Cancel)> Validate;
  std::function<void()> LostFocus;

 private:
  void ReplaceSelection(std::string_view with);

  std::string text;
  bool typed = false;
};

}  // namespace dialwright
