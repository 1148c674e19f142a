#pragma once

#include <QTimer>
#include <QWidget>
#include <array>
#include <functional>
#include <string>

#include "beside/Keypad.h"
#include "beside/Trial.h"
#include "desktop/KeyButton.h"

class QLabel;
class QListWidget;
class QListWidgetItem;
class QPushButton;
class QScrollArea;

namespace dialwright {

/// The telephone beside the tabs: the keys of the current menu, what the menu says, and a trial of
/// the keys as a subscriber would press them. It reads the form and acts on it as a user does.
class KeypadPanel : public QWidget {
 public:
  /// What the panel has the window do for it.
  struct Ways {
    std::function<void(int grid, const std::string& token)> goTo;
    std::function<void(char key)> typeKey;  ///< into the box of the row in hand
    std::function<void()> leave;            ///< the keyboard goes back to the form
  };

  KeypadPanel(frmMain& mainForm, Ways ways, QWidget* parent = nullptr);

  /// Shows what the form holds now.
  void Refresh();
  /// Takes the keyboard, with the first key.
  void TakeKeyboard();
  /// Begins or ends the trial.
  void Try(bool on);
  bool IsTrying() const { return trying; }

  /// Takes no more than so many pixels of the width: where the keys need more it scrolls sideways.
  void LimitWidth(int pixels);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  QScrollArea* BuildTelephone();
  QListWidget* BuildList(const QString& name);
  void ShowHeadings();
  void ShowKeypad();
  void ShowSequences();
  void ShowVoiced();
  /// Replaces the items of a list by rows of the grid; a list that shows them already stays.
  void ShowRows(QListWidget& list, const std::vector<const MenuRow*>& shown, const QString& none);
  void SpeakKey(KeyButton& button, const KeypadKey& key);
  void Choose(const KeypadKey& key, const QPoint& place);
  void OfferMenu(const KeypadKey& key, const QPoint& place);
  void Press(char key);
  void Tell(const std::vector<Happening>& happened);
  void GoToRow(int row);
  KeyButton* ButtonWithKeyboard() const;
  void GiveKeyboardTo(QWidget& part);
  /// With three keys of that size side by side.
  int WidthOf(QSize key) const;
  QString Word(int number) const;

  frmMain& form;
  Ways does;
  Trial trial;
  QTimer pauseTimer;
  bool trying = false;
  MenuRows rows;
  Keypad keypad;
  int mostWidth = QWIDGETSIZE_MAX;
  char pointed = 0;  ///< the key that the pointer or the keyboard is on

  QLabel* title = nullptr;
  QLabel* empty;  ///< in place of the telephone on a tab without keys
  QScrollArea* telephone;
  std::array<KeyButton*, telephoneKeys.size()> buttons{};
  QPushButton* tryButton;
  QLabel* sequencesTitle;
  QListWidget* sequences;
  QLabel* voicedTitle = nullptr;
  QListWidget* voiced;
};

}  // namespace dialwright
