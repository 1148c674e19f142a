#include "MirrorCheck.h"

#include <QAction>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTableView>
#include <QTextDocument>
#include <QTextEdit>

#include "desktop/MainWindow.h"
#include "desktop/QtText.h"
#include "shell/frmMain.h"

namespace dialwright {

namespace {

class Comparison {
 public:
  std::string first;

  void Same(const std::string& what, const QString& shown, const QString& held) {
    if (first.empty() && shown != held)
      first = what + " shows \"" + FromQt(shown) + "\" for \"" + FromQt(held) + "\"";
  }
  void Same(const std::string& what, int shown, int held) {
    Same(what, QString::number(shown), QString::number(held));
  }
};

void CompareItem(const MenuItem& item, const MainWindow& window, Comparison& compare) {
  const auto* action = window.findChild<QAction*>(ToQt(item.Name));
  compare.Same(item.Name + " there", action != nullptr, true);
  if (action == nullptr) return;
  compare.Same(item.Name, action->text(), ToQt(item.Caption));
  compare.Same(item.Name + " visible", action->isVisible(), item.Visible);
  // What is not visible cannot be used either, says the toolkit.
  compare.Same(item.Name + " enabled", action->isEnabled(), item.Visible && item.Enabled);
  compare.Same(item.Name + " checked", action->isChecked(), item.Checked);
}

void CompareGrid(const KeyGrid& grid, const QTableView& view, Comparison& compare) {
  const QAbstractItemModel& rows = *view.model();
  compare.Same(grid.Name + " rows", rows.rowCount(), grid.Rows() - 1);
  if (!compare.first.empty()) return;
  compare.Same(grid.Name + " current row", view.currentIndex().row() + 1, grid.Row());
  compare.Same(grid.Name + " selected rows",
               static_cast<int>(view.selectionModel()->selectedRows().size()),
               grid.HasRowInHand() ? 1 : 0);
  for (int row = 0; row < grid.Rows(); ++row)
    for (const Column column : {Column::Action, Column::KeyAssignment}) {
      const int place = static_cast<int>(column);
      const QVariant shown = row == 0 ? rows.headerData(place, Qt::Horizontal, Qt::DisplayRole)
                                      : rows.index(row - 1, place).data();
      compare.Same(grid.Name + " row " + std::to_string(row), shown.toString(),
                   ToQt(grid.Text(row, column)));
    }
}

void CompareTabs(const TabStrip& tabs, const QTabBar& bar, Comparison& compare) {
  compare.Same("current tab", bar.currentIndex(), tabs.Tab());
  for (int tab = 0; tab < TabStrip::tabCount; ++tab) {
    compare.Same("tab " + std::to_string(tab), bar.tabText(tab), ToQt(tabs.TabCaption(tab)));
    compare.Same("tab there " + std::to_string(tab), bar.isTabVisible(tab), tabs.TabVisible(tab));
  }
}

/// The text that a widget of any kind shows.
QString ShownText(const QWidget& widget) {
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) return label->text();
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) return button->text();
  if (const auto* frame = qobject_cast<const QGroupBox*>(&widget)) return frame->title();
  // The plain text would have a blank for each no-break space.
  if (const auto* text = qobject_cast<const QTextEdit*>(&widget))
    return text->document()->toRawText().replace(QChar::ParagraphSeparator, '\n');
  return {};
}

void CompareWidget(const Control& control, const QWidget& widget, Comparison& compare) {
  compare.Same(control.Name + " enabled", widget.isEnabled(), control.Enabled);
  if (const auto* grid = dynamic_cast<const KeyGrid*>(&control)) {
    CompareGrid(*grid, static_cast<const QTableView&>(widget), compare);
  } else if (const auto* box = dynamic_cast<const EditBox*>(&control)) {
    const auto& edit = static_cast<const QLineEdit&>(widget);
    compare.Same(control.Name, edit.text(), ToQt(box->Text()));
    compare.Same(control.Name + " selected", static_cast<int>(edit.selectedText().size()),
                 static_cast<int>(box->SelLength));
  } else if (const auto* check = dynamic_cast<const CheckBox*>(&control)) {
    compare.Same(control.Name, static_cast<const QCheckBox&>(widget).isChecked(), check->Value());
    compare.Same(control.Name, ShownText(widget), ToQt(control.Caption));
  } else if (const auto* tabs = dynamic_cast<const TabStrip*>(&control)) {
    CompareTabs(*tabs, static_cast<const QTabBar&>(widget), compare);
  } else {
    compare.Same(control.Name, ShownText(widget), LinesToQt(control.Caption()));
  }
}

}  // namespace

std::string MirrorDifference(const frmMain& form, MainWindow& window) {
  Comparison compare;
  compare.Same("title", window.windowTitle(), ToQt(form.Caption) + "[*]");
  for (const Control* each : form.Controls) {
    const Control& control = *each;
    if (const auto* item = dynamic_cast<const MenuItem*>(each)) {
      CompareItem(*item, window, compare);
      continue;
    }
    // A cast that fails does not mean a null.
    // NOLINTNEXTLINE(clang-analyzer-core.NonNullParamChecker)
    const auto* widget = window.findChild<QWidget*>(ToQt(control.Name));
    compare.Same(control.Name + " there", widget != nullptr, true);
    if (widget != nullptr) CompareWidget(control, *widget, compare);
  }
  const QWidget* keyboard = window.focusWidget();
  const Control* active = form.focus.ActiveControl();
  compare.Same("focus", keyboard != nullptr ? keyboard->objectName() : QString(),
               active != nullptr ? ToQt(active->Name) : QString());
  return compare.first;
}

}  // namespace dialwright
