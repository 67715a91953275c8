#pragma once

#include "platform/FileStamp.h"

#include <filesystem>
#include <map>
#include <span>
#include <vector>

namespace jobs {

/// New names by the old ones.
using NewNames = std::map<std::filesystem::path, std::filesystem::path>;

/// Finds files again that work has given another name: made before the work, asked behind it. A file is known
/// by what the system knows it by, so nobody has to say what the work was. Any thread.
class RenamedFiles {
 public:
    explicit RenamedFiles(std::span<const std::filesystem::path> files);

    /// Of those whose name is gone and that are in the same folder under another.
    [[nodiscard]] NewNames newNames() const;

 private:
    struct Known {
        std::filesystem::path file;
        platform::FileStamp stamp;
    };
    std::vector<Known> known_;
};

}  // namespace jobs
