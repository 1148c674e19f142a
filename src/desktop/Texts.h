#pragma once

#include <QCoreApplication>
#include <QString>

/// The texts of the window that no control has. Each stands in the string table by this English,
/// and is looked up like any translation of Qt's: see Translations.
namespace dialwright::texts {

inline constexpr const char* context = "dialwright";

inline QString Translated(const char* english) {
  return QCoreApplication::translate(context, english);
}

inline QString Tabs() { return Translated("Menus"); }
inline QString MakerPicture() { return QStringLiteral("Varlo"); }
inline QString ServerPicture() { return QStringLiteral("Merid"); }

inline QString Help() { return Translated("Help"); }
inline QString Contents() { return Translated("Contents"); }
inline QString Back() { return Translated("&Back"); }
inline QString Forward() { return Translated("&Forward"); }
inline QString Find() { return Translated("F&ind:"); }
inline QString NoPageFound() { return Translated("No page has these words."); }
inline QString HelpMissing() { return Translated("The help file is not there: %1"); }
inline QString HelpUnreadable() {
  return Translated("The file is damaged or is not a help file: %1");
}
inline QString HelpWithoutPages() { return Translated("The help file holds no page: %1"); }

inline QString UnexpectedFailure() {
  return Translated("The program has to end because of a failure of its own: %1");
}

}  // namespace dialwright::texts
