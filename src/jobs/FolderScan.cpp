#include "jobs/FolderScan.h"

#include "platform/Text.h"
#include "tags/ExtensionTable.h"

#include <algorithm>

namespace jobs {

namespace fs = std::filesystem;

namespace {

constexpr unsigned kEntriesPerPulse = 256;

class Scan {
 public:
    Scan(bool withSubfolders, const ScanPulse& pulse) : withSubfolders_(withSubfolders), pulse_(pulse) {}

    FolderScan run(const fs::path& folder) {
        // Folders that wait stand in a list of their own and not on the stack, however deep they lie.
        waiting_.push_back(folder);
        while (!waiting_.empty()) {
            const fs::path next = std::move(waiting_.back());
            waiting_.pop_back();
            scan(next);
        }
        std::ranges::sort(result_.files);
        return std::move(result_);
    }

 private:
    void scan(const fs::path& folder) {
        std::error_code error;
        fs::directory_iterator entries(folder, error);
        while (!error && entries != fs::directory_iterator()) {
            take(*entries);
            entries.increment(error);
        }
        if (error) result_.unreadable.push_back(platform::narrow(folder) + ": " + error.message());
    }

    void take(const fs::directory_entry& entry) {
        if (pulse_ && ++seen_ % kEntriesPerPulse == 0) pulse_();
        std::error_code ignored;
        if (entry.is_directory(ignored)) {
            if (withSubfolders_ && !entry.is_symlink(ignored)) waiting_.push_back(entry.path());
        } else if (entry.is_regular_file(ignored)) {
            if (withSubfolders_ || tags::findExtension(entry.path()) != nullptr)
                result_.files.push_back(entry.path());
        }
    }

    bool withSubfolders_;
    const ScanPulse& pulse_;
    unsigned seen_ = 0;
    std::vector<fs::path> waiting_;
    FolderScan result_;
};

}  // namespace

FolderScan scanFolder(const fs::path& folder, bool withSubfolders, const ScanPulse& pulse) {
    return Scan(withSubfolders, pulse).run(folder);
}

SelectionFiles filesOfSelection(const std::vector<fs::path>& selection) {
    SelectionFiles result;
    for (const fs::path& path : selection) {
        std::error_code ignored;
        const fs::file_status status = fs::status(path, ignored);
        if (fs::is_directory(status)) continue;
        const bool isOther = fs::exists(status) && !fs::is_regular_file(status);
        (isOther ? result.refused : result.files).push_back(path);
    }
    return result;
}

}  // namespace jobs
