#include "shell/frmAbout.h"

#include <cstdlib>
#include <string>

#include "shell/Program.h"
#include "shell/ProgramVersion.h"

namespace dialwright {

frmAbout::frmAbout(Program& theProgram) : Form("frmAbout"), program(theProgram) {
  const std::pair<Control*, const char*> rows[] = {
      {&cmdOK, "cmdOK"},
      {&lblVarloAddress1, "lblVarloAddress1"},
      {&lblVarloAddress2, "lblVarloAddress2"},
      {&lblVarloAddress3, "lblVarloAddress3"},
      {&lblChangeLanguage, "lblChangeLanguage"},
      {&lblTrademark, "lblTrademark"},
      {&lblRights, "lblRights"},
      {&lblVersion, "lblVersion"},
      {&lblVersionTitle, "lblVersionTitle(1)"},
      {&picVarloLogo, "picVarloLogo"},
      {&picMeridLogo, "picMeridLogo"},
      {&mnuSelectLanguage, "mnuSelectLanguage"},
  };
  for (const auto& [control, name] : rows) {
    control->Name = name;
    Controls.push_back(control);
  }
  cmdOK.Click = [this] { Shown = false; };
  Auto_Init = [this] { frmAbout_Auto_Init(*this); };
}

void frmAbout_Auto_Init(frmAbout& about) {
  struct TextRow {
    Control& control;
    int number;
  };
  const TextRow rows[] = {
      {about.cmdOK, 1098},
      {about.lblVarloAddress1, 1017},
      {about.lblVarloAddress2, 1121},
      {about.lblVarloAddress3, 1153},
      {about.lblChangeLanguage, 1014},
      {about.lblTrademark, 1154},
      {about.lblRights, 1021},
      {about.lblVersionTitle, 1156},
      {about.mnuSelectLanguage, 1126},
  };
  about.Caption = about.program.mymyLoadString(1024);
  for (const TextRow& row : rows) row.control.Caption = about.program.mymyLoadString(row.number);
}

namespace {

void AddLanguage(frmAbout& about, std::string_view name, std::string_view tag) {
  auto item = std::make_unique<frmAbout::LanguageItem>();
  const std::size_t element = about.mnuLanguageList.size();
  item->Name = "mnuLanguageList(" + std::to_string(element) + ")";
  item->Parent = &about.mnuSelectLanguage;
  item->Caption = std::string(name);
  item->Tag = tag;
  item->Click = [&about, element] { PickLanguage(about, element); };
  about.Controls.push_back(item.get());
  about.mnuLanguageList.push_back(std::move(item));
}

}  // namespace

void frmAbout_Load(frmAbout& about) {
  Program& program = about.program;
  frmAbout_Auto_Init(about);
  // A number turns into text with a blank in front; only the minor version is trimmed.
  about.lblVersion.Caption = " " + std::to_string(programVersion.iMajor) + "." +
                             std::to_string(programVersion.iMinor) + program.mymyLoadString(1009) +
                             " " + std::to_string(programVersion.iRevision);
  program.language.InitalizeLanguages();
  const std::vector<std::string>& codes = program.language.astrLanguages;
  if (codes.size() == 1) {
    // One language is no choice, and looks like none.
    AddLanguage(about, program.mymyLoadString(1090), "1033");
  } else {
    for (const std::string& code : codes)
      AddLanguage(about, program.language.GetLanguageNameFromCode(code),
                  std::to_string(GetLanguageId(code)));
  }
  program.language.ApplyLanguageFontToForm(about);
}

void ShowAbout(Program& program) {
  frmAbout& about = program.About();
  about.Shown = true;
  if (about.runModal) about.runModal();
}

void PickLanguage(frmAbout& about, std::size_t element) {
  Program& program = about.program;
  about.Pointer = MousePointer::hourglass;
  program.language.lCurrentLanguage = std::atoi(about.mnuLanguageList.at(element)->Tag.c_str());
  program.language.InitalizeLanguages();
  for (Form* form : program.loadedForms) {
    program.language.ApplyLanguageFontToForm(*form);
    if (form->Auto_Init) form->Auto_Init();
  }
  about.Pointer = MousePointer::standard;
}

}  // namespace dialwright
