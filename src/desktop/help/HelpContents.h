#pragma once

#include <QString>
#include <string>
#include <vector>

namespace dialwright {

/// A line of the tree of contents.
struct HelpTopic {
  QString title;
  QString page;  ///< as it is written there; empty for a heading without a page
  std::vector<HelpTopic> topics;
};

/// Reads a sitemap, the list of lists in which a help project keeps its contents. What it does not
/// know it passes over.
std::vector<HelpTopic> ReadHelpContents(const QString& sitemap);

/// Text of a help file: UTF-8 if it is that, else in the ANSI code page.
QString HelpText(const std::string& bytes);

}  // namespace dialwright
