#include "edit/ReportTail.h"

#include <fstream>
#include <utility>

namespace edit {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kMostRead = std::size_t{64} << 10;

std::uintmax_t sizeOf(const fs::path& file) {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(file, error);
    return error ? 0 : size;
}

}  // namespace

ReportTail::ReportTail(fs::path report) : report_(std::move(report)), end_(sizeOf(report_)) {}

std::string ReportTail::read() const {
    std::ifstream stream(report_, std::ios::binary);
    stream.seekg(static_cast<std::streamoff>(end_));
    std::string text(kMostRead, '\0');
    stream.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(stream.gcount()));
    return text;
}

bool ReportTail::hasGrown() const {
    return sizeOf(report_) > end_;
}

bool AppendToReport(const fs::path& report, const std::string& line) {
    std::ofstream stream(report, std::ios::binary | std::ios::app);
    stream << line << '\n';
    return static_cast<bool>(stream.flush());
}

}  // namespace edit
