#pragma once

#include <cstdint>
#include <string>

namespace platform {

/// The name of the user whom the system knows by that number, in the system's bytes; the number itself for
/// one without a name. May ask a server: not for each file of a folder. Any thread.
std::string nameOfUser(std::uint32_t userId);

}  // namespace platform
