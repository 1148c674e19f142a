#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "files/ProfileIndex.h"
#include "files/ProfileLines.h"

namespace dialwright {

/// The text of a profile, in the file's bytes, with the changes that were made to it. Many changes
/// cost one rebuild of the text. Names are found without case, keys without blanks around them.
///
/// A text in UTF-16 (by its mark) is not understood: it has no keys and takes no changes.
class ProfileText {
 public:
  explicit ProfileText(std::string bytes);
  ProfileText(const ProfileText&) = delete;
  ProfileText& operator=(const ProfileText&) = delete;

  /// What stands behind the key's equals sign, up to the line's end; nothing where there is no such
  /// key. Valid until the next change.
  std::optional<std::string_view> Value(std::string_view section, std::string_view key);

  /// Puts a value in the place of the one that is there. A missing key goes behind the last line of
  /// its section that is not blank, a missing section to the end of the text. New lines end as the
  /// text's first line does; a last line without an end gets one before anything is put behind it.
  /// Returns false, and changes nothing, for names that no line could hold so that they are found
  /// again.
  bool Set(std::string_view section, std::string_view key, std::string_view value);

  bool Understood() const { return understood; }
  /// Whether the text differs from the bytes that it was made of.
  bool Changed() const { return differs; }

  /// The text with all changes.
  const std::string& Text();
  /// Gives its bytes away, as they are, and is at its end.
  std::string TakeBytes() && { return std::move(bytes); }

 private:
  struct Section {
    std::optional<SectionLines> lines;
    std::optional<ProfileIndex> index;
    std::vector<std::pair<std::string, std::string>> added;  // keys and values, in their order
  };

  /// Where a key's value is: in the old text, or among the added lines; neither if it is new.
  struct Place {
    std::optional<std::size_t> begin;
    std::pair<std::string, std::string>* added = nullptr;
  };

  Section& Find(std::string_view name);
  static Place Look(Section& section, std::string_view key);
  std::optional<std::string_view> ValueAt(const Place& place) const;
  void Merge();

  std::string bytes;
  bool understood;
  bool differs = false;
  bool pending = false;
  std::map<std::string, Section, std::less<>> sections;  // by folded name
  std::vector<std::string> newSections;                  // names as they were given
  std::map<std::size_t, std::string> values;             // new ones, by where the old ones begin
};

}  // namespace dialwright
