#include "platform/UserNames.h"

#include <pwd.h>

#include <vector>

namespace platform {

std::string nameOfUser(std::uint32_t userId) {
    std::vector<char> buffer(16384);
    struct passwd entry {};
    struct passwd* found = nullptr;
    if (::getpwuid_r(userId, &entry, buffer.data(), buffer.size(), &found) == 0 && found != nullptr)
        return found->pw_name;
    return std::to_string(userId);
}

}  // namespace platform
