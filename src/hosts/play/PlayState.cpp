#include "hosts/play/PlayState.h"

#include <filesystem>

#include "desk/project/StateFolder.h"
#include "platform/TextFile.h"

namespace korvane {

void PlayState::keep(bool atRest) {
  const std::string counted = state_.changes();
  if (counted == counted_ && !atRest) return;
  const std::string whole = state_.text();
  if (whole == whole_) return;
  counted_ = counted;
  whole_ = whole;
  std::error_code error;
  std::filesystem::create_directories(systemPath(file_).parent_path(), error);
  state_.save(file_);
}

std::string PlayState::showOf(const std::string& file) {
  std::string show;
  DeskProject state;
  state.add({"show", [] { return Json(); }, [&show](const Member& member) { member.take(show); }});
  state.open(file);
  return show;
}

std::string playStateFile() { return stateFolder() + "playing.json"; }

}  // namespace korvane
