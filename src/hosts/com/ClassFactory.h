#pragma once

#include <ole2.h>

namespace korvane {

/// The factory of a class of the component; CLASS_E_CLASSNOTAVAILABLE for any other class.
HRESULT classObject(REFCLSID clsid, REFIID iid, void** object) noexcept;

}  // namespace korvane
