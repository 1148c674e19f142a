#include "language/modLocalize.h"

#include <optional>

#include "controls/Form.h"
#include "files/FileSystemObject.h"
#include "language/EnglishStrings.h"
#include "messages/Messages.h"
#include "platform/Failure.h"
#include "text/Text.h"

namespace dialwright {

namespace {

constexpr std::int32_t englishLanguage = 1033;
constexpr int longestText = 1200;
constexpr int abbreviatedLanguageName = 3;
constexpr unsigned dataFileUnresolved = 3;
constexpr std::size_t codeLength = 3;
constexpr std::string_view libraryEnd = "DLL";

struct LanguageRow {
  std::string_view code;
  std::int32_t id;
};

constexpr LanguageRow languages[] = {
    {"ENX", languageENX}, {"ENU", 1033},  {"ENG", 2057},  {"ENA", 3081},  {"ENC", 4105},
    {"ENZ", 5129},        {"ENI", 6153},  {"DEU", 1031},  {"DES", 2055},  {"DEA", 3079},
    {"DEL", 4103},        {"DEC", 5127},  {"ESP", 1034},  {"ESM", 2058},  {"ESN", 3082},
    {"ESG", 4106},        {"ESC", 5130},  {"ESA", 6154},  {"ESD", 7178},  {"ESV", 8202},
    {"ESO", 9226},        {"ESR", 10250}, {"ESS", 11274}, {"ESH", 18442}, {"ESI", 19466},
    {"ESU", 20490},       {"FRA", 1036},  {"FRB", 2060},  {"FRC", 3084},  {"FRS", 4108},
    {"FRL", 5132},        {"ITA", 1040},  {"ITS", 2064},  {"JPN", 1041},  {"NLD", 1043},
    {"NLB", 2067},        {"NOR", 1044},  {"NON", 2068},  {"PTB", 1046},  {"PTG", 2070},
    {"CHT", 1028},        {"ZHT", 3076},  {"CHS", 2052},  {"ZHI", 4100},
};

struct FontRow {
  std::int32_t language;
  int charset;
  std::string_view name;
};

constexpr FontRow fonts[] = {
    {1042, 129, "\uAD74\uB9BC"},
    {1028, 136, "\u65B0\u7D30\u660E\u9AD4"},
    {1041, 128, "\uFF2D\uFF33\u0020\uFF30\u30B4\u30B7\u30C3\u30AF"},
    {2052, 134, "\u5B8B\u4F53"},
};

}  // namespace

std::int32_t GetLanguageId(std::string_view code) {
  for (const LanguageRow& row : languages)
    if (row.code == code) return row.id;
  return englishLanguage;
}

ControlFont LanguageFont(std::int32_t language) {
  for (const FontRow& row : fonts)
    if (row.language == language) return {row.charset, std::string(row.name)};
  return {};
}

std::string modLocalize::mymyLoadString(int number) {
  if (hLanguageModule != 0) {
    std::string text = system.LoadStringW(hLanguageModule, number, longestText);
    if (!text.empty()) return text;
  }
  if (const auto own = EnglishString(number)) return std::string(*own);
  messages.MarkedBox(MsgBoxMark::failure, "error in mymyLoadString: Resource with identifier '" +
                                              std::to_string(number) + "' not found");
  return {};
}

void modLocalize::InitalizeLanguages() {
  if (lCurrentLanguage == 0) lCurrentLanguage = system.GetUserDefaultLangID();
  if (hLanguageModule > 0) system.FreeLibrary(hLanguageModule);
  const std::string start = programFile + "_";
  hLanguageModule = system.LoadLibraryExW(
      folder + "\\" + start + GetLanguageCode(lCurrentLanguage) + ".dll", dataFileUnresolved);

  astrLanguages.clear();
  try {
    for (const std::string& name : files.FileNames(folder)) {
      if (!StartsWithIgnoringCase(name, start) || name.size() < codeLength + 1 ||
          !EqualsIgnoringCase(name.substr(name.size() - libraryEnd.size()), libraryEnd))
        continue;
      const std::string_view stem = std::string_view(name).substr(0, name.size() - 4);
      astrLanguages.emplace_back(
          stem.substr(stem.size() < codeLength ? 0 : stem.size() - codeLength));
    }
  } catch (const RuntimeFailure& failure) {
    messages.MarkedBox(MsgBoxMark::failure, "Error in InitalizeLanguages: " + failure.description);
  }
  if (astrLanguages.empty()) astrLanguages.emplace_back();

  for (Form* form : forms) ApplyLanguageFontToForm(*form);
}

std::string modLocalize::GetLanguageCode(std::int32_t language) {
  if (language == languageENX) return "ENX";
  const auto name = system.GetLocaleInfoA(language, abbreviatedLanguageName);
  return name ? std::string(Trim(FirstCharacters(*name, codeLength))) : "ERR";
}

std::string modLocalize::GetLanguageName(std::int32_t language) {
  if (language == languageENX) return "English (TDD/TTY)";
  return system.VerLanguageNameA(language).value_or("(error)");
}

std::string modLocalize::GetLanguageNameFromCode(std::string_view code) {
  return GetLanguageName(GetLanguageId(code));
}

void modLocalize::ApplyLanguageFontToForm(Form& form) {
  for (Control* control : form.Controls) control->Font = LanguageFont(lCurrentLanguage);
}

}  // namespace dialwright
