// korvane-play: plays a saved show in the terminal, and to the lamps.

#include <iostream>

#include "hosts/play/PlayState.h"
#include "hosts/play/Player.h"
#include "platform/TextFile.h"

namespace korvane {
namespace {

int run(int count, char** words) {
  PlayOptions options = parsePlayOptions(count, words);
  if (options.help) {
    std::cout << kPlayUsage;
    return 0;
  }
  options.lastShow = options.resume && options.show.empty();
  if (options.lastShow) options.show = PlayState::showOf(playStateFile());
  if (options.lastShow && options.show.empty()) {
    std::cerr << "korvane-play: there is nothing to go on with; name a show\n";
    return 1;
  }
  if (!fileExists(options.show)) {
    std::cerr << "korvane-play: there is no show " << options.show << "\n";
    return 1;
  }
  Player player(options);
  return (options.film.wanted() ? player.film() : player.play()) ? 0 : 1;
}

}  // namespace
}  // namespace korvane

int main(int count, char** words) {
  try {
    return korvane::run(count, words);
  } catch (const korvane::PlayUsageError& error) {
    std::cerr << "korvane-play: " << error.what() << "; --help tells the usage\n";
    return 2;
  } catch (const std::exception& error) {  // a working folder that is gone, say
    std::cerr << "korvane-play: " << error.what() << "\n";
    return 1;
  }
}
