#pragma once

#include <memory>

#include "hosts/com/Korvane_h.h"
#include "hosts/com/Session.h"

namespace korvane {

/// The object that stands for the main window; one for as long as someone keeps it.
Microsoft::WRL::ComPtr<::ITharnTool> toolObject(const std::shared_ptr<Session>& session);

}  // namespace korvane
