#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/Text.h"
#include "platform/TextFile.h"
#include "state/Boolean.h"
#include "state/Effect.h"

namespace korvane {

/// Puts values into a project file, one a line. Real numbers carry the locale's decimal separator.
class LineWriter {
 public:
  LineWriter(TextWriter& file, NumberFormat format) : file_(file), format_(format) {}

  void put(std::int32_t value) { file_.writeLine(std::to_string(value)); }
  void put(double value) { file_.writeLine(formatGeneral(value, format_)); }
  /// kInvalidPropertyValue for a text with a line break, which nothing escapes.
  void put(const std::string& text);
  /// "True" or "False".
  void put(Boolean value) { file_.writeLine(value ? "True" : "False"); }

 private:
  TextWriter& file_;
  NumberFormat format_;
};

/// Takes the lines of a project or definition file as values. kTypeMismatch for a line that does
/// not convert, kOverflow for a number that the field can't hold, kPastEndOfFile for a missing
/// line; each with the file and the line.
class LineReader {
 public:
  /// As TextReader.
  LineReader(const std::string& path, NumberFormat format, Disk& disk)
      : file_(path, disk), format_(format) {}

  void take(std::int16_t& value);
  void take(std::int32_t& value);
  void take(double& value);
  void take(std::string& text) { text = file_.readLine(); }
  /// "True" and "False" in any case; a number is true unless it is 0.
  void take(Boolean& value);
  /// A part of the line read last, as a number.
  std::int16_t integer16(const std::string& text) const;
  std::int32_t integer32(const std::string& text) const;
  /// Takes a line that nobody reads.
  void skip() { file_.readLine(); }

  /// Raises a failure that names the line read last.
  [[noreturn]] void fail(int number, const std::string& what) const;
  const std::string& path() const { return file_.path(); }
  std::uintmax_t size() const { return file_.size(); }         ///< of the file, in bytes
  std::size_t bytesRead() const { return file_.bytesRead(); }  ///< up to the line read last

 private:
  template <class Convert>
  auto converted(const std::string& text, Convert convert) const;

  TextReader file_;
  NumberFormat format_;
};

/// Columns and rows of the matrix, and the bytes that the pictures of Paint effects have taken.
struct PictureRoom {
  std::int16_t cols = 0;
  std::int16_t rows = 0;
  std::size_t taken = 0;
};

/// The lines of an effect: `type`, `name`, and the fields of the type. A type that does not exist
/// has its number alone. kSubscript if an array is shorter than its count, or a picture smaller
/// than the cols x rows of the matrix.
void writeEffect(LineWriter& out, const Effect& effect, std::int16_t cols, std::int16_t rows);
/// Reads them. Lists are dimensioned to their count, pictures to the matrix; lines of a picture are
/// read only for cells inside the matrix. kOutOfMemory if the pictures take far more memory than
/// the file has lines for.
void readEffect(LineReader& in, Effect& effect, PictureRoom& room);

/// The lines of a fade.
void writeFade(LineWriter& out, const FadeEntry& fade);
void readFade(LineReader& in, FadeEntry& fade);

}  // namespace korvane
