#include "exiftool/ReportFile.h"

#include "platform/AtomicFile.h"
#include "platform/FileDescriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>

namespace exiftool {

namespace fs = std::filesystem;

namespace {

constexpr mode_t kNewFileMode = 0666;

}  // namespace

std::uintmax_t reportSize(const app::AppContext& context) {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(context.reportFile, error);
    return error ? 0 : size;
}

std::string deleteReport(const app::AppContext& context) {
    const fs::path folder = context.reportFile.parent_path();
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) return error.message();
    fs::remove(context.reportFile, error);
    if (error) return error.message();
    if (::access(folder.c_str(), W_OK | X_OK) != 0)
        return std::error_code(errno, std::generic_category()).message();
    return {};
}

bool appendToReport(const app::AppContext& context, std::string_view line) {
    std::string whole(line);
    std::replace_if(
        whole.begin(), whole.end(), [](char c) { return c == '\n' || c == '\r' || c == 0; }, '?');
    whole += '\n';
    const platform::FileDescriptor report(
        ::open(context.reportFile.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_APPEND, kNewFileMode));
    return report.isOpen() && platform::writeAll(report.get(), whole) == 0;
}

}  // namespace exiftool
