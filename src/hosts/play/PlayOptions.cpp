#include "hosts/play/PlayOptions.h"

#include <getopt.h>

#include <cmath>
#include <optional>

#include "platform/Text.h"

namespace korvane {

const char* const kPlayUsage =
    R"(usage: korvane-play [options] [SHOW.Korvane]

Plays a saved show in the terminal, and to the lamps. The grid is taken from the file
SHOW.korvaneconf beside it, outputs and grand master from SHOW.korvanedesk if the command line
says nothing of them. Any of the three may be named.

  --output TARGET    send the lamps their values, as in sacn:1-15, artnet:0@192.168.1.20 or
                     ddp@192.168.1.50; may be given several times (docs/outputs.md)
  --master PERCENT   grand master, 0 to 100 (default: 100)
  --blackout         begin dark
  --seconds N        end after N seconds (default: play on)
  --resume           go on where the last run with --resume was, however it ended; without SHOW, with
                     its show and outputs
  --help             print this text

Keys: a, b fade to the left or right deck; space is a beat; + and - move the grand master by 5 %,
o switches blackout, f freeze; g and G bend the curve of all outputs by gamma 0.1, 1, 2 and 3 take
5 % from their red, green and blue, 0 gives it back; q or Ctrl-C ends. The picture is that of the
mixer; what the levels make of it is seen on the lamps. In the background, and without a terminal,
it plays on and tells only what matters.

Exit status: 0 played, 1 the show can't be opened, 2 wrong usage; with 1 and 2 nothing was sent.
)";

namespace {

constexpr char kOutput = 'o', kMaster = 'm', kBlackout = 'b', kSeconds = 's', kResume = 'r',
               kHelp = 'h';

constexpr option kOptions[] = {{"output", required_argument, nullptr, kOutput},
                               {"master", required_argument, nullptr, kMaster},
                               {"blackout", no_argument, nullptr, kBlackout},
                               {"seconds", required_argument, nullptr, kSeconds},
                               {"resume", no_argument, nullptr, kResume},
                               {"help", no_argument, nullptr, kHelp},
                               {nullptr, 0, nullptr, 0}};

OutputConfig output(const char* word) {
  try {
    return parseOutput(word);
  } catch (const std::invalid_argument& error) {
    throw PlayUsageError(error.what());
  }
}

int percent(const std::string& word) {
  const std::optional<double> value = parseEitherDecimal(word);
  if (value && *value >= 0 && *value <= 100) return static_cast<int>(std::lround(*value));
  throw PlayUsageError("--master must be a number, 0 to 100, not '" + word + "'");
}

double seconds(const std::string& word) {
  const std::optional<double> value = parseEitherDecimal(word);
  if (value && *value > 0 && *value <= 1e9) return *value;
  throw PlayUsageError("--seconds must be a number above 0, not '" + word + "'");
}

}  // namespace

PlayOptions parsePlayOptions(int count, char** words) {
  PlayOptions options;
  opterr = 0;
  for (int which = 0; (which = getopt_long(count, words, ":", kOptions, nullptr)) != -1;) {
    switch (which) {
      case kOutput:
        options.outputs.push_back(output(optarg));
        break;
      case kMaster:
        options.levels.master = percent(optarg);
        options.masterGiven = true;
        break;
      case kBlackout:
        options.levels.blackout = true;
        break;
      case kSeconds:
        options.seconds = seconds(optarg);
        break;
      case kResume:
        options.resume = true;
        break;
      case kHelp:
        options.help = true;
        break;
      case ':':
        throw PlayUsageError(std::string(words[optind - 1]) + " needs a value");
      default:
        throw PlayUsageError("there is no option " + std::string(words[optind - 1]));
    }
  }
  if (optind < count) options.show = words[optind++];
  if (optind < count)
    throw PlayUsageError("one show at a time, not also " + std::string(words[optind]));
  return options;
}

}  // namespace korvane
