#pragma once

#include <stdexcept>
#include <string>

namespace korvane {

/// A run-time failure: ends the handler that raised it, keeps what was done so far, and is
/// caught in one place, where events enter (platform/Events.h).
struct Failure : std::runtime_error {
  /// The text is the number's standard text, followed by ": " and the detail if there is one.
  explicit Failure(int failureNumber, const std::string& detail = {});

  int number;  ///< one of the constants below
};

inline constexpr int kOverflow = 6;
inline constexpr int kOutOfMemory = 7;
inline constexpr int kSubscript = 9;
inline constexpr int kDivisionByZero = 11;
inline constexpr int kTypeMismatch = 13;
inline constexpr int kInternal = 51;  ///< a fault of this program's own
inline constexpr int kFileNotFound = 53;
inline constexpr int kPastEndOfFile = 62;
inline constexpr int kPathAccess = 75;
inline constexpr int kObjectNotSet = 91;
inline constexpr int kInvalidPropertyValue = 380;
inline constexpr int kNoSuchMember = 438;
inline constexpr int kAutomation = 440;  ///< an object of another program failed
inline constexpr int kInvalidPicture = 481;
inline constexpr int kCancelled = 32755;

}  // namespace korvane
