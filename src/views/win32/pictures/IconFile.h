#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace korvane {

/// The sizes that the pictures of an ico file declare of themselves; empty for a file of another
/// kind. The system's decoder takes the memory of a picture before it tells its size.
std::vector<std::pair<std::uint32_t, std::uint32_t>> iconSizes(const std::string& path);

}  // namespace korvane
