#pragma once

namespace korvane {

// The keys that mean something to windows and controls, by the codes that their handlers get.
inline constexpr int kEnterKey = 13;
inline constexpr int kEscapeKey = 27;
inline constexpr int kSpaceKey = 32;
inline constexpr int kEditKey = 113;  // F2

}  // namespace korvane
