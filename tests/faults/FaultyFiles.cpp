#include "FaultyFiles.h"

#include <utility>

#include "text/Text.h"

namespace dialwright {

using Operation = FileOperation::Kind;

class FaultyFiles::Output : public OutputFile {
 public:
  Output(FaultyFiles& theFiles, std::string thePath, std::unique_ptr<OutputFile> opened)
      : owner(theFiles), path(std::move(thePath)), file(std::move(opened)) {}
  void write(std::string_view bytes) override {
    owner.act(
        Operation::write, path, [&] { file->write(bytes); },
        [&] { file->write(bytes.substr(0, bytes.size() / 2)); });
  }
  void close() override {
    owner.act(Operation::close, path, [&] { file->close(); });
  }

 private:
  FaultyFiles& owner;
  std::string path;
  std::unique_ptr<OutputFile> file;
};

void FaultyFiles::arm(std::optional<Fault> fault, std::size_t at) {
  armed = fault;
  failing = at;
  counting = true;
  operations.clear();
}

bool FaultyFiles::fails(Operation kind, std::string_view path) {
  if (!counting) return false;
  operations.push_back({kind, LowerCase(path), componentAtWork});
  return armed &&
         (operations.size() == failing + 1 || (armed->lasting && operations.size() > failing));
}

void FaultyFiles::act(Operation kind, std::string_view path, const std::function<void()>& whole,
                      const std::function<void()>& half) {
  if (!fails(kind, path)) {
    whole();
    return;
  }
  if (armed->reach == Fault::Reach::all) whole();
  if (armed->reach == Fault::Reach::half && half) half();
  throw RuntimeFailure(armed->failure);
}

FileStore::Kind FaultyFiles::kind(std::string_view path) {
  return fails(Operation::kind, path) && armed->hides ? Kind::none : files.kind(path);
}

std::optional<FileStamp> FaultyFiles::stamp(std::string_view path) {
  if (fails(Operation::stamp, path) && armed->hides) return {};
  return files.stamp(path);
}

std::vector<std::string> FaultyFiles::fileNames(std::string_view folder) {
  std::vector<std::string> names;
  act(Operation::names, folder, [&] { names = files.fileNames(folder); });
  return names;
}

std::string FaultyFiles::read(std::string_view path) {
  std::string bytes;
  act(Operation::read, path, [&] { bytes = files.read(path); });
  return bytes;
}

std::unique_ptr<OutputFile> FaultyFiles::open(std::string_view path, Opening opening, bool create) {
  std::unique_ptr<OutputFile> file;
  act(Operation::open, path, [&] { file = files.open(path, opening, create); });
  return std::make_unique<Output>(*this, std::string(path), std::move(file));
}

void FaultyFiles::replace(std::string_view path, std::string_view bytes) {
  act(Operation::replace, path, [&] { files.replace(path, bytes); });
}

void FaultyFiles::copy(std::string_view from, std::string_view to, bool overwrite) {
  act(Operation::copy, to, [&] { files.copy(from, to, overwrite); });
}

void FaultyFiles::remove(std::string_view path, bool force) {
  act(Operation::remove, path, [&] { files.remove(path, force); });
}

void FaultyFiles::createFolder(std::string_view path) {
  act(Operation::folder, path, [&] { files.createFolder(path); });
}

}  // namespace dialwright
