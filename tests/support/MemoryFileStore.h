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

/// Files in memory, without folders and copies; reads and rewrites are counted and fail on demand.
class MemoryFileStore : public FileStore {
 public:
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
  std::vector<std::string> fileNames(std::string_view) override { return {}; }

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
    if (opening == Opening::truncate) at(path).bytes.clear();
    return std::make_unique<Output>(at(path).bytes);
  }
  void remove(std::string_view path, bool) override {
    if (files.erase(std::string(path)) == 0) throw RuntimeFailure(Failure::fileNotFound);
  }
  void copy(std::string_view, std::string_view, bool) override {}
  void createFolder(std::string_view) override {}

  std::optional<Failure> failRead;
  std::optional<Failure> failReplace;
  int reads = 0;
  int replaces = 0;

 private:
  struct Entry {
    std::string bytes;
    std::int64_t revision;
  };
  struct Output : OutputFile {
    explicit Output(std::string& target) : bytes(target) {}
    void write(std::string_view more) override { bytes += more; }
    void close() override {}
    std::string& bytes;
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
