#pragma once

#include <ole2.h>

namespace korvane {

/// Enters the class, its ProgID and the type library into the registry, with the place where the
/// component is now: for all users of the machine, or, without the right to do that, for this user.
HRESULT registerComponent() noexcept;

/// Removes all that registerComponent entered, for the machine and for this user.
HRESULT unregisterComponent() noexcept;

}  // namespace korvane
