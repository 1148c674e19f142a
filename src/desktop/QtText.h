#pragma once

#include <QRegularExpression>
#include <QString>
#include <string>
#include <string_view>

namespace dialwright {

inline QString ToQt(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

inline QString ToQt(const std::string& utf8) { return QString::fromStdString(utf8); }

/// A text of several lines, with the toolkit's line ends.
inline QString LinesToQt(std::string_view utf8) { return ToQt(utf8).replace("\r\n", "\n"); }

/// A caption without the marks of its mnemonic, which stands in brackets where no letter of the
/// caption can be pressed, as it is spoken.
inline QString Spoken(QString caption) {
  static const QRegularExpression inBrackets(QStringLiteral("\\(&[^&]\\)"));
  caption.remove(inBrackets);
  caption.replace("&&", QChar(1));
  caption.remove('&');
  return caption.replace(QChar(1), '&');
}

/// What a menu item opens bears its caption without the dots behind it.
inline QString TitleOf(const QString& caption) {
  const QString title = Spoken(caption);
  return title.endsWith("...") ? title.chopped(3) : title;
}

inline std::string FromQt(const QString& text) { return text.toStdString(); }

}  // namespace dialwright
