#include "desktop/Translations.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <string>
#include <string_view>

#include "desktop/NumberedText.h"
#include "desktop/QtText.h"
#include "desktop/Texts.h"
#include "language/EnglishStrings.h"
#include "platform/FileStore.h"
#include "shell/Program.h"

namespace dialwright {

namespace {

struct ToolkitRow {
  std::string_view start;  ///< of a library's code
  const char* language;    ///< as the toolkit calls it
};

constexpr ToolkitRow toolkitLanguages[] = {{"DE", "de"}, {"ES", "es"}, {"FR", "fr"}, {"JP", "ja"}};

QString ToolkitLanguage(const std::string& code) {
  for (const ToolkitRow& row : toolkitLanguages)
    if (code.starts_with(row.start)) return row.language;
  return {};
}

}  // namespace

std::string LanguageInForce(Program& program) {
  if (program.language.hLanguageModule == 0) return {};
  return program.language.GetLanguageCode(program.language.lCurrentLanguage);
}

QString Translations::Own::translate(const char* context, const char* english, const char*,
                                     int) const {
  if (std::string_view(context) != texts::context) return {};
  for (const EnglishStringRow& row : EnglishStrings())
    if (row.text == english) return NumberedText(program, row.number);
  return {};
}

Translations::Translations(Program& theProgram) : program(theProgram), own(theProgram) {
  QCoreApplication::installTranslator(&own);
}

Translations::~Translations() {
  QCoreApplication::removeTranslator(&own);
  QCoreApplication::removeTranslator(&toolkit);
}

bool Translations::Refresh() {
  const QString wanted = ToolkitLanguage(LanguageInForce(program));
  if (wanted == spoken) return false;
  spoken = wanted;
  QCoreApplication::removeTranslator(&toolkit);
  if (wanted.isEmpty()) return true;
  const QString own = ToQt(program.services.files.RealPath(program.folder + "\\translations"));
  // Where the program folder has none those of the machine serve.
  for (const QString& folder :
       {QDir::fromNativeSeparators(own), QLibraryInfo::path(QLibraryInfo::TranslationsPath)})
    if (toolkit.load("qtbase_" + wanted, folder)) {
      QCoreApplication::installTranslator(&toolkit);
      break;
    }
  return true;
}

}  // namespace dialwright
