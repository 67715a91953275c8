#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace bench {

struct FloorEntry {
    std::string name;
    std::uint64_t size = 0;
    std::int64_t modified = 0;
};

/// What listing a folder costs at least: readdir, one statx for each entry, and a natural sort of the names
/// without regard to case, in plain C++ on one thread. The yardstick that the list is measured against.
std::vector<FloorEntry> readAndSortPlainly(const std::filesystem::path& folder);

/// Numbers by value, letters of ASCII without regard to case.
bool plainNaturalLess(const std::string& left, const std::string& right);

/// Makes count empty files named as cameras and people name them. The folder must exist.
void makeManyFiles(const std::filesystem::path& folder, int count);

}  // namespace bench
