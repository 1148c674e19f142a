#pragma once

#include <span>
#include <string_view>

#include "keymap/Catalogue.h"

namespace dialwright {

struct frmMain;

/// The page's name in the program folder.
inline constexpr std::string_view strHelpFileName = "\\Conversation Key Mappings.HTM";

/// A template of the page, in the program folder.
struct PageTemplate {
  Gate since;
  std::string_view name;
};

/// The newest generation of servers first: the first template whose gate is open serves.
std::span<const PageTemplate> PageTemplates();

/// Puts a fresh copy of the template of the server's generation in the page's place. Reports a
/// missing template; other failures are the caller's.
void CreateKeyMapHTMLFromTemplate(frmMain& form);

/// Fills an action's placeholder in the page with its keys, and the conversation's name. Throws
/// RuntimeFailure.
void FillPlaceholder(frmMain& form, std::string_view token, std::string_view keys);

}  // namespace dialwright
