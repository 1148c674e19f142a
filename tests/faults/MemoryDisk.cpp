#include "MemoryDisk.h"

#include "platform/Failure.h"
#include "text/Text.h"

namespace dialwright {

namespace {

std::string keyOf(std::string_view path) {
  std::string key = LowerCase(path);
  while (key.ends_with('\\')) key.pop_back();
  return key;
}

}  // namespace

class MemoryDisk::Output : public OutputFile {
 public:
  Output(MemoryDisk& theDisk, std::string thePath) : disk(theDisk), path(std::move(thePath)) {}
  void write(std::string_view bytes) override {
    Entry& entry = disk.at(path);
    entry.bytes += bytes;
    entry.revision = ++disk.revisions;
  }
  void close() override {}

 private:
  MemoryDisk& disk;
  std::string path;
};

void MemoryDisk::put(std::string_view path, std::string_view bytes) {
  const std::size_t name = path.rfind('\\') + 1;
  files[keyOf(path)] = {std::string(path.substr(name)), std::string(bytes), ++revisions};
}

MemoryDisk::Snapshot MemoryDisk::snapshot() const {
  Snapshot result;
  for (const auto& [path, entry] : files) result[path] = entry.bytes;
  return result;
}

MemoryDisk::Entry& MemoryDisk::at(std::string_view path) {
  const auto found = files.find(keyOf(path));
  if (found == files.end()) throw RuntimeFailure(Failure::fileNotFound);
  return found->second;
}

FileStore::Kind MemoryDisk::kind(std::string_view path) {
  const std::string key = keyOf(path);
  if (files.contains(key)) return Kind::file;
  const auto below = files.lower_bound(key + '\\');
  const bool holdsFiles = below != files.end() && below->first.starts_with(key + '\\');
  return folders.contains(key) || holdsFiles ? Kind::folder : Kind::none;
}

std::optional<FileStamp> MemoryDisk::stamp(std::string_view path) {
  const auto found = files.find(keyOf(path));
  if (found == files.end()) return {};
  return FileStamp{0, 0, found->second.bytes.size(), found->second.revision};
}

std::vector<std::string> MemoryDisk::fileNames(std::string_view folder) {
  if (kind(folder) != Kind::folder) throw RuntimeFailure(Failure::pathNotFound);
  const std::string start = keyOf(folder) + '\\';
  std::vector<std::string> names;
  for (auto file = files.lower_bound(start);
       file != files.end() && file->first.starts_with(start); ++file)
    if (file->first.find('\\', start.size()) == std::string::npos)
      names.push_back(file->second.name);
  return names;
}

std::string MemoryDisk::read(std::string_view path) { return at(path).bytes; }

std::unique_ptr<OutputFile> MemoryDisk::open(std::string_view path, Opening opening, bool create) {
  if (kind(path) != Kind::file && create) put(path, {});
  Entry& entry = at(path);
  if (opening == Opening::truncate) entry.bytes.clear();
  entry.revision = ++revisions;
  return std::make_unique<Output>(*this, std::string(path));
}

void MemoryDisk::replace(std::string_view path, std::string_view bytes) {
  Entry& entry = at(path);
  entry.bytes = bytes;
  entry.revision = ++revisions;
}

void MemoryDisk::copy(std::string_view from, std::string_view to, bool overwrite) {
  const std::string bytes = at(from).bytes;
  if (!overwrite && kind(to) != Kind::none) throw RuntimeFailure(Failure::fileAlreadyExists);
  put(to, bytes);
}

void MemoryDisk::remove(std::string_view path, bool) {
  at(path);
  files.erase(keyOf(path));
}

void MemoryDisk::createFolder(std::string_view path) {
  if (kind(path) != Kind::none) throw RuntimeFailure(Failure::fileAlreadyExists);
  folders[keyOf(path)] = true;
}

}  // namespace dialwright
