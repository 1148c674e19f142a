#include "desktop/FindingLine.h"

#include <QAccessible>
#include <algorithm>

#include "desktop/QtText.h"

namespace dialwright {

FindingLine::FindingLine(const frmMain& mainForm, int gridNumber)
    : form(mainForm), grid(gridNumber) {
  setObjectName(QString("findings(%1)").arg(gridNumber));
  setTextFormat(Qt::RichText);
  setTextInteractionFlags(Qt::LinksAccessibleByMouse);
  hide();
  connect(this, &QLabel::linkActivated, this, [this](const QString& token) {
    if (goTo) goTo(grid, FromQt(token));
  });
}

QString FindingLine::Line(const Finding& finding) const {
  const KeyGrid& keys = At(form.gridKeyMap, grid);
  QString text = LinesToQt(finding.text).toHtmlEscaped().replace("\n", "<br>");
  if (finding.kind == FindingKind::refused)
    text =
        "<span style=\"color:" + FaultColour(palette()).name() + "\">&#9679; " + text + "</span>";
  else
    text = "&#9651; " + text;
  QStringList others;
  for (const int row : finding.rows)
    if (row != keys.Row() && row < keys.Rows())
      others << "<a href=\"" + ToQt(keys.Text(row, Column::ActionToken)) + "\">" +
                    ToQt(keys.Text(row, Column::Action)).toHtmlEscaped() + "</a>";
  return text + " " + others.join(", ");
}

void FindingLine::Show(const std::vector<Finding>& findings) {
  const int row = At(form.gridKeyMap, grid).Row();
  QStringList lines, spoken;
  for (const Finding& finding : findings) {
    if (finding.grid != grid || std::ranges::find(finding.rows, row) == finding.rows.end())
      continue;
    // A caution is said where one would act on it: at the row whose key waits.
    if (finding.kind == FindingKind::waits && finding.rows.front() != row) continue;
    lines << Line(finding);
    spoken << FindingText(form, finding, row);
  }
  const QString all = lines.join("<br>");
  if (all == text() && lines.isEmpty() == isHidden()) return;
  setText(all);
  setAccessibleName(spoken.join("\n"));
  setVisible(!lines.isEmpty());
  if (lines.isEmpty()) return;
  QAccessibleEvent said(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&said);
}

}  // namespace dialwright
