#include "desk/project/StateFolder.h"

#include <cstdlib>

namespace korvane {
namespace {

std::string variable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

}  // namespace

std::string stateFolder() {
  const std::string state = variable("XDG_STATE_HOME"), home = variable("HOME");
  if (state.starts_with('/')) return state + "/korvane/";
  return home.starts_with('/') ? home + "/.local/state/korvane/" : "";
}

}  // namespace korvane
