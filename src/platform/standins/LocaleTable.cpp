#include "platform/standins/LocaleTable.h"

#include <cstdlib>

#include "text/Text.h"

namespace dialwright {
namespace {

constexpr std::int32_t defaultLanguage = 1033;

constexpr LocaleRow locales[] = {
    {1033, "ENU", "en_US", "English (United States)"},
    {2057, "ENG", "en_GB", "English (United Kingdom)"},
    {3081, "ENA", "en_AU", "English (Australia)"},
    {4105, "ENC", "en_CA", "English (Canada)"},
    {5129, "ENZ", "en_NZ", "English (New Zealand)"},
    {6153, "ENI", "en_IE", "English (Ireland)"},
    {7177, "ENS", "en_ZA", "English (South Africa)"},
    {8201, "ENJ", "en_JM", "English (Jamaica)"},
    {9225, "ENB", "", "English (Caribbean)"},
    {10249, "ENL", "en_BZ", "English (Belize)"},
    {11273, "ENT", "en_TT", "English (Trinidad and Tobago)"},
    {12297, "ENW", "en_ZW", "English (Zimbabwe)"},
    {13321, "ENP", "en_PH", "English (Philippines)"},
    {16393, "ENN", "en_IN", "English (India)"},
    {17417, "ENM", "en_MY", "English (Malaysia)"},
    {18441, "ENE", "en_SG", "English (Singapore)"},
    {1031, "DEU", "de_DE", "German (Germany)"},
    {2055, "DES", "de_CH", "German (Switzerland)"},
    {3079, "DEA", "de_AT", "German (Austria)"},
    {4103, "DEL", "de_LU", "German (Luxembourg)"},
    {5127, "DEC", "de_LI", "German (Liechtenstein)"},
    {3082, "ESN", "es_ES", "Spanish (Spain, International Sort)"},
    {1034, "ESP", "", "Spanish (Spain, Traditional Sort)"},
    {2058, "ESM", "es_MX", "Spanish (Mexico)"},
    {4106, "ESG", "es_GT", "Spanish (Guatemala)"},
    {5130, "ESC", "es_CR", "Spanish (Costa Rica)"},
    {6154, "ESA", "es_PA", "Spanish (Panama)"},
    {7178, "ESD", "es_DO", "Spanish (Dominican Republic)"},
    {8202, "ESV", "es_VE", "Spanish (Venezuela)"},
    {9226, "ESO", "es_CO", "Spanish (Colombia)"},
    {10250, "ESR", "es_PE", "Spanish (Peru)"},
    {11274, "ESS", "es_AR", "Spanish (Argentina)"},
    {12298, "ESF", "es_EC", "Spanish (Ecuador)"},
    {13322, "ESL", "es_CL", "Spanish (Chile)"},
    {14346, "ESY", "es_UY", "Spanish (Uruguay)"},
    {15370, "ESZ", "es_PY", "Spanish (Paraguay)"},
    {16394, "ESB", "es_BO", "Spanish (Bolivia)"},
    {17418, "ESE", "es_SV", "Spanish (El Salvador)"},
    {18442, "ESH", "es_HN", "Spanish (Honduras)"},
    {19466, "ESI", "es_NI", "Spanish (Nicaragua)"},
    {20490, "ESU", "es_PR", "Spanish (Puerto Rico)"},
    {21514, "EST", "es_US", "Spanish (United States)"},
    {1036, "FRA", "fr_FR", "French (France)"},
    {2060, "FRB", "fr_BE", "French (Belgium)"},
    {3084, "FRC", "fr_CA", "French (Canada)"},
    {4108, "FRS", "fr_CH", "French (Switzerland)"},
    {5132, "FRL", "fr_LU", "French (Luxembourg)"},
    {6156, "FRM", "fr_MC", "French (Monaco)"},
    {1040, "ITA", "it_IT", "Italian (Italy)"},
    {2064, "ITS", "it_CH", "Italian (Switzerland)"},
    {1041, "JPN", "ja_JP", "Japanese (Japan)"},
    {1042, "KOR", "ko_KR", "Korean (Korea)"},
    {1043, "NLD", "nl_NL", "Dutch (Netherlands)"},
    {2067, "NLB", "nl_BE", "Dutch (Belgium)"},
    {1044, "NOR", "nb_NO", "Norwegian, Bokmål (Norway)"},
    {2068, "NON", "nn_NO", "Norwegian, Nynorsk (Norway)"},
    {1046, "PTB", "pt_BR", "Portuguese (Brazil)"},
    {2070, "PTG", "pt_PT", "Portuguese (Portugal)"},
    {2052, "CHS", "zh_CN", "Chinese (Simplified, China)"},
    {1028, "CHT", "zh_TW", "Chinese (Traditional, Taiwan)"},
    {3076, "ZHT", "zh_HK", "Chinese (Traditional, Hong Kong S.A.R.)"},
    {4100, "ZHI", "zh_SG", "Chinese (Simplified, Singapore)"},
    {1025, "ARA", "ar_SA", "Arabic (Saudi Arabia)"},
    {1026, "BGR", "bg_BG", "Bulgarian (Bulgaria)"},
    {1027, "CAT", "ca_ES", "Catalan (Catalan)"},
    {1029, "CSY", "cs_CZ", "Czech (Czech Republic)"},
    {1030, "DAN", "da_DK", "Danish (Denmark)"},
    {1032, "ELL", "el_GR", "Greek (Greece)"},
    {1035, "FIN", "fi_FI", "Finnish (Finland)"},
    {1037, "HEB", "he_IL", "Hebrew (Israel)"},
    {1038, "HUN", "hu_HU", "Hungarian (Hungary)"},
    {1039, "ISL", "is_IS", "Icelandic (Iceland)"},
    {1045, "PLK", "pl_PL", "Polish (Poland)"},
    {1048, "ROM", "ro_RO", "Romanian (Romania)"},
    {1049, "RUS", "ru_RU", "Russian (Russia)"},
    {1050, "HRV", "hr_HR", "Croatian (Croatia)"},
    {1051, "SKY", "sk_SK", "Slovak (Slovakia)"},
    {1053, "SVE", "sv_SE", "Swedish (Sweden)"},
    {2077, "SVF", "sv_FI", "Swedish (Finland)"},
    {1054, "THA", "th_TH", "Thai (Thailand)"},
    {1055, "TRK", "tr_TR", "Turkish (Turkey)"},
    {1057, "IND", "id_ID", "Indonesian (Indonesia)"},
    {1058, "UKR", "uk_UA", "Ukrainian (Ukraine)"},
    {1060, "SLV", "sl_SI", "Slovenian (Slovenia)"},
    {1061, "ETI", "et_EE", "Estonian (Estonia)"},
    {1062, "LVI", "lv_LV", "Latvian (Latvia)"},
    {1063, "LTH", "lt_LT", "Lithuanian (Lithuania)"},
    {1066, "VIT", "vi_VN", "Vietnamese (Vietnam)"},
    {1069, "EUQ", "eu_ES", "Basque (Basque)"},
};

}  // namespace

std::span<const LocaleRow> Locales() { return locales; }

std::optional<LocaleRow> FindLocale(std::int32_t id) {
  for (const LocaleRow& row : locales) {
    if (row.id == id) return row;
  }
  return std::nullopt;
}

std::int32_t LanguageOfPosixName(std::string_view posixName) {
  const std::string_view locale = posixName.substr(0, posixName.find_first_of(".@"));
  std::string_view language = locale.substr(0, locale.find('_'));
  if (language.empty()) return defaultLanguage;
  // The older name for the first of the two written forms.
  if (EqualsIgnoringCase(language, "no")) language = "nb";
  for (const LocaleRow& row : locales) {
    if (EqualsIgnoringCase(row.posixName, locale)) return row.id;
  }
  for (const LocaleRow& row : locales) {
    const std::string_view rowLanguage = row.posixName.substr(0, row.posixName.find('_'));
    if (EqualsIgnoringCase(rowLanguage, language)) return row.id;
  }
  return defaultLanguage;
}

std::int32_t UserLanguageFromEnvironment() {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* value = std::getenv(name);
    if (value != nullptr && *value != '\0') return LanguageOfPosixName(value);
  }
  return defaultLanguage;
}

}  // namespace dialwright
