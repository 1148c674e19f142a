#include "files/FileSystemObject.h"

#include <utility>

#include "platform/Failure.h"
#include "text/Ansi.h"

namespace dialwright {
namespace {

// Reads the whole file when it is opened. ANSI text is converted line by line as it is asked for,
// UTF-16 at once, since its line ends cannot be found byte by byte.
class ReadingStream : public TextStream {
 public:
  ReadingStream(std::string bytes, TextFormat format) : text(std::move(bytes)) {
    const bool marked = text.starts_with(utf16Mark);
    ansi = format == TextFormat::ansi || (format == TextFormat::systemDefault && !marked);
    if (!ansi) {
      text = Utf16ToUtf8(std::string_view(text).substr(marked ? utf16Mark.size() : 0));
    }
  }

  bool AtEndOfStream() const override { return at == text.size(); }

  std::string ReadLine() override {
    RequireMore();
    const std::string_view rest = std::string_view(text).substr(at);
    const std::size_t feed = rest.find('\n');
    if (feed == std::string_view::npos) return Take(rest.size(), rest.size());
    const bool carriageReturn = feed > 0 && rest[feed - 1] == '\r';
    return Take(feed + 1, carriageReturn ? feed - 1 : feed);
  }

  std::string ReadAll() override {
    RequireMore();
    return Take(text.size() - at, text.size() - at);
  }

  void Write(std::string_view) override { throw RuntimeFailure(Failure::badFileMode); }
  void WriteLine(std::string_view) override { throw RuntimeFailure(Failure::badFileMode); }

  void Close() override {
    open = false;
    text.clear();
    at = 0;
  }

 private:
  void RequireMore() const {
    if (!open) throw RuntimeFailure(Failure::badFileName);
    if (AtEndOfStream()) throw RuntimeFailure(Failure::inputPastEnd);
  }

  // Moves over `count` bytes and gives the first `length` of them.
  std::string Take(std::size_t count, std::size_t length) {
    const std::string_view taken = std::string_view(text).substr(at, length);
    at += count;
    return ansi ? AnsiToUtf8(taken) : std::string(taken);
  }

  std::string text;
  std::size_t at = 0;
  bool ansi = true;
  bool open = true;
};

class WritingStream : public TextStream {
 public:
  WritingStream(std::unique_ptr<OutputFile> opened, bool inUnicode, bool atStart)
      : file(std::move(opened)), unicode(inUnicode) {
    if (unicode && atStart) file->Write(utf16Mark);
  }

  bool AtEndOfStream() const override { throw RuntimeFailure(Failure::badFileMode); }
  std::string ReadLine() override { throw RuntimeFailure(Failure::badFileMode); }
  std::string ReadAll() override { throw RuntimeFailure(Failure::badFileMode); }

  void Write(std::string_view text) override {
    if (!file) throw RuntimeFailure(Failure::badFileName);
    file->Write(unicode ? Utf8ToUtf16(text) : Utf8ToAnsi(text));
  }
  void WriteLine(std::string_view text) override { Write(std::string(text) + "\r\n"); }

  void Close() override {
    if (!file) return;
    const std::unique_ptr<OutputFile> closing = std::move(file);
    closing->Close();
  }

 private:
  std::unique_ptr<OutputFile> file;
  bool unicode;
};

}  // namespace

bool FileSystemObject::FileExists(std::string_view path) {
  return store.KindOf(path) == FileStore::Kind::file;
}

bool FileSystemObject::FolderExists(std::string_view path) {
  return store.KindOf(path) == FileStore::Kind::folder;
}

void FileSystemObject::CreateFolder(std::string_view path) { store.CreateFolder(path); }

void FileSystemObject::CopyFile(std::string_view from, std::string_view to, bool overwrite) {
  store.Copy(from, to, overwrite);
}

void FileSystemObject::DeleteFile(std::string_view path, bool force) { store.Remove(path, force); }

std::vector<std::string> FileSystemObject::FileNames(std::string_view folder) {
  return store.FileNames(folder);
}

std::unique_ptr<TextStream> FileSystemObject::OpenTextFile(std::string_view path, IOMode mode,
                                                           bool create, TextFormat format) {
  const bool unicode = format == TextFormat::unicode;
  if (mode == IOMode::reading) {
    if (create && store.KindOf(path) == FileStore::Kind::none) {
      store.Open(path, FileStore::Opening::append, true)->Close();
    }
    return std::make_unique<ReadingStream>(store.Read(path), format);
  }
  const auto opening =
      mode == IOMode::appending ? FileStore::Opening::append : FileStore::Opening::truncate;
  std::unique_ptr<OutputFile> file = store.Open(path, opening, create);
  bool atStart = opening == FileStore::Opening::truncate;
  if (unicode && !atStart) {
    const std::optional<FileStamp> stamp = store.Stamp(path);
    atStart = stamp && stamp->size == 0;
  }
  return std::make_unique<WritingStream>(std::move(file), unicode, atStart);
}

std::unique_ptr<TextStream> FileSystemObject::CreateTextFile(std::string_view path, bool overwrite,
                                                             bool unicode) {
  if (!overwrite && store.KindOf(path) != FileStore::Kind::none) {
    throw RuntimeFailure(Failure::fileAlreadyExists);
  }
  return std::make_unique<WritingStream>(store.Open(path, FileStore::Opening::truncate, true),
                                         unicode, true);
}

}  // namespace dialwright
