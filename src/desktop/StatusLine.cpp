#include "desktop/StatusLine.h"

#include <QAccessible>
#include <QLabel>
#include <QStatusBar>
#include <QStyle>
#include <QToolButton>

#include "beside/Findings.h"
#include "beside/StatusTexts.h"
#include "desktop/CutLabel.h"
#include "desktop/LanguageFontResolver.h"
#include "desktop/QtText.h"
#include "shell/frmMain.h"

namespace dialwright {

namespace {

constexpr int announcementTime = 6000;  // milliseconds

}  // namespace

StatusLine::StatusLine(const frmMain& mainForm, QStatusBar& bar)
    : form(mainForm),
      server(new QLabel),
      findings(new QToolButton),
      told(new CutLabel),
      saved(new CutLabel) {
  server->setObjectName("statusServer");
  findings->setObjectName("statusFindings");
  saved->setObjectName("statusSaved");
  findings->setAutoRaise(true);
  // The keyboard stays in the form.
  findings->setFocusPolicy(Qt::NoFocus);
  connect(findings, &QToolButton::clicked, this, [this] {
    if (findingsWanted) findingsWanted();
  });
  told->setObjectName("statusTold");
  // What was done is said in what room the others leave.
  told->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  // In line with what stands above; some styles draw a frame around each part.
  const int side = bar.style()->pixelMetric(QStyle::PM_LayoutLeftMargin);
  bar.setContentsMargins(side, 0, side, 0);
  server->setContentsMargins(0, 0, bar.fontMetrics().horizontalAdvance(' '), 0);
  bar.addWidget(server);
  bar.addWidget(findings);
  bar.addWidget(told, 1);
  bar.addPermanentWidget(saved);
  forget.setSingleShot(true);
  connect(&forget, &QTimer::timeout, told, &QLabel::clear);
}

void StatusLine::Refresh(const std::string& savedAt) {
  const QFont font = LanguageFont(form.cmdSave.Font);
  for (QWidget* part : {static_cast<QWidget*>(server), static_cast<QWidget*>(findings),
                        static_cast<QWidget*>(told), static_cast<QWidget*>(saved)})
    part->setFont(font);
  const std::size_t count = Findings(form).size();
  server->setText(ToQt(ServerStatus(form)));
  findings->setText(ToQt(FindingsStatus(form, count)));
  findings->setEnabled(count != 0);
  saved->setText(ToQt(SaveStatus(form, savedAt)));
  saved->setVisible(!saved->text().isEmpty());
}

void StatusLine::Announce(const QString& text) {
  told->setText(text);
  forget.start(announcementTime);
  QAccessibleEvent event(told, QAccessible::Alert);
  QAccessible::updateAccessibility(&event);
}

}  // namespace dialwright
