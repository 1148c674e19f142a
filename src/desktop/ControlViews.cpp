#include "desktop/ControlViews.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QTabBar>
#include <QTabWidget>
#include <algorithm>

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

QKeySequence MnemonicIn(const QString& caption) { return QKeySequence::mnemonic(caption); }

}  // namespace

void ControlViews::JoinPlain(const Control& control, QWidget& widget) {
  widget.setObjectName(ToQt(control.Name));
  Show([&control, &widget, font = ControlFont{}]() mutable {
    widget.setEnabled(control.Enabled);
    widget.setVisible(control.Visible);
    if (font == control.Font()) return;
    font = control.Font;
    widget.setFont(LanguageFont(font));
  });
}

void ControlViews::Join(Label& label, QLabel& widget) {
  JoinPlain(label, widget);
  Show([&label, &widget] { widget.setText(LinesToQt(label.Caption())); });
}

void ControlViews::Join(Label& label, QGroupBox& widget) {
  JoinPlain(label, widget);
  Show([&label, &widget] {
    if (const QString title = ToQt(label.Caption); title != widget.title()) widget.setTitle(title);
  });
}

void ControlViews::Join(Label& label, QTextEdit& widget) {
  JoinPlain(label, widget);
  TakesFocus(label, widget);
  AddPart(label, *widget.viewport());
  Show([&label, &widget] {
    if (const QString text = LinesToQt(label.Caption()); text != widget.toPlainText())
      widget.setPlainText(text);
  });
}

void ControlViews::Join(CommandButton& button, QPushButton& widget) {
  JoinPlain(button, widget);
  TakesFocus(button, widget);
  AddPart(button, widget);
  Show([&button, &widget] { widget.setText(ToQt(button.Caption)); });
  QObject::connect(&widget, &QPushButton::clicked, &widget, [this, &button] {
    act(button, [&button] {
      if (button.Click) button.Click();
    });
  });
}

void ControlViews::Join(CheckBox& box, QCheckBox& widget) {
  JoinPlain(box, widget);
  TakesFocus(box, widget);
  AddPart(box, widget);
  Show([&box, &widget] {
    widget.setText(ToQt(box.Caption));
    widget.setChecked(box.Value() != 0);
  });
  // The click turns over the value that the control has now, which need not be what was on screen.
  QObject::connect(&widget, &QCheckBox::clicked, &widget, [this, &box, &widget] {
    act(box, [&box] { box.SetValue(box.Value() == 0 ? 1 : 0); });
    widget.setChecked(box.Value() != 0);
  });
}

void ControlViews::Join(EditBox& box, KeyEdit& widget) {
  JoinPlain(box, widget);
  TakesFocus(box, widget);
  AddPart(box, widget, {}, true);
  Show([&widget] { widget.Refresh(); });
  widget.keyPress = [this, &box](int keyAscii) {
    act(box, [&box, keyAscii] { box.PressKey(keyAscii); });
  };
  widget.textTyped = [this, &box, &widget](const QString& text) {
    act(box, [&box, &text, &widget] {
      box.TextEdited(FromQt(text));
      widget.TellSelection();
    });
  };
}

void ControlViews::Join(KeyGrid& grid, GridView& widget) {
  JoinPlain(grid, widget);
  TakesFocus(grid, widget);
  AddPart(grid, *widget.viewport(), [&grid, &widget](QPoint place) -> Action {
    return [&grid, row = widget.RowAtPlace(place)] { grid.SetRow(row); };
  });
  AddPart(grid, *widget.horizontalHeader()->viewport());
  Show([&widget] { widget.Refresh(); });
  widget.rowWanted = [this, &grid](int row) { act(grid, [&grid, row] { grid.SetRow(row); }); };
}

void ControlViews::Join(SpinButton& spin, SpinArrows& widget) {
  JoinPlain(spin, widget);
  TakesFocus(spin, widget);
  for (QWidget* part : {static_cast<QWidget*>(&widget), static_cast<QWidget*>(&widget.UpButton()),
                        static_cast<QWidget*>(&widget.DownButton())})
    AddPart(spin, *part);
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

void ControlViews::Join(TabStrip& tabs, QTabWidget& widget) {
  QTabBar& bar = *widget.tabBar();
  JoinPlain(tabs, bar);
  TakesFocus(tabs, bar);
  AddPart(tabs, bar, [&tabs, &bar](QPoint place) -> Action {
    return [&tabs, tab = bar.tabAt(place)] { tabs.SetTab(tab); };
  });
  Show([&tabs, &widget] {
    for (int tab = 0; tab < TabStrip::tabCount; ++tab) {
      widget.setTabVisible(tab, tabs.TabVisible(tab));
      if (const QString caption = ToQt(tabs.TabCaption(tab)); caption != widget.tabText(tab))
        widget.setTabText(tab, caption);
    }
    widget.setCurrentIndex(tabs.Tab());
  });
  // By its keys the bar changes the tab itself.
  QObject::connect(&bar, &QTabBar::currentChanged, &bar, [this, &tabs](int tab) {
    if (!refreshing) act(tabs, [&tabs, tab] { tabs.SetTab(tab); });
  });
}

void ControlViews::Name(Control& control, QLabel& label) { label.setBuddy(FocusWidget(&control)); }

void ControlViews::Refresh() {
  refreshing = true;
  for (const auto& show : shows) show();
  refreshing = false;
}

const ControlViews::Part* ControlViews::PartAt(const QWidget* widget) const {
  const auto found = parts.find(widget);
  return found == parts.end() ? nullptr : &found->second;
}

std::optional<ControlViews::Mnemonic> ControlViews::MnemonicOf(QWidget* widget,
                                                               const QKeySequence& key) const {
  const auto* label = qobject_cast<QLabel*>(widget);
  const QWidget* target = label != nullptr ? label->buddy() : widget;
  const Part* part = PartAt(target);
  if (part == nullptr) return std::nullopt;
  Mnemonic result{part->control, {}};
  if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
    result.action = [button] { button->click(); };
  } else if (auto* bar = qobject_cast<QTabBar*>(widget)) {
    for (int tab = 0; tab < bar->count(); ++tab)
      if (bar->isTabVisible(tab) && MnemonicIn(bar->tabText(tab)) == key)
        result.action = [bar, tab] { bar->setCurrentIndex(tab); };
  }
  return result;
}

QWidget* ControlViews::FocusWidget(const Control* control) const {
  const auto found = focusWidgets.find(control);
  return found == focusWidgets.end() ? nullptr : found->second;
}

bool ControlViews::HoldsKeyboard(const QWidget& widget) const {
  return std::any_of(focusWidgets.begin(), focusWidgets.end(),
                     [&widget](const auto& row) { return row.second == &widget; });
}

void ControlViews::AddPart(Control& control, QWidget& widget,
                           std::function<Action(QPoint)> actionAt, bool anyButton) {
  parts[&widget] = {&control, std::move(actionAt), anyButton};
}

void ControlViews::TakesFocus(Control& control, QWidget& widget) {
  // By the mouse the form's focus moves, not the toolkit's: see FocusFilter.
  widget.setFocusPolicy(Qt::TabFocus);
  focusWidgets[&control] = &widget;
}

}  // namespace dialwright
