#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <utility>
#include <variant>
#include <vector>

/// Small documents and programs of old formats, made byte by byte.
namespace support {

/// Values of a compound file's information by their numbers: texts, numbers, times and spans in
/// ten-millionths of a second.
struct FileTime {
    std::uint64_t ticks = 0;
};
using Information = std::map<int, std::variant<std::string, std::int32_t, FileTime>>;

/// A compound file, which is what office documents were before they became archives, with its two sets of
/// information: about the file and about the document.
void writeCompoundFile(const std::filesystem::path& file, const Information& summary,
                       const Information& document);

/// A Windows program of nothing but its version texts.
void writeProgram(const std::filesystem::path& file,
                  const std::vector<std::pair<std::string, std::string>>& texts);

}  // namespace support
