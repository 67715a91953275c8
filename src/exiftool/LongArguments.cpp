#include "exiftool/LongArguments.h"

#include "exiftool/ArgumentLines.h"
#include "platform/AtomicFile.h"
#include "platform/Text.h"
#include "platform/UniqueFile.h"

#include <numeric>
#include <optional>
#include <utility>

namespace exiftool {

namespace fs = std::filesystem;

namespace {

/// MAX_ARG_STRLEN of Linux, with the zero byte at the end.
constexpr std::size_t kLongestArgument = 131'072 - 1;
/// Well below what is left of the system's limit when the environment is a long one.
constexpr std::size_t kLongestTogether = 1'000'000;
/// What is put into a file when all of them together are too long.
constexpr std::size_t kLong = 4096;

/// `-TAG=VALUE` as `-TAG<=FILE`.
struct Assignment {
    std::string_view tag;  ///< with the hyphen and what stands before the equals sign
    std::string_view value;
};

std::optional<Assignment> assignmentIn(std::string_view argument) {
    const std::size_t equals = argument.find('=');
    if (!argument.starts_with('-') || equals == std::string_view::npos) return std::nullopt;
    // "-TAG<TEXT" and "-TAG<=FILE" are something else.
    if (argument.substr(0, equals).find_first_of("<>") != std::string_view::npos) return std::nullopt;
    return Assignment{argument.substr(0, equals), argument.substr(equals + 1)};
}

}  // namespace

LongArguments::LongArguments(const std::vector<std::string>& arguments, const fs::path& folder) {
    const std::size_t together = std::accumulate(
        arguments.begin(), arguments.end(), std::size_t{0},
        [](std::size_t sum, const std::string& argument) { return sum + argument.size() + 1; });
    const std::size_t limit = together > kLongestTogether ? kLong : kLongestArgument;
    for (const std::string& argument : arguments) {
        if (argument.size() < limit)
            arguments_.push_back(argument);
        else
            put(argument, folder);
    }
}

LongArguments::~LongArguments() {
    std::error_code ignored;
    for (const fs::path& file : files_) fs::remove(file, ignored);
}

void LongArguments::put(const std::string& argument, const fs::path& folder) {
    if (const std::optional<std::string> line = argumentLine(argument)) {
        const fs::path file = written(*line, folder);
        if (!file.empty()) {
            arguments_.insert(arguments_.end(), {"-@", platform::narrow(file)});
            return;
        }
    } else if (const std::optional<Assignment> assignment = assignmentIn(argument)) {
        const fs::path file = written(assignment->value, folder);
        // A percent sign in the name would make it a pattern.
        if (!file.empty() && file.native().find('%') == std::string::npos) {
            arguments_.push_back(std::string(assignment->tag) + "<=" + platform::narrow(file));
            return;
        }
    }
    arguments_.push_back(argument);
}

fs::path LongArguments::written(std::string_view bytes, const fs::path& folder) {
    const platform::UniqueFile file = platform::makeUniqueFile(folder / "Argument-", ".txt");
    if (!file.isOpen()) return {};
    files_.push_back(file.path);
    return platform::writeAll(file.descriptor.get(), bytes) == 0 ? file.path : fs::path();
}

}  // namespace exiftool
