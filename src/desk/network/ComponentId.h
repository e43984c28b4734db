#pragma once

#include <string_view>

#include "desk/network/Packet.h"

namespace korvane {

/// The identity of a program as a sender (E1.31's CID): the same at each start for the same
/// program, user and machine. It is a version 5 UUID of the machine's id (its host name where it
/// has none), the user's number and the program's name, so nothing has to be stored.
Uuid componentId(std::string_view program);

/// The same from given facts.
Uuid componentId(std::string_view program, std::string_view machine, unsigned user);

}  // namespace korvane
