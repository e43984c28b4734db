#pragma once

#include <cstdint>
#include <exception>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "persistence/RecordLines.h"
#include "platform/ReplaceFile.h"
#include "state/Engine.h"

namespace korvane {

/// The largest side of a grid that the windows offer.
inline constexpr int kMostColumns = 50;
inline constexpr int kMostRowsOfGrid = 50;

/// Reads `Project.Name` and `Project.BaseFilename` from the desk and works out `projectDirectory`.
void readProjectNames(Engine& engine);
/// The definition file named after the project; readProjectNames first.
std::string definitionFile(const Engine& engine);

/// Dimensions all arrays that have the size of the matrix anew, which clears them. Nothing checks
/// the size: a negative one fails with kSubscript, a huge one with kOutOfMemory, and stays in
/// force.
void dimensionMatrix(Engine& engine);
/// Gives the pictures of Paint effects the size of the matrix; they keep their contents. An
/// open Paint dialog shows its picture in the new size.
void resizePaintPictures(Engine& engine);

/// The grid of a project without a definition: 12 by 12, channels counted up column by column.
void makeDefaultDefinition(Engine& engine);

/// What a definition file says, as far as it can be read. Taking it to the matrix is another step.
struct MatrixDefinition {
  std::optional<std::string> name;
  std::optional<std::int16_t> cols, rows;  ///< as they stand
  /// Of the cells, red, green and blue of each, column by column.
  std::vector<std::int32_t> codes;
  std::exception_ptr end;  ///< why no more could be read: the end of the file, or a fault in it
};

/// Reads a definition file; kFileNotFound, kPathAccess.
MatrixDefinition readDefinition(const std::string& path, Disk& disk);
/// Gives the matrix the size and its cells their channels; each such cell is marked as configured.
/// `sized` runs between the two. Where the definition ends before the last cell, what it has is
/// taken, and its end is the failure.
void applyDefinition(Engine& engine, const MatrixDefinition& definition,
                     const std::function<void()>& sized = {});
/// The lines of a definition file.
void writeDefinition(const Engine& engine, const std::string& name, TextWriter& file);
/// A definition file to be written.
TextToKeep definitionToKeep(const Engine& engine, const std::string& path, const std::string& name);
/// Writes a whole definition file; one that it replaces is kept as NAME.bak. A failure goes to
/// Platform::saveFailed, too.
void writeDefinition(Engine& engine, const std::string& path, const std::string& name);

/// Takes a definition file to the matrix, its name going to `matrixName`.
void loadDefinition(Engine& engine, const std::string& path);

/// Reads the definition named after the project. Where that fails, a program that stands alone may
/// choose the default instead.
void orDefaultDefinition(Engine& engine, const std::function<void()>& read);

/// What the main window does at start if no definition exists: takes the file named after the
/// project, its name going to `matrixName`, or else the default.
void loadDefinitionAtStart(Engine& engine);

}  // namespace korvane
