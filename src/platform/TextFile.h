#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace korvane {

/// A path as the system takes it. Paths are UTF-8 everywhere else.
std::filesystem::path systemPath(const std::string& path);
/// True if a file (not a folder, nor a device) stands at the path.
bool fileExists(const std::string& path);
/// The last component of a path.
std::string fileTitle(const std::string& path);

/// Reads an 8-bit text file (code page 1252) line by line; either line end is a line end.
class TextReader {
 public:
  /// kFileNotFound if there is no such file, kPathAccess if it can't be read.
  explicit TextReader(const std::string& path);

  /// The next line as UTF-8; kPastEndOfFile when there is none, with the file and line number.
  std::string readLine();
  bool atEnd() const { return position_ >= bytes_.size(); }
  int lineNumber() const { return line_; }  ///< of the line read last, from 1
  const std::string& path() const { return path_; }
  std::size_t size() const { return bytes_.size(); }  ///< of the whole file, in bytes

 private:
  std::string path_;
  std::string bytes_;
  std::size_t position_ = 0;
  int line_ = 0;
};

/// Writes an 8-bit text file (code page 1252), CR LF after each line. The file is created, or
/// replaced, by the constructor: kPathAccess if it can't be. What was written stays when the
/// writer goes.
class TextWriter {
 public:
  explicit TextWriter(const std::string& path);

  void writeLine(std::string_view utf8);
  /// Hands everything to the system; kPathAccess if it didn't take it.
  void close();

 private:
  std::string path_;
  std::ofstream stream_;
};

}  // namespace korvane
