#pragma once

#include <wrl/client.h>

#include "hosts/com/Korvane_h.h"

namespace korvane {

/// A new object of the class that the desk creates.
Microsoft::WRL::ComPtr<::ITharnPlugin> makePlugInObject();

}  // namespace korvane
