#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace dialwright {

/// A language of the system.
struct LocaleRow {
  std::int32_t id;
  std::string_view code;       ///< the abbreviated language name
  std::string_view posixName;  ///< such as "de_DE"; empty where the host has no name of its own
  std::string_view name;       ///< in English, in UTF-8
};

/// All languages that are known. Of those with one language the usual one comes first.
std::span<const LocaleRow> Locales();

/// The row of a language id, or nothing.
std::optional<LocaleRow> FindLocale(std::int32_t id);

/// The language id for a host's locale name such as "de_DE.UTF-8@euro": the one of language and
/// territory, else the usual one of the language, else 1033.
std::int32_t LanguageOfPosixName(std::string_view posixName);

/// The language id of the user's messages, from LC_ALL, LC_MESSAGES or LANG, whichever is set
/// first.
std::int32_t UserLanguageFromEnvironment();

}  // namespace dialwright
