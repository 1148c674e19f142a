#pragma once

#include "MemoryFileStore.h"

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
  Operation kind = Operation::kind;
  std::string path;  ///< in lower case; of a copy the target

  bool isQuestion() const { return kind == Operation::kind || kind == Operation::stamp; }
};

/// Files of which one operation fails. Remembers the operations since it was armed.
class FaultyFiles : public MemoryFileStore {
 public:
  using MemoryFileStore::MemoryFileStore;
  /// From here on operations count; number `at` (from 0) fails. Without a fault they only count.
  void arm(std::optional<Fault> fault, std::size_t at) {
    armed = fault;
    failing = at;
    counting = true;
  }
  void disarm() { counting = false; }

  std::vector<FileOperation> operations;

 private:
  bool fails(Operation kind, std::string_view path) {
    if (!counting) return false;
    operations.push_back({kind, LowerCase(path)});
    return armed &&
           (operations.size() == failing + 1 || (armed->lasting && operations.size() > failing));
  }
  bool hides(Operation kind, std::string_view path) override {
    return fails(kind, path) && armed->hides;
  }
  void act(Operation kind, std::string_view path, const Action& whole,
           const Action& half) override {
    if (!fails(kind, path)) return whole();
    if (armed->reach == Fault::Reach::all) whole();
    if (armed->reach == Fault::Reach::half) half();
    throw RuntimeFailure(armed->failure);
  }

  bool counting = false;
  std::optional<Fault> armed;
  std::size_t failing = 0;
};

}  // namespace dialwright
