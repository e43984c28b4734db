#pragma once

#include <functional>

namespace korvane {

/// Runs one event and deals with its failure. What comes of one thing that a person did may be
/// several events: a failure of one of them does not keep the others back.
using Gate = std::function<void(const std::function<void()>& event)>;

}  // namespace korvane
