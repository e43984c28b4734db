#pragma once

#include <functional>
#include <string>

#include "persistence/RecordLines.h"
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

/// The second line of a definition file, behind the name: the size, which goes to `matrixCols` and
/// `matrixRows` as it stands.
void readDefinitionSize(Engine& engine, LineReader& file);
/// The lines of the cells, column by column; each cell read is marked as configured.
void readDefinitionCells(Engine& engine, LineReader& file);
/// The lines of a definition file.
void writeDefinition(const Engine& engine, const std::string& name, TextWriter& file);
/// Writes a whole definition file; one that it replaces is kept as NAME.bak. A failure goes to
/// Platform::saveFailed, too.
void writeDefinition(Engine& engine, const std::string& path, const std::string& name);

/// Reads the definition named after the project. Where that fails, a program that stands alone may
/// choose the default instead.
void orDefaultDefinition(Engine& engine, const std::function<void()>& read);

/// What the main window does at start if no definition exists: takes the file named after the
/// project, its name going to `matrixName`, or else the default.
void loadDefinitionAtStart(Engine& engine);

}  // namespace korvane
