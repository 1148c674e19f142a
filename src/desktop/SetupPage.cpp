#include "desktop/SetupPage.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QStyle>
#include <QVBoxLayout>

#include "desktop/ControlViews.h"
#include "desktop/WrapLabel.h"
#include "shell/frmMain.h"

namespace dialwright {

namespace {

struct OptionRow {
  CheckBox frmMain::*box;
  bool ofMessageSettings;  ///< an option of the menu that stands above it
};

constexpr OptionRow options[] = {
    {&frmMain::chkMAIN_GREETINGS, false},         {&frmMain::chkMAIN_MESSAGE_SETTINGS, false},
    {&frmMain::chkMESSAGE_NOTIFICATION, true},    {&frmMain::chkMESSAGE_FAX, true},
    {&frmMain::chkMESSAGE_MENU_STYLE, true},      {&frmMain::chkMESSAGE_PRIVATE_LISTS, true},
    {&frmMain::chkMAIN_PERSONAL_SETTINGS, false}, {&frmMain::chkMAIN_TRANSFER, false},
};

}  // namespace

SetupPage::SetupPage(frmMain& form, ControlViews& views, QWidget* parent) : QWidget(parent) {
  auto* frame = new QGroupBox;
  auto* rows = new QVBoxLayout(frame);
  const int indent = style()->pixelMetric(QStyle::PM_IndicatorWidth) +
                     style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing);
  for (const OptionRow& option : options) {
    auto* box = new QCheckBox;
    auto* row = new QHBoxLayout;
    row->setContentsMargins(option.ofMessageSettings ? indent : 0, 0, 0, 0);
    row->addWidget(box);
    row->addStretch();
    rows->addLayout(row);
    views.Join(form.*option.box, *box);
  }
  auto* note = new WrapLabel;
  rows->addSpacing(8);
  rows->addWidget(note);

  documents = new QVBoxLayout;
  auto* page = new QVBoxLayout(this);
  page->setSpacing(12);
  page->addWidget(frame);
  page->addLayout(documents);
  page->addStretch();

  views.Join(form.frameSetup, *frame);
  views.Join(form.Label1, *note);
}

std::vector<Control*> SetupPage::ControlsInOrder(frmMain& form) {
  std::vector<Control*> result;
  for (const OptionRow& option : options) result.push_back(&(form.*option.box));
  return result;
}

}  // namespace dialwright
