#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "desk/output/OutputConfig.h"

namespace korvane {

/// What the command line asks of the desk.
struct Options {
  std::string project;  ///< path of the project without its ending; empty: untitled
  std::string show;     ///< path of a show to open, in the project of its name; empty for none
  std::vector<OutputConfig> outputs;  ///< instead of those that are remembered; empty: those
  bool dmx = false;                   ///< DMX is checked from the start
  std::string screenshot;             ///< path of a picture to write; empty: run for a person
  std::string window;                 ///< name of the form on it
  bool help = false;
  bool version = false;
};

/// Wrong usage; the text says what is wrong.
struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Reads the command line. Needs no display.
Options parseOptions(int count, char** words);

/// The text of `--help`.
extern const char* const kUsage;

}  // namespace korvane
