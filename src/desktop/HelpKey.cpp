#include "desktop/HelpKey.h"

#include <QApplication>
#include <QKeyEvent>
#include <QVariant>
#include <QWidget>

#include "desktop/QtText.h"
#include "shell/Program.h"
#include "shell/frmMain.h"

namespace dialwright {

namespace {

constexpr const char* pageProperty = "helpPage";

}  // namespace

void SetHelpPage(QWidget& part, const char* page) {
  part.setProperty(pageProperty, page == nullptr ? QVariant() : QVariant(page));
}

QString HelpPageOf(const QWidget* part) {
  for (; part != nullptr; part = part->parentWidget())
    if (const QVariant page = part->property(pageProperty); page.isValid()) return page.toString();
  return {};
}

HelpKey::HelpKey(Program& theProgram) : program(theProgram) { qApp->installEventFilter(this); }

bool HelpKey::eventFilter(QObject* watched, QEvent* event) {
  const bool isOverride = event->type() == QEvent::ShortcutOverride;
  if ((!isOverride && event->type() != QEvent::KeyPress) || !watched->isWidgetType()) return false;
  const auto& key = static_cast<const QKeyEvent&>(*event);
  if (key.key() != Qt::Key_F1 || key.modifiers() != Qt::NoModifier) return false;
  const QString page = HelpPageOf(static_cast<QWidget*>(watched));
  if (page.isEmpty()) return false;
  event->accept();  // so that the key is none of the menu's
  if (!isOverride && !key.isAutoRepeat()) {
    const std::string file = program.help.getHelpFileName();
    program.help.showCHMHelp(file + "::/" + FromQt(page), program.main->hWnd);
  }
  return true;
}

}  // namespace dialwright
