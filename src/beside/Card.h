#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace dialwright {

struct frmMain;

/// The actions that have a key and stand on no card, since the key map documents have no words for
/// them: a text for the user, in the language of the moment. Empty if the card names all.
std::string CardOmissions(const frmMain& form);

/// The version in what `java -version` prints, such as "17.0.15" or "1.8.0_402"; empty if there is
/// none.
std::string_view JavaVersion(std::string_view printed);

/// Why this machine's Java makes no card, as a text for the user; empty if nothing is against it.
/// `printed` is what `java -version` has printed; nothing if there is no such program.
std::string CardJavaComplaint(const frmMain& form, std::optional<std::string_view> printed);

}  // namespace dialwright
