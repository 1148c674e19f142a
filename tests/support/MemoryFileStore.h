#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Failure.h"
#include "platform/FileStore.h"

namespace dialwright {

/// Files in memory, that count what is done with them and fail on demand.
class MemoryFileStore : public FileStore {
 public:
  struct Entry {
    std::string bytes;
    std::int64_t revision = 0;
  };

  void put(std::string_view path, std::string_view bytes) {
    files.insert_or_assign(std::string(path), Entry{std::string(bytes), ++revisions});
  }
  const std::string& bytes(std::string_view path) { return at(path).bytes; }

  Kind kind(std::string_view path) override {
    return files.contains(path) ? Kind::file : Kind::none;
  }
  std::optional<FileStamp> stamp(std::string_view path) override {
    const auto found = files.find(path);
    if (found == files.end()) return std::nullopt;
    return FileStamp{0, 0, found->second.bytes.size(), found->second.revision};
  }
  std::vector<std::string> fileNames(std::string_view) override { return {}; }  // no folders

  std::string read(std::string_view path) override {
    ++reads;
    if (failRead) throw RuntimeFailure(*failRead);
    return at(path).bytes;
  }
  void replace(std::string_view path, std::string_view bytes) override {
    ++replaces;
    if (failReplace) throw RuntimeFailure(*failReplace);
    at(path) = Entry{std::string(bytes), ++revisions};
  }
  std::unique_ptr<OutputFile> open(std::string_view path, Opening opening, bool create) override {
    if (create && !files.contains(path)) put(path, "");
    Entry& entry = at(path);
    if (opening == Opening::truncate) entry = Entry{"", ++revisions};
    return std::make_unique<Output>(*this, entry);
  }
  void copy(std::string_view from, std::string_view to, bool overwrite) override {
    if (!overwrite && files.contains(to)) throw RuntimeFailure(Failure::fileAlreadyExists);
    put(to, at(from).bytes);
  }
  void remove(std::string_view path, bool) override {
    at(path);
    files.erase(files.find(path));
  }
  void createFolder(std::string_view) override { throw RuntimeFailure(Failure::deviceUnavailable); }

  std::optional<Failure> failRead;
  std::optional<Failure> failReplace;
  int reads = 0;
  int replaces = 0;

 private:
  struct Output : OutputFile {
    Output(MemoryFileStore& fileStore, Entry& target) : store(fileStore), entry(target) {}
    void write(std::string_view bytes) override {
      entry.bytes += bytes;
      entry.revision = ++store.revisions;
    }
    void close() override {}

    MemoryFileStore& store;
    Entry& entry;
  };

  Entry& at(std::string_view path) {
    const auto found = files.find(path);
    if (found == files.end()) throw RuntimeFailure(Failure::fileNotFound);
    return found->second;
  }

  std::map<std::string, Entry, std::less<>> files;
  std::int64_t revisions = 0;
};

}  // namespace dialwright
