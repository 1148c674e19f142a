#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "controls/Control.h"
#include "controls/Form.h"

namespace dialwright {

class Program;

/// The about box: version, maker's lines, and the only place where a language can be picked. One
/// instance, created on first use, shown modally, hidden and not unloaded.
struct frmAbout : Form {
  explicit frmAbout(Program& theProgram);

  Program& program;
  CommandButton cmdOK;
  Label lblVarloAddress1, lblVarloAddress2, lblVarloAddress3;
  Label lblChangeLanguage;  ///< a click on it pops up `mnuSelectLanguage`
  Label lblTrademark, lblRights, lblVersion, lblVersionTitle;
  Label picVarloLogo, picMeridLogo;
  MenuItem mnuSelectLanguage;
  /// One item a language; its tag is the language's id.
  struct LanguageItem : MenuItem {
    std::string Tag;
  };
  std::vector<std::unique_ptr<LanguageItem>> mnuLanguageList;
  Property<bool, Form> Shown{*this, false};

  /// For whoever shows the box: runs it modally, until `Shown` is false. Without one, showing only
  /// sets the state.
  std::function<void()> runModal;
};

/// Shows the box modally, creating it on first use.
void ShowAbout(Program& program);

/// Loads the box: texts, version, languages.
void frmAbout_Load(frmAbout& about);
void frmAbout_Auto_Init(frmAbout& about);

/// Picks the language of an element of `mnuLanguageList`: everything that is loaded speaks it at
/// once.
void PickLanguage(frmAbout& about, std::size_t element);

}  // namespace dialwright
