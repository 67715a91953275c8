#include "ProcessMemory.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace bench {
namespace {

constexpr double kKilobyte = 1024;

std::filesystem::path folderOf(std::int64_t process) {
    return std::filesystem::path("/proc") / std::to_string(process);
}

/// The sum of all lines that begin with the key; they are in kilobytes.
double sumOf(const std::filesystem::path& file, std::string_view key) {
    std::ifstream stream(file);
    double sum = 0;
    for (std::string line; std::getline(stream, line);) {
        if (line.starts_with(key))
            sum += std::stod(line.substr(line.find_first_of("0123456789"))) * kKilobyte;
    }
    return sum;
}

}  // namespace

double ownMemory() {
    return sumOf("/proc/self/status", "RssAnon:");
}

double residentMemory(std::int64_t process) {
    return sumOf(folderOf(process) / "status", "VmRSS:");
}

double privateMemory(std::int64_t process) {
    return sumOf(folderOf(process) / "smaps_rollup", "Private_");
}

std::vector<std::int64_t> childrenOf(std::int64_t process) {
    std::ifstream stream(folderOf(process) / "task" / std::to_string(process) / "children");
    return {std::istream_iterator<std::int64_t>(stream), {}};
}

}  // namespace bench
