#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Failure.h"
#include "platform/FileStore.h"

namespace dialwright {

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

/// One operation on files, as the system asked for it.
struct FileOperation {
  enum class Kind { kind, stamp, names, read, open, write, close, replace, copy, remove, folder };
  Kind kind = Kind::kind;
  std::string path;  ///< in lower case; of a copy the target
  bool byComponent = false;

  bool isQuestion() const { return kind == Kind::kind || kind == Kind::stamp; }
};

/// Files of which one operation fails. Remembers the operations since it was armed.
class FaultyFiles : public FileStore {
 public:
  explicit FaultyFiles(FileStore& realFiles) : files(realFiles) {}

  /// From here on operations count; number `at` (from 0) fails. Without a fault they only count.
  void arm(std::optional<Fault> fault = {}, std::size_t at = 0);
  void disarm() { counting = false; }

  Kind kind(std::string_view path) override;
  std::optional<FileStamp> stamp(std::string_view path) override;
  std::vector<std::string> fileNames(std::string_view folder) override;
  std::string read(std::string_view path) override;
  std::unique_ptr<OutputFile> open(std::string_view path, Opening opening, bool create) override;
  void replace(std::string_view path, std::string_view bytes) override;
  void copy(std::string_view from, std::string_view to, bool overwrite) override;
  void remove(std::string_view path, bool force) override;
  void createFolder(std::string_view path) override;

  std::vector<FileOperation> operations;
  bool componentAtWork = false;

 private:
  class Output;
  bool fails(FileOperation::Kind kind, std::string_view path);
  /// Runs an operation, or as much of it as the fault lets through.
  void act(FileOperation::Kind kind, std::string_view path, const std::function<void()>& whole,
           const std::function<void()>& half = {});

  FileStore& files;
  bool counting = false;
  std::optional<Fault> armed;
  std::size_t failing = 0;
};

}  // namespace dialwright
