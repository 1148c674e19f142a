#pragma once

#include <QTemporaryFile>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "desktop/help/ChmDirectory.h"

struct chmFile;

namespace dialwright {

/// A compiled help file, open for reading.
class ChmArchive {
 public:
  /// Nothing when the bytes are not a compiled help file, or a damaged one.
  static std::unique_ptr<ChmArchive> Open(std::string_view bytes);
  ~ChmArchive();
  ChmArchive(const ChmArchive&) = delete;
  ChmArchive& operator=(const ChmArchive&) = delete;

  /// The bytes of a file inside, found without regard to case; nothing if there is none or it
  /// cannot be unpacked.
  std::optional<std::string> Read(std::string_view path) const;
  /// The paths of all pages, in the archive's order.
  std::vector<std::string> Pages() const;

  const std::string& Title() const { return titleText; }
  /// The page to begin with; empty if there is no page at all.
  const std::string& HomePage() const { return home; }
  /// The file that holds the tree of contents; empty if there is none.
  const std::string& ContentsFile() const { return contents; }

 private:
  ChmArchive() = default;
  void ReadSystemFile();
  const ChmEntry* Find(std::string_view path) const;

  QTemporaryFile copy;  // the library reads files only
  chmFile* handle = nullptr;
  std::vector<ChmEntry> entries;
  std::string titleText;
  std::string home;
  std::string contents;
};

}  // namespace dialwright
