#pragma once

#include <cstddef>
#include <fstream>
#include <string>
#include <string_view>

namespace korvane {

/// True if a file (not a folder) stands at the path. Paths are UTF-8.
bool fileExists(const std::string& path);

/// Reads an 8-bit text file (code page 1252) line by line; either line end is a line end.
class TextReader {
 public:
  /// kFileNotFound if there is no such file, kPathAccess if it can't be read.
  explicit TextReader(const std::string& path);

  /// The next line as UTF-8; kPastEndOfFile when there is none, with the file and line number.
  std::string readLine();
  bool atEnd() const { return position_ >= bytes_.size(); }
  int lineNumber() const { return line_; }  ///< of the line read last, from 1

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
