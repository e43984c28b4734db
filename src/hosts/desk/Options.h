#pragma once

#include <QStringList>
#include <optional>
#include <string>

#include "desk/network/OutputTarget.h"

namespace korvane {

/// What the command line asks of the desk.
struct Options {
  std::string project;  ///< path of the project without its ending
  QString show;         ///< path of a show to open, in the project of its name; empty for none
  std::optional<OutputTarget> output;
  bool dmx = false;    ///< DMX is checked from the start
  QString screenshot;  ///< path of a picture to write; empty: run for a person
  QString window;      ///< name of the form on it; empty: the main window
};

/// Reads the command line; ends the program for --help and for an error, which it tells.
Options readOptions(const QStringList& arguments);

}  // namespace korvane
