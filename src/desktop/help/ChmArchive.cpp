#include "desktop/help/ChmArchive.h"

#include <chm_lib.h>

#include <algorithm>
#include <utility>

#include "text/Text.h"

namespace dialwright {

namespace {

/// The longest page or picture that is unpacked.
constexpr std::uint64_t longestEntry = 16U << 20;

bool EndsWith(std::string_view name, std::string_view ending) {
  return name.size() >= ending.size() &&
         EqualsIgnoringCase(name.substr(name.size() - ending.size()), ending);
}

bool IsPage(std::string_view name) {
  return name.starts_with('/') && (EndsWith(name, ".html") || EndsWith(name, ".htm"));
}

std::string Rooted(std::string_view name) {
  return (name.starts_with('/') ? "" : "/") + std::string(name);
}

/// A text of the file's description, up to its terminating zero.
std::string_view Terminated(std::string_view text) { return text.substr(0, text.find('\0')); }

}  // namespace

std::unique_ptr<ChmArchive> ChmArchive::Open(std::string_view bytes) {
  std::optional<std::vector<ChmEntry>> entries = SoundChmDirectory(bytes);
  if (!entries) return nullptr;
  std::unique_ptr<ChmArchive> archive{new ChmArchive};
  archive->entries = *std::move(entries);
  const auto size = static_cast<qint64>(bytes.size());
  if (!archive->copy.open() || archive->copy.write(bytes.data(), size) != size ||
      !archive->copy.flush())
    return nullptr;
  archive->handle = chm_open(archive->copy.fileName().toLocal8Bit().constData());
  if (archive->handle == nullptr) return nullptr;
  archive->ReadSystemFile();
  return archive;
}

ChmArchive::~ChmArchive() {
  if (handle != nullptr) chm_close(handle);
}

const ChmEntry* ChmArchive::Find(std::string_view path) const {
  const std::string name = Rooted(path);
  const auto found = std::find_if(entries.begin(), entries.end(), [&](const ChmEntry& entry) {
    return EqualsIgnoringCase(entry.name, name);
  });
  return found == entries.end() ? nullptr : &*found;
}

std::optional<std::string> ChmArchive::Read(std::string_view path) const {
  const ChmEntry* entry = Find(path);
  if (entry == nullptr || entry->length > longestEntry) return std::nullopt;
  chmUnitInfo unit{};
  unit.start = entry->start;
  unit.length = entry->length;
  unit.space = entry->compressed ? CHM_COMPRESSED : CHM_UNCOMPRESSED;
  std::string bytes(entry->length, '\0');
  const LONGINT64 got =
      chm_retrieve_object(handle, &unit, reinterpret_cast<unsigned char*>(bytes.data()), 0,
                          static_cast<LONGINT64>(entry->length));
  if (got != static_cast<LONGINT64>(entry->length)) return std::nullopt;
  return bytes;
}

std::vector<std::string> ChmArchive::Pages() const {
  std::vector<std::string> result;
  for (const ChmEntry& entry : entries)
    if (IsPage(entry.name)) result.push_back(entry.name);
  return result;
}

void ChmArchive::ReadSystemFile() {
  // The description: a version, and then texts by their numbers.
  constexpr unsigned contentsNumber = 0;
  constexpr unsigned homeNumber = 2;
  constexpr unsigned titleNumber = 3;
  const std::string description = Read("#SYSTEM").value_or("");
  const auto half = [&](std::size_t at) {
    return static_cast<unsigned>(static_cast<unsigned char>(description[at]) |
                                 static_cast<unsigned char>(description[at + 1]) << 8);
  };
  for (std::size_t at = 4; at + 4 <= description.size();) {
    const unsigned number = half(at);
    const std::size_t length = half(at + 2);
    at += 4;
    if (length > description.size() - at) break;
    const std::string_view text = Terminated(std::string_view(description).substr(at, length));
    if (number == contentsNumber) contents = text;
    if (number == homeNumber) home = text;
    if (number == titleNumber) titleText = text;
    at += length;
  }
  if (Find(contents) == nullptr) {
    contents.clear();
    for (const ChmEntry& entry : entries)
      if (EndsWith(entry.name, ".hhc")) contents = entry.name;
  }
  if (home.empty() || Find(home) == nullptr) {
    const std::vector<std::string> all = Pages();
    home = all.empty() ? "" : all.front();
  }
  if (!home.empty()) home = Rooted(home);
}

}  // namespace dialwright
