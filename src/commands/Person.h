#pragma once

#include <functional>
#include <string>
#include <vector>

#include "commands/CommandError.h"
#include "commands/Console.h"
#include "platform/Form.h"
#include "platform/ListView.h"

namespace korvane {

/// What a name in a command stands for.
struct Target {
  std::string name;  ///< as in "MatrixForm.addA"
  Form* form = nullptr;
  Control* control = nullptr;  ///< nullptr: the window itself
};

/// Looks up `FORM` or `FORM.CONTROL`. CommandError if there is none.
Target findTarget(const Engine& engine, const std::string& name);

/// As findTarget; CommandError too if a person could not reach it now.
Target reachTarget(const Engine& engine, const std::string& name);

/// The control that the target is, if it is of this type; nullptr otherwise.
template <class T>
T* as(const Target& target) {
  return dynamic_cast<T*>(target.control);
}

[[noreturn]] void refuseKind(const Target& target, const char* command);

/// The control that the target must be for the command to act on it.
template <class T>
T& require(const Target& target, const char* command) {
  T* found = as<T>(target);
  if (found == nullptr) refuseKind(target, command);
  return *found;
}

using Event = std::function<void()>;

/// The events that a command sets off, in order.
struct Gesture {
  std::vector<Event> events;
  const ListView* editor = nullptr;  ///< the list whose open in-place editor it types into
  bool whole = false;                ///< every event arrives, even if a window opens in between
};

/// What a person does to a target: any other open in-place editor closes first, the window becomes
/// the active one, then the events follow for as long as the target can be reached: a window that
/// opens modally takes the pointer away, but for the release that belongs to a double click.
void act(Engine& engine, const Target& target, const Gesture& gesture);

}  // namespace korvane
