#include "desktop/KeyEdit.h"

#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <algorithm>

#include "desktop/QtText.h"
#include "text/Text.h"

namespace dialwright {

namespace {

constexpr int keyCut = 24;  // the codes that the keys have as characters
constexpr int keyPaste = 22;
constexpr int keyUndo = 26;
constexpr int keyRedo = 25;
constexpr int keyDelete = 127;

/// The system counts characters, the toolkit UTF-16 units.
qsizetype CharactersIn(const QString& text) { return text.toUcs4().size(); }

QString FirstOf(const QString& text, qsizetype count) {
  const QList<uint> characters = text.toUcs4();
  if (characters.size() <= count) return text;
  return ToQt(
      FirstCharacters(FromQt(text), static_cast<std::size_t>(std::max<qsizetype>(0, count))));
}

int UnitsOf(const QString& text, std::size_t characters) {
  return static_cast<int>(FirstOf(text, static_cast<qsizetype>(characters)).size());
}

int ClassicCode(const QString& text) { return static_cast<unsigned char>(text.toUtf8().front()); }

Qt::KeyboardModifiers ModifiersBesideShift(const QKeyEvent& event) {
  return event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
}

/// Whether the key writes something. With Control and Alt together it is the third letter of a key.
bool IsCharacter(const QKeyEvent& event) {
  const QString text = event.text();
  const Qt::KeyboardModifiers modifiers = ModifiersBesideShift(event);
  if (text.isEmpty() || modifiers == Qt::ControlModifier || modifiers == Qt::AltModifier)
    return false;
  const QChar first = text.front();
  return first.isPrint() || first.isSurrogate() || first.category() == QChar::Other_PrivateUse;
}

/// The code of a key that gives a character which changes no text, such as Escape or Control and a
/// letter; 0 for any other.
int ControlCode(const QKeyEvent& event) {
  const Qt::KeyboardModifiers modifiers = ModifiersBesideShift(event);
  if (modifiers != Qt::NoModifier && modifiers != Qt::ControlModifier) return 0;
  const int key = event.key();
  if (modifiers == Qt::ControlModifier && key >= Qt::Key_A && key <= Qt::Key_Z)
    return key - Qt::Key_A + 1;
  const QString text = event.text();
  return text.size() == 1 && text.front() < ' ' ? text.front().unicode() : 0;
}

struct EditKey {
  QKeySequence::StandardKey key;
  int code;
};

constexpr EditKey editKeys[] = {
    {QKeySequence::Cut, keyCut},
    {QKeySequence::Undo, keyUndo},
    {QKeySequence::Redo, keyRedo},
    {QKeySequence::DeleteEndOfLine, keyDelete},
    {QKeySequence::DeleteCompleteLine, keyDelete},
};

/// The code of a key that takes text away or brings it back; 0 for any other.
int EditCode(const QKeyEvent& event) {
  if (event.key() == Qt::Key_Backspace) return keyBackspace;
  if (event.key() == Qt::Key_Delete) return keyDelete;
  for (const EditKey& row : editKeys)
    if (event.matches(row.key)) return row.code;
  return 0;
}

}  // namespace

KeyEdit::KeyEdit(EditBox& editBox, QWidget* parent) : QLineEdit(parent), box(editBox) {
  setAcceptDrops(false);
  setDragEnabled(false);
  connect(this, &QLineEdit::textEdited, this, [this](const QString& text) {
    if (textTyped) textTyped(text);
  });
  connect(this, &QLineEdit::selectionChanged, this, [this] { TellSelection(); });
  connect(this, &QLineEdit::cursorPositionChanged, this, [this] { TellSelection(); });
}

void KeyEdit::Refresh() {
  refreshing = true;
  const QString wanted = ToQt(box.Text());
  if (text() != wanted) setText(wanted);
  const int start = UnitsOf(wanted, box.SelStart);
  const int length = UnitsOf(wanted, box.SelStart + box.SelLength) - start;
  if (length > 0) {
    if (selectionStart() != start || selectionLength() != length) setSelection(start, length);
  } else if (hasSelectedText() || cursorPosition() != start) {
    deselect();
    setCursorPosition(start);
  }
  refreshing = false;
}

void KeyEdit::TellSelection() {
  if (refreshing) return;
  const int start = hasSelectedText() ? selectionStart() : cursorPosition();
  box.SelStart = static_cast<std::size_t>(CharactersIn(text().left(start)));
  box.SelLength = static_cast<std::size_t>(CharactersIn(selectedText()));
}

void KeyEdit::Change(int keyAscii, const std::function<void()>& edit) {
  if (keyPress) keyPress(keyAscii);
  edit();
}

QString KeyEdit::CutToRoom(const QString& added) const {
  const qsizetype limit = box.MaxLength();
  if (limit == 0) return added;
  return FirstOf(added, limit - CharactersIn(text()) + CharactersIn(selectedText()));
}

void KeyEdit::TypeText(const QString& added) {
  Change(ClassicCode(added), [this, &added] {
    const QString fitting = CutToRoom(added);
    if (!fitting.isEmpty()) insert(fitting);
    if (fitting != added && tellFull) tellFull();
  });
}

void KeyEdit::Replace(const QString& wanted) {
  selectAll();
  const QString fitting = CutToRoom(wanted);
  fitting.isEmpty() ? del() : insert(fitting);
  selectAll();
}

void KeyEdit::paste(QClipboard::Mode mode) {
  QString added = QGuiApplication::clipboard()->text(mode);
  const auto isLineEnd = [](QChar character) { return character == '\n' || character == '\r'; };
  added.truncate(std::find_if(added.cbegin(), added.cend(), isLineEnd) - added.cbegin());
  if (!added.isEmpty())
    TypeText(added);
  else if (keyPress)
    keyPress(keyPaste);
}

bool KeyEdit::event(QEvent* event) {
  // What is typed here is taken back as one step, by the menu's keys.
  if (event->type() == QEvent::ShortcutOverride) {
    const auto& key = static_cast<QKeyEvent&>(*event);
    if (key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo)) {
      event->ignore();
      return true;
    }
  }
  return QLineEdit::event(event);
}

