#include "platform/Failure.h"

namespace korvane {
namespace {

std::string standardText(int number) {
  switch (number) {
    case kOverflow:
      return "Overflow";
    case kOutOfMemory:
      return "Out of memory";
    case kSubscript:
      return "Subscript out of range";
    case kDivisionByZero:
      return "Division by zero";
    case kTypeMismatch:
      return "Type mismatch";
    case kInternal:
      return "Internal error";
    case kFileNotFound:
      return "File not found";
    case kPastEndOfFile:
      return "Input past end of file";
    case kPathAccess:
      return "Path/File access error";
    case kObjectNotSet:
      return "Object variable not set";
    case kInvalidPropertyValue:
      return "Invalid property value";
    case kNoSuchMember:
      return "Object doesn't support this property or method";
    case kAutomation:
      return "Automation error";
    case kInvalidPicture:
      return "Invalid picture";
    case kCancelled:
      return "Cancel was selected";
    default:
      return "Run-time failure " + std::to_string(number);
  }
}

}  // namespace

Failure::Failure(int failureNumber, const std::string& detail)
    : std::runtime_error(detail.empty() ? standardText(failureNumber)
                                        : standardText(failureNumber) + ": " + detail),
      number(failureNumber) {}

}  // namespace korvane
