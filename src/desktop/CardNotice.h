#pragma once

#include <QProcess>
#include <QWidget>
#include <optional>
#include <string>

#include "shell/Program.h"

class QLabel;
class QPushButton;

namespace dialwright {

class MessageBoxes;

/// What the window says once the card tool has been started: a quiet line that tells where the card
/// will be, and boxes behind those of the system, about actions that the card leaves out and about
/// a Java that makes no card. Java is asked once a run, in the background.
class CardNotice : public QWidget {
 public:
  CardNotice(Program& theProgram, MessageBoxes& boxes);
  ~CardNotice() override;

 private:
  void Started(const CardStart& card);
  void LookAtJava();
  void Speak();

  Program& program;
  MessageBoxes& messages;
  QLabel* place;
  QPushButton* open;
  QProcess java;
  std::optional<std::string> complaint;  ///< once Java has been looked at
  std::string omissions;                 ///< of the card started last
  std::string said;                      ///< the omissions that the user knows
};

}  // namespace dialwright
