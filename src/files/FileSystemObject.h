#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileStore.h"

namespace dialwright {

enum class IOMode { reading = 1, writing = 2, appending = 8 };

/// The text format of a stream: the system default reads a UTF-16 file (bytes FF FE first) by its
/// mark and takes any other for ANSI, and writes ANSI. Unicode reads UTF-16 with or without a mark.
enum class TextFormat { systemDefault = -2, unicode = -1, ansi = 0 };

/// A text stream over a file. Text is UTF-8 inside; the stream converts at the file's edge.
/// Unicode output begins with its mark. Every operation that touches the file throws
/// RuntimeFailure; one that the stream was not opened for fails with 54, one on a closed stream
/// with 52.
class TextStream {
 public:
  virtual ~TextStream() = default;

  virtual bool AtEndOfStream() const = 0;
  /// One line without its line end, which is a line feed or a carriage return and line feed; a
  /// carriage return alone is text.
  /// Fails with 62 "Input past end of file" at the end.
  virtual std::string ReadLine() = 0;
  /// All that is left, line ends included. Fails with 62 at the end of the file.
  virtual std::string ReadAll() = 0;
  virtual void Write(std::string_view text) = 0;
  /// The text and a carriage return and line feed.
  virtual void WriteLine(std::string_view text) = 0;
  virtual void Close() = 0;
};

/// The file operations of the system, in their classic form, over a FileStore.
class FileSystemObject {
 public:
  explicit FileSystemObject(FileStore& fileStore) : store(fileStore) {}

  bool FileExists(std::string_view path);
  bool FolderExists(std::string_view path);
  void CreateFolder(std::string_view path);
  void CopyFile(std::string_view from, std::string_view to, bool overwrite);
  void DeleteFile(std::string_view path, bool force);
  /// The names of the files in a folder, in the order in which the file system lists them.
  std::vector<std::string> FileNames(std::string_view folder);
  std::unique_ptr<TextStream> OpenTextFile(std::string_view path, IOMode mode, bool create,
                                           TextFormat format);
  /// Makes or empties a file. Fails with 58 if it is there and `overwrite` is not set.
  std::unique_ptr<TextStream> CreateTextFile(std::string_view path, bool overwrite, bool unicode);

 private:
  FileStore& store;
};

}  // namespace dialwright
