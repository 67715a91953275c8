#include "exiftool/ReportFile.h"

#include "platform/FileAccess.h"

#include <algorithm>

namespace exiftool {

namespace fs = std::filesystem;

std::uintmax_t reportSize(const app::AppContext& context) {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(context.reportFile, error);
    return error ? 0 : size;
}

std::string reportFrom(const app::AppContext& context, std::uintmax_t offset) {
    return platform::readOwnFile(context.reportFile, offset);
}

std::string deleteReport(const app::AppContext& context) {
    const fs::path folder = context.reportFile.parent_path();
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) return error.message();
    fs::remove(context.reportFile, error);
    if (error) return error.message();
    if (const std::error_code refused = platform::checkAccess(folder, platform::AccessRight::AddFiles))
        return refused.message();
    return {};
}

bool appendToReport(const app::AppContext& context, std::string_view line) {
    std::string whole(line);
    std::replace_if(
        whole.begin(), whole.end(), [](char c) { return c == '\n' || c == '\r' || c == 0; }, '?');
    whole += '\n';
    return platform::writeFile(context.reportFile, platform::WriteMode::Append, whole) == 0;
}

}  // namespace exiftool