void KeyEdit::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Paste)) {
    paste(QClipboard::Clipboard);
    return;
  }
  if (const int code = EditCode(*event); code != 0) {
    Change(code, [this, event] { QLineEdit::keyPressEvent(event); });
    return;
  }
  if (IsCharacter(*event))
    TypeText(event->text());
  else if (const int code = ControlCode(*event); code != 0)
    Change(code, [this, event] { QLineEdit::keyPressEvent(event); });
  else if (ModifiersBesideShift(*event) == Qt::AltModifier && !event->text().isEmpty())
    event->ignore();  // the toolkit would write the letter
  else
    QLineEdit::keyPressEvent(event);
}

void KeyEdit::focusOutEvent(QFocusEvent* event) {
  if (event->reason() != Qt::MenuBarFocusReason) {
    QLineEdit::focusOutEvent(event);
    return;
  }
  // The menu gives the keyboard back, and the text shall be selected then as it is now.
  refreshing = true;
  QLineEdit::focusOutEvent(event);
  Refresh();
}

void KeyEdit::inputMethodEvent(QInputMethodEvent* event) {
  const QString committed = event->commitString();
  if (committed.isEmpty() && event->replacementLength() == 0) {
    QLineEdit::inputMethodEvent(event);
    return;
  }
  QInputMethodEvent fitting(event->preeditString(), event->attributes());
  Change(committed.isEmpty() ? keyBackspace : ClassicCode(committed), [&] {
    fitting.setCommitString(CutToRoom(committed), event->replacementStart(),
                            event->replacementLength());
    QLineEdit::inputMethodEvent(&fitting);
  });
}

void KeyEdit::mouseReleaseEvent(QMouseEvent* event) {
  const QClipboard* clipboard = QGuiApplication::clipboard();
  if (event->button() != Qt::MiddleButton || !clipboard->supportsSelection()) {
    QLineEdit::mouseReleaseEvent(event);
    return;
  }
  deselect();
  setCursorPosition(cursorPositionAt(event->position().toPoint()));
  paste(QClipboard::Selection);
}

void KeyEdit::contextMenuEvent(QContextMenuEvent* event) {
  // The toolkit's own menu would change the text without a key press. Its words serve this one.
  struct MenuRow {
    const char* name;
    QString text;
    bool enabled;
    std::function<void()> run;
  };
  const bool selected = hasSelectedText();
  const MenuRow rows[] = {
      {"undo", QLineEdit::tr("&Undo"), isUndoAvailable(),
       [this] { Change(keyUndo, [this] { undo(); }); }},
      {"redo", QLineEdit::tr("&Redo"), isRedoAvailable(),
       [this] { Change(keyRedo, [this] { redo(); }); }},
      {"cut", QLineEdit::tr("Cu&t"), selected, [this] { Change(keyCut, [this] { cut(); }); }},
      {"copy", QLineEdit::tr("&Copy"), selected, [this] { copy(); }},
      {"paste", QLineEdit::tr("&Paste"), !QGuiApplication::clipboard()->text().isEmpty(),
       [this] { paste(QClipboard::Clipboard); }},
      {"delete", QLineEdit::tr("Delete"), selected,
       [this] { Change(keyDelete, [this] { del(); }); }},
      {"selectAll", QLineEdit::tr("Select All"), !text().isEmpty(), [this] { selectAll(); }},
  };
  QMenu menu(this);
  for (const MenuRow& row : rows) {
    QAction* action = menu.addAction(row.text, row.run);
    action->setObjectName(row.name);
    action->setEnabled(row.enabled);
  }
  menu.exec(event->globalPos());
}

}  // namespace dialwright
