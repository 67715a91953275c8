#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace edit {

/// What is put behind the end of a report from now on.
class ReportTail {
 public:
    explicit ReportTail(std::filesystem::path report);

    /// All of it so far; at most the first 64 KiB.
    std::string read() const;
    bool hasGrown() const;

 private:
    std::filesystem::path report_;
    std::uintmax_t end_;
};

/// Puts a line, which needs no line end, behind the report. False when it cannot be written.
bool AppendToReport(const std::filesystem::path& report, const std::string& line);

}  // namespace edit
