#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/Control.h"
#include "controls/Property.h"

namespace dialwright {

enum class MousePointer { standard = 0, hourglass = 11 };

/// A window of the program: its title, its pointer and its controls.
struct Form {
  explicit Form(std::string formName) : Name(std::move(formName)) {}
  virtual ~Form() = default;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  void PropertyChanged() const {
    if (changed) changed();
  }

  std::string Name;
  Property<std::string, Form> Caption{*this, {}};
  Property<MousePointer, Form> Pointer{*this, MousePointer::standard};
  std::vector<Control*> Controls;   ///< all of them, each with its name
  std::function<void()> Auto_Init;  ///< sets all texts of the form anew
  std::function<void()> changed;    ///< for whoever shows the form
};

}  // namespace dialwright
