#pragma once

#include <QCoreApplication>
#include <QString>

/// The texts that only the window has: names that a screen reader speaks, and the help window. All
/// others come from the system's string table. They are looked up like any translation of Qt's.
namespace dialwright::texts {

inline QString translated(const char* english) {
  return QCoreApplication::translate("dialwright", english);
}

inline QString tabs() { return translated("Menus"); }
inline QString moveUp() { return translated("Move up"); }
inline QString moveDown() { return translated("Move down"); }
inline QString makerPicture() { return translated("Varlo"); }
inline QString serverPicture() { return translated("Merid"); }

inline QString help() { return translated("Help"); }
inline QString contents() { return translated("Contents"); }
inline QString back() { return translated("&Back"); }
inline QString forward() { return translated("&Forward"); }
inline QString find() { return translated("F&ind:"); }
inline QString noPageFound() { return translated("No page has these words."); }
inline QString helpMissing() { return translated("The help file is not there:\n%1"); }
inline QString helpUnreadable() {
  return translated("The file is damaged or is not a help file:\n%1");
}
inline QString helpWithoutPages() { return translated("The help file holds no page:\n%1"); }

inline QString unexpectedFailure() {
  return translated("The program has to end because of a failure of its own:\n%1");
}

}  // namespace dialwright::texts
