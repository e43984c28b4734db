#pragma once

#include <QList>
#include <QString>

namespace korvane {

/// A show that comes with the program.
struct Example {
  QString title;  ///< as in "Club night", for the file 1-club-night.Korvane
  QString path;
};

/// The shows of a folder, in the order of their file names.
QList<Example> examplesIn(const QString& folder);

/// The folder of the shows beside the running program: of an installation, or of the tree that it
/// was built in. Empty if there is none.
QString examplesFolder();

}  // namespace korvane
