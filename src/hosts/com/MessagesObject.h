#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "hosts/com/Korvane_h.h"
#include "hosts/com/Session.h"

namespace korvane {

/// A collection of numbers for the desk, which may count, read, go through and add to it.
Microsoft::WRL::ComPtr<IMessages> makeMessagesObject(const std::shared_ptr<Session>& session,
                                                     const std::vector<std::int32_t>& messages);

}  // namespace korvane
