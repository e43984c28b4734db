#include "persistence/MatrixDefinition.h"

#include <algorithm>
#include <cstddef>
#include <exception>
#include <vector>

#include "generators/Effects.h"
#include "platform/Numbers.h"
#include "platform/ReplaceFile.h"
#include "platform/Text.h"

namespace korvane {
namespace {

constexpr std::int16_t kDefaultSide = 12;
constexpr int kCodesOfCell = 3;

std::vector<std::string> nextFields(LineReader& file) {
  std::string line;
  file.take(line);
  return split(line, ',');
}

// A field of the line read last; kSubscript if the line has fewer.
const std::string& field(const std::vector<std::string>& fields, std::size_t index,
                         const LineReader& file) {
  if (index < fields.size()) return fields[index];
  file.fail(kSubscript, "the line has too few fields");
}

// In every slot: after removals, rows refer to slots beyond their number.
void fitEffects(const Engine& engine, Deck& deck) {
  for (Effect& effect : deck.efx) {
    if (const EffectKind* kind = kindOf(effect.type)) kind->gridChanged(engine, effect);
  }
}

// A size beyond what a grid can be is never filled.
std::int64_t cellsToRead(const MatrixDefinition& definition) {
  return std::min(std::int64_t{*definition.cols} * *definition.rows, Grid<Color>::kMostCells);
}

bool definitionEndsEarly(const std::string& path, Disk& disk) {
  bool sized = false;
  try {
    LineReader file(path, {}, disk);
    if (file.size() == 0) return true;
    file.skip();
    const std::vector<std::string> size = nextFields(file);
    std::int64_t cells =
        std::int64_t{file.integer16(field(size, 0, file))} * file.integer16(field(size, 1, file));
    sized = true;
    for (; cells > 0; --cells) file.skip();
    return false;
  } catch (const Failure& failure) {
    return sized && failure.number == kPastEndOfFile;
  }
}

std::string cellLine(const Variablen& v, int col, int row) {
  const ChannelMap::Codes& codes = v.channelMap.at(col, row);
  return std::to_string(codes[0]) + "," + std::to_string(codes[1]) + "," + std::to_string(codes[2]);
}

}  // namespace

void readProjectNames(Engine& engine) {
  Variablen& v = engine.v;
  v.projectName = engine.host().ProjectName();
  v.projectBaseFilename = engine.host().ProjectBaseFilename();
  const std::size_t stem = v.projectBaseFilename.size();
  const std::size_t name = v.projectName.size();
  v.projectDirectory = v.projectBaseFilename.substr(0, stem > name ? stem - name : 0);
}

std::string definitionFile(const Engine& engine) {
  return engine.v.projectBaseFilename + ".korvaneconf";
}

void dimensionMatrix(Engine& engine) {
  Variablen& v = engine.v;
  const int cols = v.matrixCols;
  const int rows = v.matrixRows;
  v.matrix.redim();
  for (Frame* frame : {&v.frameA, &v.frameB, &v.frameWorkA, &v.frameWorkB, &v.frameM})
    frame->redim(cols, rows);
  v.fadeMap.redim(cols, rows);
  v.frameSent.redim(cols, rows);
  v.paintUndo.redim(cols, rows);
}

void resizePaintPictures(Engine& engine) {
  fitEffects(engine, engine.v.A);
  fitEffects(engine, engine.v.B);
  for (const EffectKind* kind : kinds()) {
    EffectDialog* dialog = dialogOf(engine, *kind);
    if (dialog != nullptr) dialog->gridChanged();
  }
}

void makeDefaultDefinition(Engine& engine) {
  Variablen& v = engine.v;
  v.matrixCols = kDefaultSide;
  v.matrixRows = kDefaultSide;
  dimensionMatrix(engine);
  v.matrix.countChannelsUp(1, Matrix::Order::ColumnByColumn);
  v.matrixConfigured = true;
}

MatrixDefinition readDefinition(const std::string& path, Disk& disk) {
  LineReader file(path, {}, disk);
  MatrixDefinition definition;
  try {
    std::string name;
    file.take(name);
    definition.name = name;
    const std::vector<std::string> size = nextFields(file);
    definition.cols = file.integer16(field(size, 0, file));
    definition.rows = file.integer16(field(size, 1, file));
    for (std::int64_t cells = cellsToRead(definition); cells > 0; --cells) {
      const std::vector<std::string> codes = nextFields(file);
      for (std::size_t component = 0; component < kCodesOfCell; ++component)
        definition.codes.push_back(file.integer32(field(codes, component, file)));
    }
  } catch (const Failure&) {
    definition.end = std::current_exception();
  }
  return definition;
}

void applyDefinition(Engine& engine, const MatrixDefinition& definition,
                     const std::function<void()>& sized) {
  Variablen& v = engine.v;
  if (definition.cols) v.matrixCols = *definition.cols;
  if (!definition.rows) std::rethrow_exception(definition.end);
  v.matrixRows = *definition.rows;
  dimensionMatrix(engine);
  resizePaintPictures(engine);
  if (sized) sized();
  auto code = definition.codes.begin();
  for (int col = 0; col < v.matrixCols; ++col) {
    for (int row = 0; row < v.matrixRows; ++row) {
      for (int component = 0; component < kCodesOfCell; ++component) {
        if (code == definition.codes.end()) std::rethrow_exception(definition.end);
        v.channelMap.set(col, row, component, *code++);
      }
      v.cellConfigured.at(col, row) = true;
    }
  }
}

void writeDefinition(const Engine& engine, const std::string& name, TextWriter& file) {
  const Variablen& v = engine.v;
  file.writeLine(name);
  file.writeLine(std::to_string(v.matrixCols) + "," + std::to_string(v.matrixRows) +
                 (v.quickConfigured ? ",True" : ",False"));
  for (int col = 0; col < v.matrixCols; ++col) {
    for (int row = 0; row < v.matrixRows; ++row) file.writeLine(cellLine(v, col, row));
  }
}

TextToKeep definitionToKeep(const Engine& engine, const std::string& path,
                            const std::string& name) {
  const auto write = [&engine, name](TextWriter& file) { writeDefinition(engine, name, file); };
  const auto endsEarly = [&disk = engine.platform.disk()](const std::string& file) {
    return definitionEndsEarly(file, disk);
  };
  return {path, write, endsEarly};
}

void writeDefinition(Engine& engine, const std::string& path, const std::string& name) {
  const TextToKeep text = definitionToKeep(engine, path, name);
  try {
    replaceTextFile(path, text.write, text.endsEarly, engine.platform.disk());
  } catch (const std::exception& error) {
    tellOfFailedSave(engine.platform, path, error.what(), text.endsEarly);
    throw;
  }
}

void loadDefinition(Engine& engine, const std::string& path) {
  const MatrixDefinition definition = readDefinition(path, engine.platform.disk());
  if (definition.name) engine.v.matrixName = *definition.name;
  applyDefinition(engine, definition);
  engine.v.matrixConfigured = true;
}

void orDefaultDefinition(Engine& engine, const std::function<void()>& read) {
  try {
    read();
  } catch (const std::exception& error) {
    if (!engine.platform.startsWithout({definitionFile(engine), error.what()})) throw;
    makeDefaultDefinition(engine);
  }
}

void loadDefinitionAtStart(Engine& engine) {
  if (engine.v.matrixConfigured) return;
  readProjectNames(engine);
  const std::string path = definitionFile(engine);
  if (!fileExists(path, engine.platform.disk())) return makeDefaultDefinition(engine);
  orDefaultDefinition(engine, [&] { loadDefinition(engine, path); });
}

}  // namespace korvane
