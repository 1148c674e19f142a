#pragma once

#include <functional>
#include <string>

#include "controls/Property.h"

namespace dialwright {

class Focus;

struct ControlFont {
  int Charset = 1;
  std::string Name;

  friend bool operator==(const ControlFont&, const ControlFont&) = default;
};

/// What all controls have. State is Enabled, Visible and Caption; hiding or disabling changes no
/// value, but takes the focus from the control.
struct Control {
  Control() = default;
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  /// For the properties: the control has a new state.
  void PropertyChanged() const;

  std::string Name;               ///< as the form knows it: "cmdSave", "txtKeyAssignment(0)"
  int HomeTab = -1;               ///< the tab it stands on; -1 outside the tabs
  Focus* HomeFocus = nullptr;     ///< the focus of its form, if it can have it
  std::function<void()> changed;  ///< for whoever shows the control

  Property<bool, Control> Enabled{*this, true};
  Property<bool, Control> Visible{*this, true};
  Property<std::string, Control> Caption{*this, {}};
  Property<ControlFont, Control> Font{*this, {}};
};

struct Label : Control {};

struct CommandButton : Control {
  std::function<void()> Click;
};

/// The two arrows beside the menu order.
struct SpinButton : Control {
  std::function<void()> UpClick;
  std::function<void()> DownClick;
};

/// A menu or an item of one. It takes no focus. To offer an item is to make it visible.
struct MenuItem : Control {
  /// Whether the user can reach it: it and the menus that it stands in are visible.
  bool Offered() const { return Visible() && (Parent == nullptr || Parent->Offered()); }

  MenuItem* Parent = nullptr;
  Property<bool, Control> Checked{*this, false};
  std::function<void()> Click;
};

/// A check box: 0 or 1. Whoever changes the value runs the click handler; setting the value that it
/// has runs nothing.
struct CheckBox : Control {
  int Value() const { return value; }
  void SetValue(int next);
  /// Puts a value back, or in place, without the click handler.
  void PutBack(int next);

  std::function<void()> Click;

 private:
  int value = 0;
};

}  // namespace dialwright
