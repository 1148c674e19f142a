#pragma once

#include <string_view>

namespace dialwright {

enum class MsgBoxButtons { OK, YesNo };
enum class MsgBoxAnswer { OK, Yes, No };

/// What a box is, for who can show it by a mark: a question or a warning as usual, news of what has
/// been done, the report of a failure, or a question about losing something.
enum class MsgBoxMark { usual, news, failure, loss };

/// The modal message boxes. An empty title leaves the program's own.
class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;
  virtual MsgBoxAnswer MsgBox(std::string_view text, MsgBoxButtons buttons,
                              std::string_view title) = 0;
  /// The same, where the mark can be shown.
  virtual MsgBoxAnswer MarkedBox(MsgBoxMark, std::string_view text, MsgBoxButtons buttons,
                                 std::string_view title) {
    return MsgBox(text, buttons, title);
  }
};

}  // namespace dialwright
