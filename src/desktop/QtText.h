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

inline std::string FromQt(const QString& text) { return text.toStdString(); }

}  // namespace dialwright
