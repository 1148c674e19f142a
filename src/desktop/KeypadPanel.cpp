#include "desktop/KeypadPanel.h"

#include <QAccessible>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

#include "beside/EffectiveRows.h"
#include "desktop/CutLabel.h"
#include "desktop/HeadingFont.h"
#include "desktop/HelpKey.h"
#include "desktop/LanguageFontResolver.h"
#include "desktop/NumberedText.h"
#include "desktop/QtText.h"
#include "desktop/WrapLabel.h"
#include "shell/Program.h"
#include "shell/frmMain.h"

namespace dialwright {

namespace {

constexpr int columns = 3;
constexpr int pauseMilliseconds = 1500;

QString RowText(const MenuRow& row) {
  return row.key.empty() ? ToQt(row.label) : ToQt(row.key) + "  " + ToQt(row.label);
}

}  // namespace

KeypadPanel::KeypadPanel(frmMain& mainForm, Ways ways, QWidget* parent)
    : QWidget(parent), form(mainForm), does(std::move(ways)), trial(mainForm) {
  setObjectName("keypadPanel");
  SetHelpPage(*this, "keypad.html");
  title = new CutLabel;
  empty = new WrapLabel;
  empty->setObjectName("keypadEmpty");
  empty->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  telephone = BuildTelephone();
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(4, 0, 0, 0);
  column->addWidget(title);
  column->addWidget(telephone, 1);
  column->addWidget(empty, 1);
  empty->hide();
  ShowHeadings();

  pauseTimer.setSingleShot(true);
  pauseTimer.setInterval(pauseMilliseconds);
  connect(&pauseTimer, &QTimer::timeout, this, [this] { Tell(trial.Pause()); });
}

QScrollArea* KeypadPanel::BuildTelephone() {
  auto* contents = new QWidget;
  auto* column = new QVBoxLayout(contents);
  column->setContentsMargins(0, 0, 6, 0);
  column->setSpacing(6);
  auto* keys = new QGridLayout;
  keys->setSpacing(4);
  for (std::size_t i = 0; i < buttons.size(); ++i) {
    auto* button = new KeyButton(telephoneKeys[i]);
    buttons[i] = button;
    const int place = static_cast<int>(i);
    keys->addWidget(button, place / columns, place % columns);
    keys->setColumnStretch(place % columns, 1);
    button->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(button, &KeyButton::clicked, this, [this, button, i] {
      if (trying)
        Press(button->Key());
      else
        Choose(keypad[i], button->mapToGlobal(button->rect().bottomLeft()));
    });
    connect(button, &QWidget::customContextMenuRequested, this, [this, button, i](QPoint at) {
      if (!trying) OfferMenu(keypad[i], button->mapToGlobal(at));
    });
    // Not by the way of its parents: what scrolls among them would take the arrows.
    button->otherKey = [this](QKeyEvent& event) { keyPressEvent(&event); };
    button->pointedAt = [this, button](bool here) {
      pointed = here ? button->Key() : '\0';
      ShowSequences();
    };
  }
  tryButton = new QPushButton;
  tryButton->setObjectName("tryKeys");
  tryButton->setCheckable(true);
  tryButton->setFocusPolicy(Qt::TabFocus);
  connect(tryButton, &QPushButton::clicked, this, [this](bool on) { Try(on); });
  sequencesTitle = new WrapLabel;
  sequences = BuildList("keySequences");
  voicedTitle = new QLabel;
  voiced = BuildList("menuSays");
  column->addLayout(keys);
  column->addWidget(tryButton);
  column->addWidget(sequencesTitle);
  column->addWidget(sequences, 2);
  column->addWidget(voicedTitle);
  column->addWidget(voiced, 3);

  // Where the screen is low it scrolls, and Save stays in sight.
  auto* scroll = new QScrollArea;
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidgetResizable(true);
  scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroll->setFocusPolicy(Qt::NoFocus);
  scroll->setWidget(contents);
  return scroll;
}

QListWidget* KeypadPanel::BuildList(const QString& name) {
  auto* list = new QListWidget;
  list->setObjectName(name);
  list->setFocusPolicy(Qt::TabFocus);
  list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list->setTextElideMode(Qt::ElideRight);
  // As high as there is room for.
  list->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
  list->setMinimumHeight(list->fontMetrics().height() * 7 / 2);
  const auto chosen = [this](QListWidgetItem* item) {
    const QVariant row = item->data(Qt::UserRole);
    if (row.isValid()) GoToRow(row.toInt());
  };
  connect(list, &QListWidget::itemClicked, this, chosen);
  connect(list, &QListWidget::itemActivated, this, chosen);
  return list;
}

QSize KeypadPanel::sizeHint() const { return {WidthOf(buttons.front()->sizeHint()), 0}; }

QSize KeypadPanel::minimumSizeHint() const {
  return {std::min(WidthOf(buttons.front()->minimumSizeHint()), mostWidth),
          QWidget::minimumSizeHint().height()};
}

void KeypadPanel::LimitWidth(int pixels) {
  const int most = std::max(pixels, buttons.front()->minimumSizeHint().width());
  if (most == mostWidth) return;
  mostWidth = most;
  const bool isCut = minimumSizeHint().width() == mostWidth;
  telephone->setHorizontalScrollBarPolicy(isCut ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
  updateGeometry();
}

int KeypadPanel::WidthOf(QSize key) const {
  constexpr int around = 30;
  return columns * key.width() + style()->pixelMetric(QStyle::PM_ScrollBarExtent) + around;
}

QString KeypadPanel::Word(int number) const { return NumberedText(form.program, number); }

void KeypadPanel::Refresh() {
  if (!isVisible()) return;
  if (const QFont wanted = LanguageFont(form.cmdSave.Font); wanted.family() != font().family())
    setFont(wanted);
  const int tab = form.SSTab1.Tab();
  title->setText(Word(1389));
  setAccessibleName(Word(1389));
  const bool hasKeys = tab < gridCount;
  telephone->setVisible(hasKeys);
  empty->setVisible(!hasKeys);
  if (!hasKeys) {
    if (trying) Try(false);
    empty->setText(Word(1392));
    return;
  }
  rows = EffectiveRows(form, tab);
  keypad = KeypadOf(rows);
  tryButton->setText(Word(1399));
  tryButton->setToolTip(Word(1402));
  tryButton->setAccessibleDescription(Word(1402));
  ShowKeypad();
  ShowSequences();
  ShowVoiced();
}

void KeypadPanel::ShowKeypad() {
  for (std::size_t i = 0; i < buttons.size(); ++i) {
    const KeypadKey& key = keypad[i];
    KeyButton::Face face{key.state, {}, static_cast<int>(key.longer.size())};
    if (!key.exact.empty())
      face.label = ToQt(rows[static_cast<std::size_t>(key.exact.front() - 1)].label);
    else if (key.longer.size() == 1)
      face.label = RowText(rows[static_cast<std::size_t>(key.longer.front() - 1)]);
    buttons[i]->Show(face);
    SpeakKey(*buttons[i], key);
  }
}

void KeypadPanel::SpeakKey(KeyButton& button, const KeypadKey& key) {
  QStringList said;
  if (key.state == KeyState::free) said << Word(1393);
  if (key.state == KeyState::clash) said << Word(1396);
  for (const int row : key.exact) said << RowText(rows[static_cast<std::size_t>(row - 1)]);
  if (key.state == KeyState::waits) said << Word(1394);
  if (!key.longer.empty()) said << Word(1395).arg(key.longer.size());
  for (const int row : key.longer) said << RowText(rows[static_cast<std::size_t>(row - 1)]);
  const QString name(QChar(key.key));
  const QString description = said.join(", ");
  if (button.accessibleName() != name) button.setAccessibleName(name);
  if (button.accessibleDescription() != description) {
    button.setAccessibleDescription(description);
    button.setToolTip(said.join("\n"));
  }
}

void KeypadPanel::ShowSequences() {
  if (trying) return;
  const auto* const found = std::ranges::find(keypad, pointed, &KeypadKey::key);
  std::vector<const MenuRow*> shown;
  QString heading;
  if (pointed != 0 && found != keypad.end()) {
    heading = Word(1398).arg(QChar(pointed));
    for (const std::vector<int>* part : {&found->exact, &found->longer})
      for (const int row : *part) shown.push_back(&rows[static_cast<std::size_t>(row - 1)]);
  } else {
    heading = Word(1408);
  }
  sequencesTitle->setText(heading);
  sequences->setAccessibleName(heading);
  ShowRows(*sequences, shown, pointed != 0 ? Word(1393) : QString());
}

void KeypadPanel::ShowVoiced() {
  voicedTitle->setText(Word(1390));
  voiced->setAccessibleName(Word(1390));
  ShowRows(*voiced, VoicedRows(form.SSTab1.Tab(), rows), Word(1391));
}

void KeypadPanel::ShowRows(QListWidget& list, const std::vector<const MenuRow*>& shown,
                           const QString& none) {
  QStringList wanted;
  for (const MenuRow* row : shown) wanted << RowText(*row);
  if (wanted.isEmpty() && !none.isEmpty()) wanted << none;
  const auto count = static_cast<int>(wanted.size());
  bool same = list.count() == count;
  for (int i = 0; same && i < count; ++i) same = list.item(i)->text() == wanted[i];
  if (!same) {
    list.clear();
    list.addItems(wanted);
  }
  for (int i = 0; i < count; ++i) {
    const auto place = static_cast<std::size_t>(i);
    list.item(i)->setData(Qt::UserRole,
                          place < shown.size() ? QVariant(shown[place]->row) : QVariant());
    list.item(i)->setToolTip(wanted[i]);
    if (shown.empty()) list.item(i)->setFlags(Qt::NoItemFlags);
  }
}

void KeypadPanel::GoToRow(int row) {
  if (row < 1 || row > static_cast<int>(rows.size())) return;
  does.goTo(form.SSTab1.Tab(), rows[static_cast<std::size_t>(row - 1)].token);
}

void KeypadPanel::Choose(const KeypadKey& key, const QPoint& place) {
  if (key.exact.size() + key.longer.size() == 1)
    GoToRow(key.exact.empty() ? key.longer.front() : key.exact.front());
  else
    OfferMenu(key, place);
}

void KeypadPanel::OfferMenu(const KeypadKey& key, const QPoint& place) {
  QMenu menu(this);
  menu.setObjectName("keyMenu");
  // The rows may be others by the time that one is chosen.
  const KeypadKey chosen = key;
  for (const std::vector<int>* part : {&chosen.exact, &chosen.longer})
    for (const int row : *part) {
      QString text = RowText(rows[static_cast<std::size_t>(row - 1)]);
      menu.addAction(text.replace("&", "&&"))->setData(row);
    }
  const KeyGrid& grid = At(form.gridKeyMap, form.SSTab1.Tab());
  if (chosen.state == KeyState::free && grid.HasRowInHand()) {
    QString text =
        Word(1397).arg(QChar(chosen.key)).arg(ToQt(grid.Text(grid.Row(), Column::Action)));
    menu.addAction(text.replace("&", "&&"))->setObjectName("giveKey");
  }
  // What is chosen is done once the menu is gone and has given the keyboard back.
  const QAction* action = menu.isEmpty() ? nullptr : menu.exec(place);
  if (action == nullptr) return;
  if (action->data().isValid())
    GoToRow(action->data().toInt());
  else
    does.typeKey(chosen.key);
}

void KeypadPanel::TakeKeyboard() {
  if (!telephone->isHidden()) GiveKeyboardTo(*buttons.front());
}

void KeypadPanel::GiveKeyboardTo(QWidget& part) {
  part.setFocus(Qt::OtherFocusReason);
  telephone->ensureWidgetVisible(&part, 0, 0);
}

void KeypadPanel::Try(bool on) {
  if (on == trying) return;
  trying = on;
  tryButton->setChecked(on);
  SetHelpPage(*this, on ? "trying.html" : "keypad.html");
  pauseTimer.stop();
  trial.Drop();
  sequences->clear();
  if (on) {
    sequencesTitle->setText(Word(1402));
    if (ButtonWithKeyboard() == nullptr) TakeKeyboard();
  } else {
    ShowSequences();
  }
}

void KeypadPanel::Press(char key) {
  pauseTimer.stop();
  Tell(trial.Press(key));
}

void KeypadPanel::Tell(const std::vector<Happening>& happened) {
  for (const Happening& each : happened) {
    QStringList labels;
    for (const int row : each.rows) labels << ToQt(rows[static_cast<std::size_t>(row - 1)].label);
    const QString run = ToQt(each.run);
    QString line;
    switch (each.what) {
      case Outcomes::does:
        line = run + "  " + labels.join(QString());
        break;
      case Outcomes::nothing:
        line = Word(1401).arg(run);
        break;
      case Outcomes::clash:
        line = Word(1407).arg(run, labels.join(", "));
        break;
      case Outcomes::waits:
        line = Word(1400).arg(run);
        pauseTimer.start();
        break;
    }
    sequences->addItem(line);
    sequences->item(sequences->count() - 1)->setToolTip(line);
    sequences->setCurrentRow(sequences->count() - 1);
    sequences->setAccessibleDescription(line);
    QAccessibleEvent said(sequences, QAccessible::Alert);
    QAccessible::updateAccessibility(&said);
  }
  sequences->scrollToBottom();
}

KeyButton* KeypadPanel::ButtonWithKeyboard() const {
  KeyButton* const* found =
      std::ranges::find_if(buttons, [](KeyButton* each) { return each->hasFocus(); });
  return found == buttons.end() ? nullptr : *found;
}

void KeypadPanel::keyPressEvent(QKeyEvent* event) {
  const QString text = event->text();
  if (trying && text.size() == 1 &&
      telephoneKeys.find(static_cast<char>(text.front().toLatin1())) != std::string_view::npos) {
    Press(text.front().toLatin1());
    return;
  }
  if (event->key() == Qt::Key_Escape) {
    if (trying)
      Try(false);
    else
      does.leave();
    return;
  }
  const KeyButton* present = ButtonWithKeyboard();
  if (present == nullptr) return QWidget::keyPressEvent(event);
  const auto place = static_cast<int>(std::ranges::find(buttons, present) - buttons.begin());
  const int step = event->key() == Qt::Key_Left    ? -1
                   : event->key() == Qt::Key_Right ? +1
                   : event->key() == Qt::Key_Up    ? -columns
                   : event->key() == Qt::Key_Down  ? +columns
                                                   : 0;
  const int next = place + step;
  if (step == 0) return QWidget::keyPressEvent(event);
  if (next >= static_cast<int>(buttons.size()))
    GiveKeyboardTo(*tryButton);
  else if (next >= 0)
    GiveKeyboardTo(*buttons[static_cast<std::size_t>(next)]);
}

void KeypadPanel::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange && voicedTitle != nullptr) ShowHeadings();
}

void KeypadPanel::ShowHeadings() {
  for (QLabel* heading : {title, voicedTitle}) heading->setFont(HeadingFont(font()));
}

}  // namespace dialwright
