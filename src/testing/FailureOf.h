#pragma once

#include "platform/Failure.h"

namespace korvane {

/// The number of the failure that an action ends with, 0 for none.
template <class Action>
int failureOf(Action action) {
  try {
    action();
    return 0;
  } catch (const Failure& failure) {
    return failure.number;
  }
}

}  // namespace korvane
