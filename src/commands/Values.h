#pragma once

#include <string>

#include "commands/Json.h"
#include "state/Variablen.h"

namespace korvane {

/// A scalar of the shared state by its name; CommandError for any other name.
Json sharedValue(const Variablen& state, const std::string& name);

/// Every field of a record by its name: colours as raw numbers, pictures as rows from the top.
Json toJson(const Effect& effect);
Json toJson(const FadeEntry& fade);

}  // namespace korvane
