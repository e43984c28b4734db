#pragma once

#include <memory>

#include "hosts/com/Korvane_h.h"
#include "hosts/com/Session.h"

namespace korvane {

/// The module information as an object for the desk.
Microsoft::WRL::ComPtr<IModuleInfo> makeModuleInfoObject(const std::shared_ptr<Session>& session,
                                                         const ModuleInfo& info);

}  // namespace korvane
