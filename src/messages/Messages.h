#pragma once

#include <string>
#include <string_view>

#include "platform/MessageBoxes.h"

namespace dialwright {

/// What a procedure needs to speak to the user: a box, and a text by its number.
class Messages {
 public:
  virtual ~Messages() = default;
  /// A modal message box; without a title it bears the program's own.
  virtual MsgBoxAnswer MsgBox(std::string_view text, MsgBoxButtons buttons = MsgBoxButtons::OK,
                              std::string_view title = {}) = 0;
  /// The same, with a mark of what the box is.
  virtual MsgBoxAnswer MarkedBox(MsgBoxMark, std::string_view text,
                                 MsgBoxButtons buttons = MsgBoxButtons::OK,
                                 std::string_view title = {}) {
    return MsgBox(text, buttons, title);
  }
  /// A text by its number, in the language of the moment.
  virtual std::string mymyLoadString(int number) = 0;
};

}  // namespace dialwright
