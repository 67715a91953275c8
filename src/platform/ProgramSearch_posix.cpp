#include "platform/ProgramSearch.h"

#include "platform/FileAccess.h"

#include <algorithm>
#include <cstdlib>

namespace platform {

namespace fs = std::filesystem;

fs::path findProgram(std::string_view name) {
    const char* variable = std::getenv("PATH");
    std::string_view rest = variable == nullptr ? std::string_view() : std::string_view(variable);
    std::error_code error;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(':'), rest.size());
        fs::path candidate = fs::path(rest.substr(0, end)) / name;
        if (candidate.is_absolute() && fs::is_regular_file(candidate, error) &&
            !checkAccess(candidate, AccessRight::Execute))
            return candidate;
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return {};
}

}  // namespace platform
