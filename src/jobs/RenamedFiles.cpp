#include "jobs/RenamedFiles.h"

#include "platform/FileIdentity.h"

#include <system_error>
#include <utility>

namespace jobs {

namespace fs = std::filesystem;

namespace {

using Inode = std::pair<std::uint64_t, std::uint64_t>;  // with the device before it

Inode inodeOf(const platform::FileStamp& stamp) {
    return {stamp.device, stamp.inode};
}

}  // namespace

RenamedFiles::RenamedFiles(std::span<const fs::path> files) {
    for (const fs::path& file : files) {
        const platform::FileStamp stamp = platform::stampOf(file);
        if (stamp.isFile()) known_.push_back({file, stamp});
    }
}

NewNames RenamedFiles::newNames() const {
    std::map<fs::path, std::map<Inode, fs::path>> gone;
    for (const Known& known : known_)
        if (!platform::isNameTaken(known.file))
            gone[known.file.parent_path()].emplace(inodeOf(known.stamp), known.file);
    NewNames found;
    for (const auto& [folder, files] : gone) {
        std::error_code error;
        for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
             entry.increment(error)) {
            const platform::FileStamp stamp = platform::stampOf(entry->path());
            const auto was = stamp.isFile() ? files.find(inodeOf(stamp)) : files.end();
            if (was != files.end()) found.emplace(was->second, entry->path());
        }
    }
    return found;
}

}  // namespace jobs
