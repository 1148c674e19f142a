#include "desktop/ControlViews.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QTabBar>
#include <QTabWidget>

#include "controls/EditBox.h"
#include "controls/KeyGrid.h"
#include "controls/TabStrip.h"
#include "desktop/GridView.h"
#include "desktop/KeyEdit.h"
#include "desktop/LanguageFontResolver.h"
#include "desktop/QtText.h"
#include "desktop/SpinArrows.h"

namespace dialwright {

namespace {

/// A caption without the marks of its mnemonic, as it is spoken.
QString spoken(const QString& caption) {
  QString text = caption;
  text.replace("&&", QChar(1));
  text.remove('&');
  return text.replace(QChar(1), "&");
}

QKeySequence mnemonic(const QString& caption) { return QKeySequence::mnemonic(caption); }

}  // namespace

void ControlViews::joinPlain(const Control& control, QWidget& widget) {
  widget.setObjectName(toQt(control.Name));
  showWith([&control, &widget, font = ControlFont{}]() mutable {
    widget.setEnabled(control.Enabled);
    widget.setVisible(control.Visible);
    if (font == control.Font()) return;
    font = control.Font;
    widget.setFont(languageFont(font));
  });
}

void ControlViews::join(Label& label, QLabel& widget) {
  joinPlain(label, widget);
  showWith([&label, &widget] { widget.setText(linesToQt(label.Caption())); });
}

void ControlViews::join(Label& label, QGroupBox& widget) {
  joinPlain(label, widget);
  showWith([&label, &widget] {
    if (const QString title = toQt(label.Caption); title != widget.title()) widget.setTitle(title);
  });
}

void ControlViews::join(Label& label, QTextEdit& widget) {
  joinPlain(label, widget);
  showWith([&label, &widget] {
    if (const QString text = linesToQt(label.Caption()); text != widget.toPlainText())
      widget.setPlainText(text);
  });
}

void ControlViews::join(CommandButton& button, QPushButton& widget) {
  joinPlain(button, widget);
  takesFocus(button, widget);
  addPart(button, widget);
  showWith([&button, &widget] { widget.setText(toQt(button.Caption)); });
  QObject::connect(&widget, &QPushButton::clicked, &widget, [this, &button] {
    act(button, [&button] {
      if (button.Click) button.Click();
    });
  });
}

void ControlViews::join(CheckBox& box, QCheckBox& widget) {
  joinPlain(box, widget);
  takesFocus(box, widget);
  addPart(box, widget);
  showWith([&box, &widget] {
    widget.setText(toQt(box.Caption));
    widget.setChecked(box.Value() != 0);
  });
  // The click turns over the value that the control has now, which need not be what was on screen.
  QObject::connect(&widget, &QCheckBox::clicked, &widget, [this, &box, &widget] {
    act(box, [&box] { box.SetValue(box.Value() == 0 ? 1 : 0); });
    widget.setChecked(box.Value() != 0);
  });
}

void ControlViews::join(EditBox& box, KeyEdit& widget) {
  joinPlain(box, widget);
  takesFocus(box, widget);
  addPart(box, widget, {}, true);
  showWith([&widget] { widget.refresh(); });
  widget.keyPress = [this, &box](int keyAscii) {
    act(box, [&box, keyAscii] {
      if (box.KeyPress) box.KeyPress(keyAscii);
    });
  };
  widget.textTyped = [this, &box, &widget](const QString& text) {
    act(box, [&box, &text, &widget] {
      box.TextEdited(fromQt(text));
      widget.tellSelection();
    });
  };
}

void ControlViews::join(KeyGrid& grid, GridView& widget) {
  joinPlain(grid, widget);
  takesFocus(grid, widget);
  addPart(grid, *widget.viewport(), [&grid, &widget](QPoint place) -> Action {
    return [&grid, row = widget.rowAtPlace(place)] { grid.SetRow(row); };
  });
  addPart(grid, *widget.horizontalHeader()->viewport());
  showWith([&widget] { widget.refresh(); });
  widget.rowWanted = [this, &grid](int row) { act(grid, [&grid, row] { grid.SetRow(row); }); };
}

void ControlViews::join(SpinButton& spin, SpinArrows& widget) {
  joinPlain(spin, widget);
  takesFocus(spin, widget);
  for (QWidget* part : {static_cast<QWidget*>(&widget), static_cast<QWidget*>(&widget.upButton()),
                        static_cast<QWidget*>(&widget.downButton())})
    addPart(spin, *part);
  widget.upClick = [this, &spin] {
    act(spin, [&spin] {
      if (spin.UpClick) spin.UpClick();
    });
  };
  widget.downClick = [this, &spin] {
    act(spin, [&spin] {
      if (spin.DownClick) spin.DownClick();
    });
  };
}

void ControlViews::join(TabStrip& tabs, QTabWidget& widget) {
  QTabBar& bar = *widget.tabBar();
  joinPlain(tabs, bar);
  takesFocus(tabs, bar);
  addPart(tabs, bar, [&tabs, &bar](QPoint place) -> Action {
    return [&tabs, tab = bar.tabAt(place)] { tabs.SetTab(tab); };
  });
  showWith([&tabs, &widget] {
    for (int tab = 0; tab < TabStrip::tabCount; ++tab) {
      widget.setTabVisible(tab, tabs.TabVisible(tab));
      if (const QString caption = toQt(tabs.TabCaption(tab)); caption != widget.tabText(tab))
        widget.setTabText(tab, caption);
    }
    widget.setCurrentIndex(tabs.Tab());
  });
  // By its keys the bar changes the tab itself.
  QObject::connect(&bar, &QTabBar::currentChanged, &bar, [this, &tabs](int tab) {
    if (!refreshing) act(tabs, [&tabs, tab] { tabs.SetTab(tab); });
  });
}

void ControlViews::name(Control& control, QLabel& label) {
  QWidget* widget = focusWidget(&control);
  label.setBuddy(widget);
  showWith([&label, widget] { widget->setAccessibleName(spoken(label.text())); });
}

void ControlViews::refresh() {
  refreshing = true;
  for (const auto& show : shows) show();
  refreshing = false;
}

const ControlViews::Part* ControlViews::partAt(const QWidget* widget) const {
  const auto found = parts.find(widget);
  return found == parts.end() ? nullptr : &found->second;
}

std::optional<ControlViews::Mnemonic> ControlViews::mnemonicOf(QWidget* widget,
                                                               const QKeySequence& key) const {
  const auto* label = qobject_cast<QLabel*>(widget);
  const QWidget* target = label != nullptr ? label->buddy() : widget;
  const Part* part = partAt(target);
  if (part == nullptr) return std::nullopt;
  Mnemonic result{part->control, {}};
  if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
    result.action = [button] { button->click(); };
  } else if (auto* bar = qobject_cast<QTabBar*>(widget)) {
    for (int tab = 0; tab < bar->count(); ++tab)
      if (bar->isTabVisible(tab) && mnemonic(bar->tabText(tab)) == key)
        result.action = [bar, tab] { bar->setCurrentIndex(tab); };
  }
  return result;
}

QWidget* ControlViews::focusWidget(const Control* control) const {
  const auto found = focusWidgets.find(control);
  return found == focusWidgets.end() ? nullptr : found->second;
}

void ControlViews::addPart(Control& control, QWidget& widget,
                           std::function<Action(QPoint)> actionAt, bool anyButton) {
  parts[&widget] = {&control, std::move(actionAt), anyButton};
}

void ControlViews::takesFocus(Control& control, QWidget& widget) {
  // By the mouse the form's focus moves, not the toolkit's: see FocusFilter.
  widget.setFocusPolicy(Qt::TabFocus);
  focusWidgets[&control] = &widget;
}

}  // namespace dialwright
