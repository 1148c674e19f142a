#include "desktop/AboutDialog.h"

#include <QAction>
#include <QCursor>
#include <QHBoxLayout>
#include <QMenu>
#include <QVBoxLayout>

#include "desktop/Dispatch.h"
#include "desktop/LanguageFontResolver.h"
#include "desktop/Pictures.h"
#include "desktop/QtText.h"
#include "desktop/Texts.h"

namespace dialwright {

AboutDialog::AboutDialog(frmAbout& aboutForm, Dispatch& dispatch, QWidget* parent)
    : QDialog(parent),
      form(aboutForm),
      entry(dispatch),
      views([this](Control&, const ControlViews::Action& action) { entry.runInModalBox(action); }) {
  setObjectName(toQt(form.Name));
  setModal(true);
  build();
  form.runModal = [this] { runUntilHidden(); };
  form.changed = [this] {
    setCursor(form.Pointer == MousePointer::hourglass ? Qt::WaitCursor : Qt::ArrowCursor);
    if (!form.Shown) hide();
  };
}

AboutDialog::~AboutDialog() {
  form.runModal = nullptr;
  form.changed = nullptr;
}

void AboutDialog::build() {
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
    views.join(*line, *label);
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

  views.joinPlain(form.picVarloLogo, *maker);
  views.joinPlain(form.picMeridLogo, *server);
  views.join(form.lblVersionTitle, *versionTitle);
  views.join(form.lblVersion, *version);
  views.join(form.lblTrademark, *trademark);
  views.join(form.lblRights, *rights);
  views.join(form.cmdOK, *ok);
  ok->setFocusPolicy(Qt::StrongFocus);

  views.joinPlain(form.lblChangeLanguage, *language);
  language->setAutoDefault(false);
  language->setFlat(true);
  language->setCursor(Qt::PointingHandCursor);
  language->setStyleSheet("text-align: left; text-decoration: underline; color: palette(link);");
  connect(language, &QPushButton::clicked, this, [this] { showLanguages(); });

  languages = new QMenu(this);
  languages->setObjectName(toQt(form.mnuSelectLanguage.Name));
}

void AboutDialog::addNewLanguages() {
  for (const auto& item : form.mnuLanguageList) {
    if (items.contains(item.get())) continue;
    QAction* action = languages->addAction(QString());
    action->setObjectName(toQt(item->Name));
    connect(action, &QAction::triggered, this, [this, language = item.get()] {
      entry.runInModalBox([language] { language->Click(); });
    });
    items[item.get()] = action;
  }
}

void AboutDialog::refresh() {
  addNewLanguages();
  setWindowTitle(toQt(form.Caption));
  views.refresh();
  if (auto* language = findChild<QPushButton*>(toQt(form.lblChangeLanguage.Name)))
    language->setText(toQt(form.lblChangeLanguage.Caption));
  languages->setTitle(toQt(form.mnuSelectLanguage.Caption));
  for (const auto& [item, action] : items) {
    action->setText(toQt(item->Caption));
    action->setFont(languageFont(item->Font));
  }
}

void AboutDialog::showLanguages() {
  const auto* label = findChild<QWidget*>(toQt(form.lblChangeLanguage.Name));
  const bool byMouse = label->underMouse();
  languages->popup(byMouse ? QCursor::pos() : label->mapToGlobal(label->rect().bottomLeft()));
}

void AboutDialog::runUntilHidden() {
  refresh();
  if (holdsUp)
    exec();
  else
    show();
}

void AboutDialog::reject() {
  entry.runInModalBox([this] { form.cmdOK.Click(); });
}

}  // namespace dialwright
