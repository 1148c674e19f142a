#include "desktop/help/HelpBrowser.h"

#include <QDesktopServices>
#include <QEvent>
#include <QRegularExpression>

#include "desktop/QtText.h"
#include "desktop/help/HelpContents.h"

namespace dialwright {

namespace {

const QString archiveScheme = QStringLiteral("help");

/// The file inside the archive that an address means: the viewers of other systems write the
/// archive's name in front of it.
QString PathInside(const QUrl& url) {
  const QString path = url.path();
  const qsizetype inside = path.lastIndexOf("::");
  return inside < 0 ? path : path.mid(inside + 2);
}

bool IsDark(const QPalette& palette) {
  return palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness();
}

QString WithoutColours(QString styleSheet) {
  static const QRegularExpression colours(QStringLiteral("\\b(background-)?color\\s*:[^;}]*;?"));
  return styleSheet.remove(colours);
}

}  // namespace

HelpBrowser::HelpBrowser(const ChmArchive& helpFile, QWidget* parent)
    : QTextBrowser(parent), archive(helpFile) {
  setOpenLinks(true);
}

void HelpBrowser::ShowPage(const QString& page) {
  QUrl base;
  base.setScheme(archiveScheme);
  base.setPath("/");
  setSource(base.resolved(QUrl(page)));
}

void HelpBrowser::doSetSource(const QUrl& url, QTextDocument::ResourceType type) {
  const QString scheme = url.scheme();
  if (scheme == "http" || scheme == "https") {
    QDesktopServices::openUrl(url);
    return;
  }
  QTextBrowser::doSetSource(url, type);
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name) {
  const QUrl url = source().resolved(name);
  const auto bytes = archive.Read(FromQt(PathInside(url)));
  if (!bytes) return {};
  if (type == QTextDocument::ImageResource) return QByteArray::fromStdString(*bytes);
  const QString text = HelpText(*bytes);
  return type == QTextDocument::StyleSheetResource && IsDark(palette()) ? WithoutColours(text)
                                                                        : text;
}

void HelpBrowser::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && !source().isEmpty()) reload();
}

}  // namespace dialwright
