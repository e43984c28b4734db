#pragma once

#include <string>

namespace korvane {

/// The tree that the tests were built from, where examples and documents stand.
std::string sourceFolder();

}  // namespace korvane
