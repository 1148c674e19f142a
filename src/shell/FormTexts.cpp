#include "shell/FormTexts.h"

#include "shell/Program.h"
#include "shell/frmMain.h"

namespace dialwright {

namespace {

struct TextRow {
  Control& control;
  int number;
};

struct TabTexts {
  int caption;
  int description;
};

constexpr TabTexts tabTexts[] = {{1080, 1149}, {1086, 1159}, {1084, 1157}, {1085, 1158},
                                 {1007, 1145}, {1234, 1235}, {1195, 0}};

/// The tabs whose edit controls and frames have texts of the table; the Globals tab keeps its
/// design texts, and so do the headings of the last two grids.
constexpr int translatedTabs = 5;
constexpr int translatedHeadings = 4;

void SetTabTexts(frmMain& form) {
  Program& program = form.program;
  for (int i = 0; i < TabStrip::tabCount; ++i) {
    const TabTexts& texts = tabTexts[i];
    form.SSTab1.SetTabCaption(i, program.mymyLoadString(texts.caption));
    if (i < gridCount)
      At(form.LabelTabDescription, i).Caption = program.mymyLoadString(texts.description);
  }
  for (int i = 0; i < translatedTabs; ++i) {
    const TextRow rows[] = {{At(form.frameDescription, i), 1004},
                            {At(form.frameMenuOrder, i), 1083},
                            {At(form.chkDontVoiceAction, i), 1029},
                            {At(form.labelKeyMap, i), 1078},
                            {At(form.lblKeyMap, i), 1000}};
    for (const TextRow& row : rows) row.control.Caption = program.mymyLoadString(row.number);
  }
  for (int i = 0; i < translatedHeadings; ++i) {
    At(form.gridKeyMap, i).SetText(0, Column::Action, program.mymyLoadString(1160));
    At(form.gridKeyMap, i).SetText(0, Column::KeyAssignment, program.mymyLoadString(1161));
  }
}

void SetControlTexts(frmMain& form) {
  const TextRow rows[] = {
      {form.chkGenerateHelp, 1055},
      {form.chkGeneratePDF, 1194},
      {form.cmdExit, 1036},
      {form.cmdSave, 1122},
      {form.frameSetup, 1196},
      {form.mnuFile, 1046},
      {form.mnuRestoreScripts, 1117},
      {form.mnuExit, 1037},
      {form.mnuHelpMenu, 1061},
      {form.mnuHelp, 1061},
      {form.mnuAbout, 1002},
      {form.chkMAIN_GREETINGS, 1197},
      {form.chkMAIN_MESSAGE_SETTINGS, 1198},
      {form.chkMAIN_PERSONAL_SETTINGS, 1199},
      {form.chkMAIN_TRANSFER, 1200},
      {form.chkMESSAGE_FAX, 1201},
      {form.chkMESSAGE_MENU_STYLE, 1202},
      {form.chkMESSAGE_NOTIFICATION, 1203},
      {form.chkMESSAGE_PRIVATE_LISTS, 1204},
      {form.Label1, 1205},
  };
  form.Caption = form.program.mymyLoadString(1024);
  for (const TextRow& row : rows) row.control.Caption = form.program.mymyLoadString(row.number);
}

}  // namespace

void SetFormTexts(frmMain& form) {
  SetControlTexts(form);
  SetTabTexts(form);
}

}  // namespace dialwright
