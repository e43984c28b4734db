#include "hosts/console/Options.h"

#include <getopt.h>

#include <filesystem>

#include "commands/Arguments.h"
#include "platform/LocaleFormat.h"

namespace korvane {

const char* const kUsage =
    R"(usage: korvane-console [options] [SCRIPT]

Runs the whole plug-in without a screen, driven by one command a line from SCRIPT or from standard
input. Each command is answered with one line, a JSON object.

  --base STEM             path of the project without its ending (default: untitled, here)
  --channels N            channels that the desk knows (default: 512)
  --clock virtual|real    time stands still but for "advance", or runs (default: virtual)
  --seed N                random numbers and time of day start at N: a run repeats exactly
  --decimal comma|point   decimal separator (default: that of the locale)
  --closed                do not open the tool window
  --output TARGET         send the lamps their values, as in sacn:1-15, artnet:0@192.168.1.20 or
                          ddp@192.168.1.50; may be given several times
  --desk                  hold the stand-alone desk's windows too
  --help                  print this text

Exit status: 0 every command was ok, 1 one was not, 2 wrong usage, 3 the script can't be read;
with --output 128 and the number of a signal that ended it.
)";

namespace {

constexpr Range kChannels{0, 65536};

constexpr char kBase = 'b', kChannelCount = 'n', kClock = 't', kSeed = 's', kDecimal = 'd',
               kClosed = 'c', kOutput = 'o', kDesk = 'k', kHelp = 'h';

constexpr option kOptions[] = {{"base", required_argument, nullptr, kBase},
                               {"channels", required_argument, nullptr, kChannelCount},
                               {"clock", required_argument, nullptr, kClock},
                               {"seed", required_argument, nullptr, kSeed},
                               {"decimal", required_argument, nullptr, kDecimal},
                               {"closed", no_argument, nullptr, kClosed},
                               {"output", required_argument, nullptr, kOutput},
                               {"desk", no_argument, nullptr, kDesk},
                               {"help", no_argument, nullptr, kHelp},
                               {nullptr, 0, nullptr, 0}};

/// The two words that an option knows: true for the first one.
bool choice(const std::string& name, const std::string& word, const char* first,
            const char* second) {
  if (word == first) return true;
  if (word == second) return false;
  throw UsageError(name + " must be " + first + " or " + second + ", not '" + word + "'");
}

std::int64_t number(const std::string& name, const std::string& word, Range range) {
  const std::optional<std::int64_t> value = wholeNumber(word);
  if (value && *value >= range.least && *value <= range.most) return *value;
  throw UsageError(name + " must be a whole number, " + std::to_string(range.least) + " to " +
                   std::to_string(range.most) + ", not '" + word + "'");
}

NumberFormat formatOf(bool comma) {
  return comma ? NumberFormat{',', '.'} : NumberFormat{'.', ','};
}

OutputConfig output(const std::string& word) {
  try {
    return parseOutput(word);
  } catch (const std::invalid_argument& error) {
    throw UsageError(error.what());
  }
}

std::string stem(const std::string& word) {
  if (std::filesystem::path(word).filename().empty())
    throw UsageError("--base needs a name at its end, not '" + word + "'");
  return word;
}

void take(Options& options, int which, const std::string& word) {
  switch (which) {
    case kBase:
      options.base = stem(word);
      break;
    case kChannelCount:
      options.channels = static_cast<std::int32_t>(number("--channels", word, kChannels));
      break;
    case kClock:
      options.realClock = choice("--clock", word, "real", "virtual");
      break;
    case kSeed:
      options.seed = number("--seed", word, {0, std::numeric_limits<std::int64_t>::max()});
      break;
    case kDecimal:
      options.format = formatOf(choice("--decimal", word, "comma", "point"));
      break;
    case kClosed:
      options.closed = true;
      break;
    case kOutput:
      options.outputs.push_back(output(word));
      break;
    case kDesk:
      options.desk = true;
      break;
    case kHelp:
      options.help = true;
      break;
    case ':':
      throw UsageError(word + " needs a value");
    default:
      throw UsageError("there is no option " + word);
  }
}

}  // namespace

Options parseOptions(int count, char** words) {
  Options options;
  options.base = (std::filesystem::current_path() / "untitled").string();
  options.format = localeFormat();
  opterr = 0;
  for (int which = 0; (which = getopt_long_only(count, words, ":", kOptions, nullptr)) != -1;) {
    const bool wrong = which == ':' || which == '?';
    take(options, which, wrong ? words[optind - 1] : optarg == nullptr ? "" : optarg);
  }
  if (optind < count) options.script = words[optind++];
  if (optind < count)
    throw UsageError(std::string("there is one script too many: ") + words[optind]);
  return options;
}

}  // namespace korvane
