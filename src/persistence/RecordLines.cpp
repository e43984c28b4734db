#include "persistence/RecordLines.h"

#include <algorithm>
#include <vector>

#include "generators/Effects.h"
#include "platform/Failure.h"
#include "platform/Text.h"

namespace korvane {
namespace {

// A small file can name far more pictures than it has lines for: they may take this many bytes and
// four for each byte read, which is more than a file of full pictures needs.
constexpr std::size_t kPictureBytes = std::size_t{16} << 20;

bool toBoolean(std::string_view text, const NumberFormat& format) {
  const std::string word = lowerCase(std::string(text));
  return word == "true" || (word != "false" && toReal(text, format) != 0);
}

struct FieldWriter {
  LineWriter& out;
  const Effect& effect;
  std::int16_t cols;
  std::int16_t rows;

  template <class Value>
  void operator()(Value Effect::*field) const {
    out.put(effect.*field);
  }

  void operator()(Grid<Color> Effect::*field) const {
    out.put(std::to_string(cols) + "," + std::to_string(rows));
    (effect.*field).at(cols, rows);  // the spare cell of a picture that has the bounds of the grid
    for (int col = 0; col < cols; ++col) {
      for (int row = 0; row < rows; ++row) out.put((effect.*field).at(col, row));
    }
  }

  void operator()(const ItemList& list) const {
    out.put(effect.*list.count);
    for (std::int16_t item = 0; item < effect.*list.count; ++item) {
      for (const ItemColumn& column : list.columns) putItem(column, static_cast<std::size_t>(item));
    }
  }

  void putItem(const ItemColumn& column, std::size_t item) const {
    std::visit([&](auto values) { out.put((effect.*values).at(item)); }, column.values);
  }
};

struct FieldReader {
  LineReader& in;
  Effect& effect;
  PictureRoom& room;

  template <class Value>
  void operator()(Value Effect::*field) const {
    in.take(effect.*field);
  }

  void operator()(Grid<Color> Effect::*field) const {
    dimension(effect.*field);
    std::string size;
    in.take(size);
    const std::vector<std::string> sides = split(size, ',');
    if (sides.size() < 2) in.fail(kSubscript, "the size of a picture needs two numbers");
    // A picture from a larger grid has more lines than are read here, and so loses its place; one
    // from a smaller grid leaves the other cells black (docs/kept.md, show-other-grid).
    const int cols = std::min(in.integer16(sides[0]), room.cols);
    const int rows = std::min(in.integer16(sides[1]), room.rows);
    for (int col = 0; col < cols; ++col) {
      for (int row = 0; row < rows; ++row) in.take((effect.*field).at(col, row));
    }
  }

  void operator()(const ItemList& list) const {
    const std::int16_t& count = effect.*list.count;
    in.take(effect.*list.count);
    if (count > 0 || list.emptyHasSlot) {
      for (const ItemColumn& column : list.columns) dimension(column, count);
    }
    for (std::int16_t item = 0; item < count; ++item) {
      for (const ItemColumn& column : list.columns)
        takeItem(column, static_cast<std::size_t>(item));
    }
  }

  // A small file can name many pictures and give none of them a line.
  void dimension(Grid<Color>& picture) const {
    const std::size_t cells = static_cast<std::size_t>(std::max<int>(room.cols, 0) + 1) *
                              static_cast<std::size_t>(std::max<int>(room.rows, 0) + 1);
    room.taken += cells * sizeof(Color);
    if (room.taken > kPictureBytes + 4 * in.bytesRead()) in.fail(kOutOfMemory, "too many pictures");
    picture.redim(room.cols, room.rows);
  }

  void dimension(const ItemColumn& column, std::int16_t count) const {
    if (count < 0) in.fail(kSubscript, "a list can't have " + std::to_string(count) + " items");
    std::visit([&](auto values) { (effect.*values).resize(static_cast<std::size_t>(count) + 1); },
               column.values);
  }

  void takeItem(const ItemColumn& column, std::size_t item) const {
    std::visit([&](auto values) { in.take((effect.*values)[item]); }, column.values);
  }
};

}  // namespace

template <class Convert>
auto LineReader::converted(const std::string& text, Convert convert) const {
  try {
    return convert(text, format_);
  } catch (const Failure& failure) {
    fail(failure.number, "'" + text.substr(0, 60) + "'");
  }
}

void LineReader::fail(int number, const std::string& what) const {
  throw Failure(number,
                file_.path() + ", line " + std::to_string(file_.lineNumber()) + ": " + what);
}

void LineWriter::put(const std::string& text) {
  if (text.find('\n') != std::string::npos)
    throw Failure(kInvalidPropertyValue, "a text of two lines: '" + text + "'");
  file_.writeLine(text);
}

void LineReader::take(std::int16_t& value) { value = integer16(file_.readLine()); }

void LineReader::take(std::int32_t& value) { value = integer32(file_.readLine()); }

void LineReader::take(double& value) { value = converted(file_.readLine(), toReal); }

void LineReader::take(Boolean& value) { value = converted(file_.readLine(), toBoolean); }

std::int16_t LineReader::integer16(const std::string& text) const {
  return converted(text, toInteger16);
}

std::int32_t LineReader::integer32(const std::string& text) const {
  return converted(text, toInteger32);
}

void writeEffect(LineWriter& out, const Effect& effect, std::int16_t cols, std::int16_t rows) {
  out.put(effect.type);
  const std::vector<EffectField>& fields = effectFields(effect.type);
  if (!fields.empty()) out.put(effect.name);
  for (const EffectField& field : fields) {
    std::visit(FieldWriter{out, effect, cols, rows}, field.value);
  }
}

void readEffect(LineReader& in, Effect& effect, PictureRoom& room) {
  in.take(effect.type);
  const std::vector<EffectField>& fields = effectFields(effect.type);
  if (!fields.empty()) in.take(effect.name);
  for (const EffectField& field : fields) {
    std::visit(FieldReader{in, effect, room}, field.value);
  }
  fitLists(effect);
}

void writeFade(LineWriter& out, const FadeEntry& fade) {
  for (const FadeField& field : fadeFields()) {
    std::visit([&](auto value) { out.put(fade.*value); }, field.value);
  }
}

void readFade(LineReader& in, FadeEntry& fade) {
  for (const FadeField& field : fadeFields()) {
    std::visit([&](auto value) { in.take(fade.*value); }, field.value);
  }
}

}  // namespace korvane
