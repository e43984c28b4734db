#include "testing/SourceFolder.h"

namespace korvane {

std::string sourceFolder() { return KORVANE_SOURCE_DIR; }

}  // namespace korvane
