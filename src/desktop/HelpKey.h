#pragma once

#include <QObject>

class QWidget;

namespace dialwright {

class Program;

/// The page of the help that F1 opens while the keyboard is in `part` or in what is up because of
/// it, such as a message box.
void SetHelpPage(QWidget& part, const char* page);
/// The page that F1 opens there; empty if none has been set.
QString HelpPageOf(const QWidget* part);

/// F1 where a page has been set; elsewhere the key is as it was.
class HelpKey : public QObject {
 public:
  explicit HelpKey(Program& theProgram);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  Program& program;
};

}  // namespace dialwright
