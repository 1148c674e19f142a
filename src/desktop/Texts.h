#pragma once

#include <QCoreApplication>
#include <QString>

/// The texts that only the window has: names that a screen reader speaks, and the help window. All
/// others come from the system's string table. They are looked up like any translation of Qt's.
namespace dialwright::texts {

inline QString Translated(const char* english) {
  return QCoreApplication::translate("dialwright", english);
}

inline QString Tabs() { return Translated("Menus"); }
inline QString MoveUp() { return Translated("Move up"); }
inline QString MoveDown() { return Translated("Move down"); }
inline QString MakerPicture() { return Translated("Varlo"); }
inline QString ServerPicture() { return Translated("Merid"); }

inline QString Help() { return Translated("Help"); }
inline QString Contents() { return Translated("Contents"); }
inline QString Back() { return Translated("&Back"); }
inline QString Forward() { return Translated("&Forward"); }
inline QString Find() { return Translated("F&ind:"); }
inline QString NoPageFound() { return Translated("No page has these words."); }
inline QString HelpMissing() { return Translated("The help file is not there:\n%1"); }
inline QString HelpUnreadable() {
  return Translated("The file is damaged or is not a help file:\n%1");
}
inline QString HelpWithoutPages() { return Translated("The help file holds no page:\n%1"); }

inline QString UnexpectedFailure() {
  return Translated("The program has to end because of a failure of its own:\n%1");
}

}  // namespace dialwright::texts
