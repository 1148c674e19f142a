#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Failure.h"
#include "platform/FileStore.h"
#include "text/Text.h"

namespace dialwright {

/// Bytes by path of the system, in lower case.
using Files = std::map<std::string, std::string>;

/// One operation on files, as the system asked for it.
struct FileOperation {
  enum Kind { question, names, read, open, write, close, replace, copy, remove, folder };
  Kind kind;
  std::string path;  ///< in lower case; of a copy the target
};

/// How an operation fails.
struct Fault {
  /// What is done before it fails: nothing, all of it, or of what is written the first half.
  enum class Reach { nothing, half, all };
  std::string_view name;
  Failure failure;
  Reach reach;
  bool hides = false;    ///< the questions fail too: what is there is not seen
  bool lasting = false;  ///< all later operations fail as well
};

/// Files in memory. A folder is there once it is made or something lies in it. Reads and rewrites
/// are counted and fail on demand.
class MemoryFileStore : public FileStore {
 public:
  explicit MemoryFileStore(const Files& content = {}) {
    for (const auto& [path, bytes] : content) put(path, bytes);
  }

  void put(std::string_view path, std::string_view bytes) {
    files.insert_or_assign(LowerCase(path), Entry{std::string(bytes), ++revisions});
  }
  const std::string& bytes(std::string_view path) { return at(path).bytes; }
  Files all() const {
    Files content;
    for (const auto& [path, entry] : files) content.emplace(path, entry.bytes);
    return content;
  }

  /// From here on operations are remembered; number `number` (from 0) fails if there is a fault.
  void arm(const std::optional<Fault>& fault, std::size_t number) {
    armed = fault;
    failing = number;
    remembering = true;
  }
  void disarm() { remembering = false; }

  Kind kind(std::string_view path) override {
    if (hides(path)) return Kind::none;
    if (files.contains(LowerCase(path))) return Kind::file;
    return isFolder(path) ? Kind::folder : Kind::none;
  }
  std::optional<FileStamp> stamp(std::string_view path) override {
    const auto found = files.find(LowerCase(path));
    if (hides(path) || found == files.end()) return std::nullopt;
    return FileStamp{0, 0, found->second.bytes.size(), found->second.revision};
  }
  std::vector<std::string> fileNames(std::string_view folder) override {
    act(FileOperation::names, folder);
    if (!isFolder(folder)) throw RuntimeFailure(Failure::pathNotFound);
    const std::string inside = below(folder);
    std::vector<std::string> names;
    for (const auto& [path, entry] : files)
      if (path.starts_with(inside) && path.find('\\', inside.size()) == std::string::npos)
        names.push_back(path.substr(inside.size()));
    return names;
  }

  std::string read(std::string_view path) override {
    ++reads;
    if (failRead) throw RuntimeFailure(*failRead);
    act(FileOperation::read, path);
    return at(path).bytes;
  }
  void replace(std::string_view path, std::string_view bytes) override {
    ++replaces;
    if (failReplace) throw RuntimeFailure(*failReplace);
    act(FileOperation::replace, path, [&] { at(path) = Entry{std::string(bytes), ++revisions}; });
  }
  std::unique_ptr<OutputFile> open(std::string_view path, Opening opening, bool create) override {
    act(FileOperation::open, path, [&] {
      if (const bool is = files.contains(LowerCase(path)); !is && !create)
        at(path);
      else if (!is || opening == Opening::truncate)
        put(path, "");
    });
    return std::make_unique<Output>(*this, path);
  }
  void remove(std::string_view path, bool) override {
    act(FileOperation::remove, path, [&] {
      at(path);
      files.erase(LowerCase(path));
    });
  }
  void copy(std::string_view from, std::string_view to, bool overwrite) override {
    act(FileOperation::copy, to, [&] {
      const std::string bytes = at(from).bytes;
      if (!overwrite && files.contains(LowerCase(to)))
        throw RuntimeFailure(Failure::fileAlreadyExists);
      if (!isFolder(to.substr(0, to.rfind('\\')))) throw RuntimeFailure(Failure::pathNotFound);
      put(to, bytes);
    });
  }
  void createFolder(std::string_view path) override {
    act(FileOperation::folder, path, [&] { folders.insert(below(path)); });
  }

  std::optional<Failure> failRead;
  std::optional<Failure> failReplace;
  int reads = 0;
  int replaces = 0;
  std::vector<FileOperation> operations;

 private:
  struct Entry {
    std::string bytes;
    std::int64_t revision;
  };
  struct Output : OutputFile {
    Output(MemoryFileStore& theStore, std::string_view thePath) : store(theStore), path(thePath) {}
    void write(std::string_view more) override {
      const auto add = [&](std::size_t count) {
        store.put(path, store.bytes(path) + std::string(more.substr(0, count)));
      };
      store.act(
          FileOperation::write, path, [&] { add(more.size()); }, [&] { add(more.size() / 2); });
    }
    void close() override { store.act(FileOperation::close, path); }
    MemoryFileStore& store;
    std::string path;
  };

  bool fails(FileOperation::Kind kind, std::string_view path) {
    if (!remembering) return false;
    operations.push_back({kind, LowerCase(path)});
    const std::size_t count = operations.size();
    return armed && (count == failing + 1 || (armed->lasting && count > failing));
  }
  bool hides(std::string_view path) { return fails(FileOperation::question, path) && armed->hides; }
  void act(
      FileOperation::Kind kind, std::string_view path, const std::function<void()>& whole = [] {},
      const std::function<void()>& half = [] {}) {
    if (!fails(kind, path)) return whole();
    if (armed->reach == Fault::Reach::all) whole();
    if (armed->reach == Fault::Reach::half) half();
    throw RuntimeFailure(armed->failure);
  }

  /// What the paths of all that lies in a folder begin with.
  static std::string below(std::string_view folder) {
    return LowerCase(folder.substr(0, folder.find_last_not_of('\\') + 1)) + "\\";
  }
  bool isFolder(std::string_view path) const {
    const std::string inside = below(path);
    const auto next = files.lower_bound(inside);
    return folders.contains(inside) || (next != files.end() && next->first.starts_with(inside));
  }
  Entry& at(std::string_view path) {
    const auto found = files.find(LowerCase(path));
    if (found == files.end()) throw RuntimeFailure(Failure::fileNotFound);
    return found->second;
  }

  std::map<std::string, Entry> files;
  std::set<std::string> folders;
  std::int64_t revisions = 0;
  bool remembering = false;
  std::optional<Fault> armed;
  std::size_t failing = 0;
};

}  // namespace dialwright
