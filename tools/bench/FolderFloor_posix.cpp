#include "FolderFloor.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>

namespace bench {

std::vector<FloorEntry> readAndSortPlainly(const std::filesystem::path& folder) {
    std::vector<FloorEntry> entries;
    DIR* directory = ::opendir(folder.c_str());
    if (directory == nullptr) return entries;
    while (const dirent* entry = ::readdir(directory)) {
        if (entry->d_name[0] == '.') continue;
        struct statx data;
        if (::statx(::dirfd(directory), entry->d_name, 0, STATX_BASIC_STATS, &data) != 0) continue;
        entries.push_back({entry->d_name, data.stx_size, data.stx_mtime.tv_sec});
    }
    ::closedir(directory);
    std::sort(entries.begin(), entries.end(),
              [](const FloorEntry& a, const FloorEntry& b) { return plainNaturalLess(a.name, b.name); });
    return entries;
}

}  // namespace bench
