#include "platform/standins/OverlayFiles.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "platform/Failure.h"
#include "text/Text.h"

namespace dialwright {

namespace {

/// No device of a real file has this number.
constexpr std::uint64_t ownDevice = ~std::uint64_t{0};

std::string FoldedPath(std::string_view path) {
  std::string folded = LowerCase(ReplaceAll(path, "/", "\\"));
  while (folded.find("\\\\", 1) != std::string::npos) folded.erase(folded.find("\\\\", 1), 1);
  while (folded.ends_with('\\')) folded.pop_back();
  return folded;
}

std::string_view ParentOf(std::string_view path) {
  return path.substr(0, std::min(path.find_last_of("\\/"), path.size()));
}

}  // namespace

/// What is written is in the file at once.
class OverlayFiles::Output : public OutputFile {
 public:
  Output(OverlayFiles& overlay, std::string_view outputPath) : files(overlay), path(outputPath) {}
  void Write(std::string_view bytes) override {
    files.Put(path, files.Read(path) + std::string(bytes));
  }
  void Flush() override {}
  void Close() override {}

 private:
  OverlayFiles& files;
  std::string path;
};

void OverlayFiles::ReadAs(std::string folder, std::string other) {
  aliased = std::move(folder);
  original = std::move(other);
}

std::string OverlayFiles::Below(std::string_view path) {
  const bool isInside = !original.empty() && path.starts_with(aliased) &&
                        (path.size() == aliased.size() || path[aliased.size()] == '\\');
  if (!isInside || below.KindOf(path) != Kind::none) return std::string(path);
  return original + std::string(path.substr(aliased.size()));
}

std::map<std::string, OverlayFiles::Change> OverlayFiles::Changes() const {
  std::map<std::string, Change> changes;
  for (const auto& [path, entry] : touched) changes.emplace(path, entry.change);
  return changes;
}

void OverlayFiles::Put(std::string_view path, std::optional<std::string> bytes) {
  Entry& entry = touched[FoldedPath(path)];
  if (entry.change.path.empty()) entry.change.path = path;
  entry.change.bytes = std::move(bytes);
  entry.revision = ++revisions;
}

bool OverlayFiles::IsWritable(std::string_view path) {
  return touched.contains(FoldedPath(path)) ? KindOf(path) == Kind::file
                                            : below.IsWritable(Below(path));
}

void OverlayFiles::NeedWritable(std::string_view path) {
  if (!IsWritable(path)) throw RuntimeFailure(Failure::permissionDenied);
}

void OverlayFiles::NeedFolderOf(std::string_view path) {
  if (KindOf(ParentOf(path)) != Kind::folder) throw RuntimeFailure(Failure::pathNotFound);
}

FileStore::Kind OverlayFiles::KindOf(std::string_view path) {
  if (const auto found = touched.find(FoldedPath(path)); found != touched.end())
    return found->second.change.bytes ? Kind::file : Kind::none;
  return folders.contains(FoldedPath(path)) ? Kind::folder : below.KindOf(Below(path));
}

std::optional<FileStamp> OverlayFiles::Stamp(std::string_view path) {
  const auto found = touched.find(FoldedPath(path));
  if (found == touched.end()) return below.Stamp(Below(path));
  const Entry& entry = found->second;
  if (!entry.change.bytes) return std::nullopt;
  return FileStamp{ownDevice, 0, entry.change.bytes->size(), entry.revision};
}

std::vector<std::string> OverlayFiles::FileNames(std::string_view folder) {
  const std::string inside = FoldedPath(folder);
  std::map<std::string, std::string> names;
  const std::string real = Below(folder);
  if (!folders.contains(inside) || below.KindOf(real) == Kind::folder)
    for (const std::string& name : below.FileNames(real)) names.emplace(LowerCase(name), name);
  for (const auto& [path, entry] : touched) {
    if (ParentOf(path) != inside) continue;
    const std::string name = entry.change.path.substr(entry.change.path.find_last_of("\\/") + 1);
    if (entry.change.bytes)
      names.emplace(LowerCase(name), name);
    else
      names.erase(LowerCase(name));
  }
  std::vector<std::string> sorted;
  sorted.reserve(names.size());
  for (auto& [key, name] : names) sorted.push_back(std::move(name));
  return sorted;
}

std::string OverlayFiles::Read(std::string_view path) {
  const auto found = touched.find(FoldedPath(path));
  if (found == touched.end()) return below.Read(Below(path));
  if (!found->second.change.bytes) throw RuntimeFailure(Failure::fileNotFound);
  return *found->second.change.bytes;
}

std::unique_ptr<OutputFile> OverlayFiles::Open(std::string_view path, Opening opening,
                                               bool create) {
  const bool isThere = KindOf(path) == Kind::file;
  if (!isThere && !create) throw RuntimeFailure(Failure::fileNotFound);
  if (isThere)
    NeedWritable(path);
  else
    NeedFolderOf(path);
  Put(path, isThere && opening == Opening::append ? Read(path) : std::string());
  return std::make_unique<Output>(*this, path);
}

void OverlayFiles::Replace(std::string_view path, std::string_view bytes) {
  if (KindOf(path) != Kind::file) throw RuntimeFailure(Failure::fileNotFound);
  NeedWritable(path);
  Put(path, std::string(bytes));
}

void OverlayFiles::Copy(std::string_view from, std::string_view to, bool overwrite) {
  std::string bytes = Read(from);
  const bool isThere = KindOf(to) == Kind::file;
  if (isThere && !overwrite) throw RuntimeFailure(Failure::fileAlreadyExists);
  if (isThere)
    NeedWritable(to);
  else
    NeedFolderOf(to);
  Put(to, std::move(bytes));
}

void OverlayFiles::Remove(std::string_view path, bool force) {
  if (KindOf(path) != Kind::file) throw RuntimeFailure(Failure::fileNotFound);
  if (!force) NeedWritable(path);
  Put(path, std::nullopt);
}

void OverlayFiles::CreateFolder(std::string_view path) {
  if (KindOf(path) != Kind::none) throw RuntimeFailure(Failure::fileAlreadyExists);
  NeedFolderOf(path.substr(0, path.find_last_not_of("\\/") + 1));
  folders.insert(FoldedPath(path));
}

}  // namespace dialwright
