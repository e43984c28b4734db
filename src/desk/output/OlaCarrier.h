#pragma once

#include <memory>

#include "desk/output/Carrier.h"

namespace korvane {

/// Through the client library of the Open Lighting Architecture, to olad on this or another
/// machine. Without the library: one that says so.
std::unique_ptr<Carrier> makeOlaCarrier(const OutputConfig& config);

}  // namespace korvane
