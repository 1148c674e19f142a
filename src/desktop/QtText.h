#pragma once

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

/// A caption without the marks of its mnemonic, as it is spoken.
inline QString Spoken(QString caption) {
  caption.replace("&&", QChar(1));
  caption.remove('&');
  return caption.replace(QChar(1), '&');
}

inline std::string FromQt(const QString& text) { return text.toStdString(); }

}  // namespace dialwright
