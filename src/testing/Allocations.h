#pragma once

#include <cstddef>

namespace korvane {

/// Most bytes that operator new had given out at once since the mark, beyond those given out then.
/// Of the slow tests' program alone.
void markAllocations();
std::size_t allocationPeak();

}  // namespace korvane
