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
  enum Kind { question, names, read, open, write, flush, close, replace, copy, remove, folder };
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
    for (const auto& [path, bytes] : content) Put(path, bytes);
  }

  void Put(std::string_view path, std::string_view bytes) {
    files.insert_or_assign(LowerCase(path), Entry{std::string(bytes), ++revisions});
  }
  const std::string& Bytes(std::string_view path) { return At(path).bytes; }
  Files All() const {
    Files content;
    for (const auto& [path, entry] : files) content.emplace(path, entry.bytes);
    return content;
  }

  /// From here on operations are remembered; number `number` (from 0) fails if there is a fault.
  void Arm(const std::optional<Fault>& fault, std::size_t number) {
    armed = fault;
    failing = number;
    remembering = true;
  }
  void Disarm() { remembering = false; }

  Kind KindOf(std::string_view path) override {
    if (Hides(path)) return Kind::none;
    if (files.contains(LowerCase(path))) return Kind::file;
    return IsFolder(path) ? Kind::folder : Kind::none;
  }
  std::optional<FileStamp> Stamp(std::string_view path) override {
    const auto found = files.find(LowerCase(path));
    if (Hides(path) || found == files.end()) return std::nullopt;
    return FileStamp{0, 0, found->second.bytes.size(), found->second.revision};
  }
  std::vector<std::string> FileNames(std::string_view folder) override {
    Act(FileOperation::names, folder);
    if (!IsFolder(folder)) throw RuntimeFailure(Failure::pathNotFound);
    const std::string inside = Below(folder);
    std::vector<std::string> names;
    for (const auto& [path, entry] : files)
      if (path.starts_with(inside) && path.find('\\', inside.size()) == std::string::npos)
        names.push_back(path.substr(inside.size()));
    return names;
  }

  std::string Read(std::string_view path) override {
    ++reads;
    if (failRead) throw RuntimeFailure(*failRead);
    Act(FileOperation::read, path);
    return At(path).bytes;
  }
  void Replace(std::string_view path, std::string_view bytes) override {
    ++replaces;
    if (failReplace) throw RuntimeFailure(*failReplace);
    Act(FileOperation::replace, path, [&] { At(path) = Entry{std::string(bytes), ++revisions}; });
  }
  std::unique_ptr<OutputFile> Open(std::string_view path, Opening opening, bool create) override {
    Act(FileOperation::open, path, [&] {
      if (const bool is = files.contains(LowerCase(path)); !is && !create)
        At(path);
      else if (!is || opening == Opening::truncate)
        Put(path, "");
    });
    return std::make_unique<Output>(*this, path);
  }
  void Remove(std::string_view path, bool) override {
    Act(FileOperation::remove, path, [&] {
      At(path);
      files.erase(LowerCase(path));
    });
  }
  void Copy(std::string_view from, std::string_view to, bool overwrite) override {
    Act(FileOperation::copy, to, [&] {
      const std::string bytes = At(from).bytes;
      if (!overwrite && files.contains(LowerCase(to)))
        throw RuntimeFailure(Failure::fileAlreadyExists);
      if (!IsFolder(to.substr(0, to.rfind('\\')))) throw RuntimeFailure(Failure::pathNotFound);
      Put(to, bytes);
    });
  }
  void CreateFolder(std::string_view path) override {
    Act(FileOperation::folder, path, [&] { folders.insert(Below(path)); });
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
    void Write(std::string_view more) override {
      const auto add = [&](std::size_t count) {
        store.Put(path, store.Bytes(path) + std::string(more.substr(0, count)));
      };
      store.Act(
          FileOperation::write, path, [&] { add(more.size()); }, [&] { add(more.size() / 2); });
    }
    void Flush() override { store.Act(FileOperation::flush, path); }
    void Close() override { store.Act(FileOperation::close, path); }
    MemoryFileStore& store;
    std::string path;
  };

  bool Fails(FileOperation::Kind kind, std::string_view path) {
    if (!remembering) return false;
    operations.push_back({kind, LowerCase(path)});
    const std::size_t count = operations.size();
    return armed && (count == failing + 1 || (armed->lasting && count > failing));
  }
  bool Hides(std::string_view path) { return Fails(FileOperation::question, path) && armed->hides; }
  void Act(
      FileOperation::Kind kind, std::string_view path, const std::function<void()>& whole = [] {},
      const std::function<void()>& half = [] {}) {
    if (!Fails(kind, path)) return whole();
    if (armed->reach == Fault::Reach::all) whole();
    if (armed->reach == Fault::Reach::half) half();
    throw RuntimeFailure(armed->failure);
  }

  /// What the paths of all that lies in a folder begin with.
  static std::string Below(std::string_view folder) {
    return LowerCase(folder.substr(0, folder.find_last_not_of('\\') + 1)) + "\\";
  }
  bool IsFolder(std::string_view path) const {
    const std::string inside = Below(path);
    const auto next = files.lower_bound(inside);
    return folders.contains(inside) || (next != files.end() && next->first.starts_with(inside));
  }
  Entry& At(std::string_view path) {
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
