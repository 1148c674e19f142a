#include "desktop/HelpContents.h"

#include <QRegularExpression>
#include <QStringDecoder>
#include <QTextDocumentFragment>

#include "desktop/QtText.h"
#include "text/Ansi.h"

namespace dialwright {

namespace {

constexpr int deepestList = 32;
constexpr int mostTopics = 10000;

QString attribute(const QString& tag, const char* name) {
  const QRegularExpression pattern(
      QStringLiteral("\\b%1\\s*=\\s*(?:\"([^\"]*)\"|'([^']*)')").arg(QLatin1String(name)),
      QRegularExpression::CaseInsensitiveOption);
  const QRegularExpressionMatch match = pattern.match(tag);
  return QTextDocumentFragment::fromHtml(match.captured(1) + match.captured(2)).toPlainText();
}

}  // namespace

std::vector<HelpTopic> readHelpContents(const QString& sitemap) {
  static const QRegularExpression tagPattern(
      QStringLiteral("<\\s*(/?)\\s*(ul|object|param)\\b([^>]*)>"),
      QRegularExpression::CaseInsensitiveOption);
  std::vector<HelpTopic> roots;
  // The list that grows at each depth: a topic's own list opens behind the topic.
  std::vector<std::vector<HelpTopic>*> lists{&roots};
  bool inTopic = false;
  HelpTopic topic;
  int count = 0;

  for (auto tags = tagPattern.globalMatch(sitemap); tags.hasNext() && count < mostTopics;) {
    const QRegularExpressionMatch tag = tags.next();
    const bool closes = !tag.captured(1).isEmpty();
    const QString name = tag.captured(2).toLower();
    if (name == "object" && !closes) {
      inTopic = tag.captured(3).contains("text/sitemap", Qt::CaseInsensitive);
      topic = {};
    } else if (name == "param" && inTopic) {
      const QString key = attribute(tag.captured(3), "name").toLower();
      if (key == "name" && topic.title.isEmpty()) topic.title = attribute(tag.captured(3), "value");
      if (key == "local") topic.page = attribute(tag.captured(3), "value");
    } else if (name == "object" && inTopic) {
      inTopic = false;
      if (topic.title.isEmpty()) continue;
      lists.back()->push_back(topic);
      ++count;
    } else if (name == "ul" && !closes) {
      std::vector<HelpTopic>& list = *lists.back();
      const bool nested = !list.empty() && static_cast<int>(lists.size()) < deepestList;
      lists.push_back(nested ? &list.back().topics : &list);
    } else if (name == "ul" && lists.size() > 1) {
      lists.pop_back();
    }
  }
  return roots;
}

QString helpText(const std::string& bytes) {
  QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  const QString text = utf8(QByteArrayView(bytes));
  return utf8.hasError() ? toQt(AnsiToUtf8(bytes)) : text;
}

}  // namespace dialwright
