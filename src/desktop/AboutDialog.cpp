#include "desktop/AboutDialog.h"

#include <QAction>
#include <QActionGroup>
#include <QCursor>
#include <QHBoxLayout>
#include <QMenu>
#include <QVBoxLayout>

#include "desktop/Dispatch.h"
#include "desktop/LanguageFontResolver.h"
#include "desktop/Pictures.h"
#include "desktop/QtText.h"
#include "desktop/Texts.h"
#include "desktop/Translations.h"
#include "shell/Program.h"

namespace dialwright {

AboutDialog::AboutDialog(frmAbout& aboutForm, Dispatch& dispatch, QWidget* parent)
    : QDialog(parent),
      form(aboutForm),
      entry(dispatch),
      views([this](Control&, const ControlViews::Action& action) { entry.RunInModalBox(action); }) {
  setObjectName(ToQt(form.Name));
  setWindowModality(Qt::WindowModal);
  Build();
  form.runModal = [this] { RunUntilHidden(); };
  form.changed = [this] {
    setCursor(form.Pointer == MousePointer::hourglass ? Qt::WaitCursor : Qt::ArrowCursor);
    if (!form.Shown) hide();
  };
}

AboutDialog::~AboutDialog() {
  form.runModal = nullptr;
  form.changed = nullptr;
}

void AboutDialog::Build() {
  auto* maker = new MakerPicture;
  auto* server = new ServerPicture;
  auto* versionTitle = new QLabel;
  auto* version = new QLabel;
  auto* trademark = new QLabel;
  auto* rights = new QLabel;
  auto* language = new QPushButton;
  auto* ok = new QPushButton;
  ok->setDefault(true);

  auto* pictures = new QHBoxLayout;
  pictures->setSpacing(24);
  pictures->addWidget(maker);
  pictures->addWidget(server);
  pictures->addStretch();

  auto* versionRow = new QHBoxLayout;
  versionRow->setSpacing(0);
  versionRow->addWidget(versionTitle);
  versionRow->addWidget(version);
  versionRow->addStretch();

  auto* address = new QVBoxLayout;
  address->setSpacing(2);
  for (Label* line : {&form.lblVarloAddress1, &form.lblVarloAddress2, &form.lblVarloAddress3}) {
    auto* label = new QLabel;
    address->addWidget(label);
    views.Join(*line, *label);
  }

  auto* buttons = new QHBoxLayout;
  buttons->addWidget(language);
  buttons->addStretch();
  buttons->addWidget(ok);

  auto* column = new QVBoxLayout(this);
  column->setSpacing(14);
  column->setContentsMargins(20, 20, 20, 16);
  column->addLayout(pictures);
  column->addLayout(versionRow);
  column->addLayout(address);
  column->addWidget(trademark);
  column->addWidget(rights);
  column->addStretch();
  column->addLayout(buttons);
  column->setSizeConstraint(QLayout::SetFixedSize);  // as large as its texts, in every language

  views.JoinPlain(form.picVarloLogo, *maker);
  views.JoinPlain(form.picMeridLogo, *server);
  views.Join(form.lblVersionTitle, *versionTitle);
  views.Join(form.lblVersion, *version);
  views.Join(form.lblTrademark, *trademark);
  views.Join(form.lblRights, *rights);
  views.Join(form.cmdOK, *ok);
  ok->setFocusPolicy(Qt::StrongFocus);

  views.JoinPlain(form.lblChangeLanguage, *language);
  language->setAutoDefault(false);
  language->setFlat(true);
  language->setCursor(Qt::PointingHandCursor);
  language->setStyleSheet("text-align: left; text-decoration: underline; color: palette(link);");
  connect(language, &QPushButton::clicked, this, [this] { ShowLanguages(); });

  languages = new QMenu(this);
  oneLanguage = new QActionGroup(this);
  languages->setObjectName(ToQt(form.mnuSelectLanguage.Name));
}

void AboutDialog::AddNewLanguages() {
  for (const auto& item : form.mnuLanguageList) {
    if (items.contains(item.get())) continue;
    QAction* action = languages->addAction(QString());
    action->setObjectName(ToQt(item->Name));
    action->setCheckable(true);
    oneLanguage->addAction(action);
    connect(action, &QAction::triggered, this, [this, language = item.get()] {
      entry.RunInModalBox([language] { language->Click(); });
    });
    items[item.get()] = action;
  }
}

void AboutDialog::Refresh() {
  AddNewLanguages();
  setWindowTitle(ToQt(form.Caption));
  views.Refresh();
  if (auto* language = findChild<QPushButton*>(ToQt(form.lblChangeLanguage.Name)))
    language->setText(ToQt(form.lblChangeLanguage.Caption));
  languages->setTitle(ToQt(form.mnuSelectLanguage.Caption));
  const std::string code = LanguageInForce(form.program);
  const std::string inForce = std::to_string(GetLanguageId(code));  // of no code, that of English
  for (const auto& language : form.mnuLanguageList) {
    QAction* action = items.at(language.get());
    action->setText(ToQt(language->Caption));
    action->setFont(LanguageFont(language->Font));
    action->setChecked(language->Tag == inForce);
  }
}

void AboutDialog::ShowLanguages() {
  const auto* label = findChild<QWidget*>(ToQt(form.lblChangeLanguage.Name));
  const bool byMouse = label->underMouse();
  languages->popup(byMouse ? QCursor::pos() : label->mapToGlobal(label->rect().bottomLeft()));
}

void AboutDialog::RunUntilHidden() {
  Refresh();
  if (holdsUp)
    exec();
  else
    show();
}

void AboutDialog::reject() {
  entry.RunInModalBox([this] { form.cmdOK.Click(); });
}

}  // namespace dialwright
