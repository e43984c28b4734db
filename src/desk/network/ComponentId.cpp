#include "desk/network/ComponentId.h"

#include <unistd.h>
#include <uuid/uuid.h>

#include <fstream>
#include <string>

namespace korvane {
namespace {

/// The name space of our identities (RFC 4122, 4.3): a random UUID, made once, never to be changed.
constexpr Uuid kNamespace = {0xd6, 0x3a, 0x0c, 0x1c, 0x0b, 0xe9, 0x42, 0xfc,
                             0xb2, 0x2d, 0xd4, 0x60, 0x88, 0x91, 0x51, 0xa8};

std::string machineName() {
  std::string id;
  if (std::ifstream("/etc/machine-id") >> id) return id;
  char name[256] = {};
  gethostname(name, sizeof name - 1);
  return name;
}

}  // namespace

Uuid componentId(std::string_view program) { return componentId(program, machineName(), getuid()); }

Uuid componentId(std::string_view program, std::string_view machine, unsigned user) {
  const std::string name =
      std::string(machine) + "/" + std::to_string(user) + "/" + std::string(program);
  Uuid id{};
  uuid_generate_sha1(id.data(), kNamespace.data(), name.data(), name.size());
  return id;
}

}  // namespace korvane
