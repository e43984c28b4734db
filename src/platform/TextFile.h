#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>

#include "platform/Disk.h"

namespace korvane {

/// A path as the system takes it. Paths are UTF-8 everywhere else.
std::filesystem::path systemPath(const std::string& path);
std::string utf8Path(const std::filesystem::path& path);
/// True if a file (not a folder, nor a device) stands at the path.
bool fileExists(const std::string& path, Disk& disk = machineDisk());
/// The last component of a path.
std::string fileTitle(const std::string& path);

/// Reads an 8-bit text file (code page 1252) line by line, no further than it is asked to; either
/// line end is a line end.
class TextReader {
 public:
  /// Most bytes of a line.
  static constexpr std::size_t kLongestLine = std::size_t{1} << 20;

  /// kFileNotFound if there is no such file, kPathAccess if it can't be read.
  explicit TextReader(const std::string& path, Disk& disk = machineDisk());

  /// The next line as UTF-8; kPastEndOfFile when there is none, kOutOfMemory when it is longer than
  /// a line may be, with the file and line number.
  std::string readLine();
  bool atEnd();
  int lineNumber() const { return line_; }  ///< of the line read last, from 1
  const std::string& path() const { return path_; }
  std::uintmax_t size() const;                          ///< of the whole file, in bytes
  std::size_t bytesRead() const { return bytesRead_; }  ///< up to the end of the line read last

 private:
  bool readBlock();
  void takeUpTo(std::size_t end, std::string& line);
  [[noreturn]] void fail(int number, const std::string& what) const;

  std::string path_;
  Disk& disk_;
  std::unique_ptr<std::istream> stream_;
  std::string block_;  // what was read of the file last
  std::size_t position_ = 0;
  std::size_t bytesRead_ = 0;
  int line_ = 0;
};

/// Writes 8-bit text (code page 1252), CR LF after each line. What was written stays when the
/// writer goes.
class TextWriter {
 public:
  /// Creates the file, or replaces it. kPathAccess if that can't be done, or if a folder, a device
  /// or a pipe stands there.
  explicit TextWriter(const std::string& path, Disk& disk = machineDisk());
  /// Appends to a string, which must outlive it, what would go to a file.
  explicit TextWriter(std::string* bytes);
  ~TextWriter();
  TextWriter(const TextWriter&) = delete;
  TextWriter& operator=(const TextWriter&) = delete;

  void writeLine(std::string_view utf8);
  /// Hands everything to the system; kPathAccess if it didn't take it.
  void close();

 private:
  std::string path_;
  std::unique_ptr<std::ostream> stream_;
  std::string* bytes_ = nullptr;
};

}  // namespace korvane
