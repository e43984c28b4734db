#pragma once

#include <ole2.h>

#include <functional>

namespace korvane {

/// Runs the body of a method that the desk calls. A failure in it ends it and becomes an error
/// result: 0x800A0000 plus the failure's number, as scripts know it; its text goes with it
/// (GetErrorInfo).
HRESULT guarded(const std::function<void()>& body) noexcept;

}  // namespace korvane
