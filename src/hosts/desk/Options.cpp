#include "hosts/desk/Options.h"

#include <getopt.h>

namespace korvane {

const char* const kUsage =
    R"(usage: korvane [options] [SHOW]

The stand-alone desk for the matrix effects of Korvane. SHOW is a show to begin with.

  --show FILE        open a show, as SHOW does
  --project STEM     path of the first project without an ending (default: untitled, in the documents)
  --output TARGET    send the lamps, as in sacn:1-15, artnet:0@192.168.1.20 or ddp@192.168.1.50,rate=20;
                     several times for several outputs, instead of those of the last time
  --dmx              check DMX: the lamps follow the show at once
  --screenshot FILE  write a picture of a window to the file and end
  --window NAME      the window on it, as in Desk, MatrixConf or DeskChannels (default: Desk)
  --version          print the version
  --help             print this text

Without a display, korvane-play plays a show in the terminal.
)";

namespace {

constexpr char kShow = 's', kProject = 'p', kOutput = 'o', kDmx = 'd', kScreenshot = 'f',
               kWindow = 'w', kHelp = 'h', kVersion = 'v';

constexpr option kOptions[] = {{"show", required_argument, nullptr, kShow},
                               {"project", required_argument, nullptr, kProject},
                               {"output", required_argument, nullptr, kOutput},
                               {"dmx", no_argument, nullptr, kDmx},
                               {"screenshot", required_argument, nullptr, kScreenshot},
                               {"window", required_argument, nullptr, kWindow},
                               {"help", no_argument, nullptr, kHelp},
                               {"version", no_argument, nullptr, kVersion},
                               {nullptr, 0, nullptr, 0}};

OutputConfig targetOf(const std::string& text) {
  try {
    return parseOutput(text);
  } catch (const std::invalid_argument& error) {
    throw UsageError(error.what());
  }
}

void take(Options& options, int which, const std::string& word) {
  switch (which) {
    case kShow:
      options.show = word;
      break;
    case kProject:
      options.project = word;
      break;
    case kOutput:
      options.outputs.push_back(targetOf(word));
      break;
    case kDmx:
      options.dmx = true;
      break;
    case kScreenshot:
      options.screenshot = word;
      break;
    case kWindow:
      options.window = word;
      break;
    case kHelp:
      options.help = true;
      break;
    case kVersion:
      options.version = true;
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
  options.window = "Desk";
  opterr = 0;
  optind = 1;
  for (int which = 0; (which = getopt_long_only(count, words, ":", kOptions, nullptr)) != -1;) {
    const bool wrong = which == ':' || which == '?';
    take(options, which, wrong ? words[optind - 1] : optarg == nullptr ? "" : optarg);
  }
  if (optind < count && options.show.empty()) options.show = words[optind++];
  if (optind < count) throw UsageError(std::string("there is one show too many: ") + words[optind]);
  return options;
}

}  // namespace korvane
