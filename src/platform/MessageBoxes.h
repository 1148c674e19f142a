#pragma once

#include <string_view>

namespace dialwright {

enum class MsgBoxButtons { OK, YesNo };
enum class MsgBoxAnswer { OK, Yes, No };

/// The modal message boxes. An empty title leaves the program's own.
class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;
  virtual MsgBoxAnswer MsgBox(std::string_view text, MsgBoxButtons buttons,
                              std::string_view title) = 0;
};

}  // namespace dialwright
