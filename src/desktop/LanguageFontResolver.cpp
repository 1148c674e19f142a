#include "desktop/LanguageFontResolver.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <algorithm>

#include "desktop/QtText.h"

namespace dialwright {

namespace {

struct CharsetRow {
  int charset;
  QFontDatabase::WritingSystem script;
};

constexpr CharsetRow charsets[] = {
    {128, QFontDatabase::Japanese},
    {129, QFontDatabase::Korean},
    {134, QFontDatabase::SimplifiedChinese},
    {136, QFontDatabase::TraditionalChinese},
};

/// Whether a family is one of typewriters. Those of the East have two widths, one for their own
/// signs and half of it for Latin letters, and don't call themselves of fixed pitch.
bool IsTypewriters(const QString& family) {
  const QFontMetricsF metrics{QFont(family)};
  return QFontDatabase::isFixedPitch(family) ||
         metrics.horizontalAdvance('i') == metrics.horizontalAdvance('W');
}

/// A family with the script's letters; of several, one whose letters are as wide as they are by
/// nature. Empty where no installed font has them.
QString FamilyFor(QFontDatabase::WritingSystem script) {
  const QStringList families = QFontDatabase::families(script);
  const auto proportional =
      std::find_if(families.begin(), families.end(), [](const QString& family) {
        return !QFontDatabase::isPrivateFamily(family) && !IsTypewriters(family);
      });
  if (proportional != families.end()) return *proportional;
  return families.value(0);
}

}  // namespace

QFont LanguageFont(const ControlFont& font) {
  QFont result;
  const QString name = ToQt(font.Name);
  if (name.isEmpty()) return result;

  // The user's own font stays in front where it can write the script itself.
  const QString usual = QGuiApplication::font().family();
  QStringList families;
  if (QFontDatabase::hasFamily(name)) {
    families << name;
  } else {
    const auto* row =
        std::find_if(std::begin(charsets), std::end(charsets),
                     [&](const CharsetRow& it) { return it.charset == font.Charset; });
    if (row == std::end(charsets) || QFontDatabase::writingSystems(usual).contains(row->script))
      return result;
    families << FamilyFor(row->script);
  }
  families << usual;
  families.removeAll({});
  result.setFamilies(families);
  return result;
}

}  // namespace dialwright
