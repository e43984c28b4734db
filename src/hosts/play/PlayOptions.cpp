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
  --freeze           begin with the first picture held
  --seconds N        end after N seconds (default: play on)
  --resume           go on where the last run with --resume was, however it ended; without SHOW, with
                     its show and outputs
  --cues             run the cues of the project, SHOW.korvanedesk beside the show
  --auto TIME        change effects by itself, each TIME: 30, 30s or 16beats
  --from HH:MM --to HH:MM
                     play every day between these local times; started in between, with what should
                     be on by then
  --after WHAT       outside these times the lamps are "dark" (default), "hold" what they show, or
                     the program comes to its "end"
  --gif FILE         make an animated picture of --seconds N instead, as fast as it goes
  --raw              write these seconds to standard output: 25 pictures a second, by rows, a byte
                     each for red, green, blue
  --help             print this text

Keys: a, b fade to the left or right deck; n is Go, z goes a cue back, p pauses the cues; space is a
beat, t taps the tempo; + and - move the grand master by 5 %, o switches blackout, f freeze; g and G
bend the curve of all outputs by gamma 0.1, 1, 2 and 3 take 5 % from their red, green and blue, 0
gives it back; q or Ctrl-C ends. The picture is that of the mixer; what the levels make of it is
seen on the lamps. In the background, and without a terminal, it plays on and tells only what
matters.

Exit status: 0 played, 1 the show can't be opened, 2 wrong usage; with 1 and 2 nothing was sent.
)";

namespace {

constexpr char kOutput = 'o', kMaster = 'm', kBlackout = 'b', kFreeze = 'z', kSeconds = 's',
               kHelp = 'h', kResume = 'u', kCues = 'c', kAuto = 'a', kFrom = 'f', kTo = 't',
               kAfter = 'e', kGif = 'g', kRaw = 'r';

constexpr option kOptions[] = {{"output", required_argument, nullptr, kOutput},
                               {"master", required_argument, nullptr, kMaster},
                               {"blackout", no_argument, nullptr, kBlackout},
                               {"freeze", no_argument, nullptr, kFreeze},
                               {"seconds", required_argument, nullptr, kSeconds},
                               {"resume", no_argument, nullptr, kResume},
                               {"cues", no_argument, nullptr, kCues},
                               {"auto", required_argument, nullptr, kAuto},
                               {"from", required_argument, nullptr, kFrom},
                               {"to", required_argument, nullptr, kTo},
                               {"after", required_argument, nullptr, kAfter},
                               {"gif", required_argument, nullptr, kGif},
                               {"raw", no_argument, nullptr, kRaw},
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

AutoPlaySettings automatic(const std::string& word) {
  AutoPlaySettings settings;
  std::string number = word;
  const auto ends = [&number](const std::string& unit) {
    if (!number.ends_with(unit)) return false;
    number.resize(number.size() - unit.size());
    return true;
  };
  const bool beats = ends("beats");
  if (beats)
    settings.unit = AutoPlaySettings::Unit::Beats;
  else
    ends("s");
  const std::optional<double> value = parseEitherDecimal(number);
  if (!value || *value < (beats ? 1 : kShortestCue) || *value > (beats ? kMostBeats : kLongestCue))
    throw PlayUsageError("--auto must be a time, as in 30s or 16beats, not '" + word + "'");
  settings.every = *value;
  return settings;
}

int timeOfDay(const std::string& option, const std::string& word) {
  if (const std::optional<int> minutes = minutesOfDay(word)) return *minutes;
  throw PlayUsageError(option + " must be a time of the day, as in 18:00, not '" + word + "'");
}

EveningPlan::After afterHours(const std::string& word) {
  if (word == "dark") return EveningPlan::After::Dark;
  if (word == "hold") return EveningPlan::After::Hold;
  if (word == "end") return EveningPlan::After::End;
  throw PlayUsageError("--after must be dark, hold or end, not '" + word + "'");
}

/// The hours, as far as they were given.
struct Hours {
  std::optional<int> from, to;
  bool after = false;
};

// What only makes sense together.
void complete(PlayOptions& options, const Hours& hours) {
  using What = EveningPlan::What;
  if (options.show.empty() && !options.resume && !options.help)
    throw PlayUsageError("name a show to play");
  if (hours.from.has_value() != hours.to.has_value())
    throw PlayUsageError("--from and --to need each other");
  if (hours.from) options.evening.hours = Schedule(*hours.from, *hours.to);
  if (hours.after && !hours.from) throw PlayUsageError("--after needs --from and --to");
  if (options.evening.what == What::Cues && options.automatic)
    throw PlayUsageError("--cues and --auto exclude each other");
  if (options.automatic) options.evening.what = What::AutoPlay;
  if (!options.film.wanted()) return;
  if (options.film.raw && !options.film.gif.empty())
    throw PlayUsageError("--gif and --raw exclude each other");
  const char* film = options.film.raw ? "--raw" : "--gif";
  if (options.seconds == 0) throw PlayUsageError(std::string(film) + " needs --seconds");
  if (hours.from) throw PlayUsageError(std::string(film) + " knows no times of the day");
  if (options.resume) throw PlayUsageError(std::string(film) + " always begins at the beginning");
  if (!options.outputs.empty()) throw PlayUsageError(std::string(film) + " sends nothing to lamps");
}

}  // namespace

PlayOptions parsePlayOptions(int count, char** words) {
  PlayOptions options;
  Hours hours;
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
      case kFreeze:
        options.levels.freeze = true;
        break;
      case kSeconds:
        options.seconds = seconds(optarg);
        break;
      case kResume:
        options.resume = true;
        break;
      case kCues:
        options.evening.what = EveningPlan::What::Cues;
        break;
      case kAuto:
        options.automatic = automatic(optarg);
        break;
      case kFrom:
        hours.from = timeOfDay("--from", optarg);
        break;
      case kTo:
        hours.to = timeOfDay("--to", optarg);
        break;
      case kAfter:
        options.evening.after = afterHours(optarg);
        hours.after = true;
        break;
      case kGif:
        options.film.gif = optarg;
        break;
      case kRaw:
        options.film.raw = true;
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
  complete(options, hours);
  return options;
}

}  // namespace korvane
