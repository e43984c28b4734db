#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "desk/output/OutputConfig.h"
#include "platform/Text.h"

namespace korvane {

/// What the command line of `korvane-console` says.
struct Options {
  std::string base;             ///< path of the project without its ending
  std::int32_t channels = 512;  ///< that the desk knows
  bool realClock = false;
  std::optional<std::int64_t> seed;
  NumberFormat format;
  bool closed = false;                ///< the tool window is not opened
  std::vector<OutputConfig> outputs;  ///< where the lamps are
  std::optional<std::string> script;  ///< none: standard input
  bool desk = false;                  ///< the stand-alone desk's windows too
  bool help = false;
};

/// Wrong usage; the text says what is wrong.
struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Reads the command line. What it leaves out comes from the environment: the working folder and
/// the locale's decimal separator.
Options parseOptions(int count, char** words);

/// The text of `--help`.
extern const char* const kUsage;

}  // namespace korvane
