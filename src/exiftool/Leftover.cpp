#include "exiftool/Leftover.h"

#include "platform/FileAccess.h"
#include "platform/FileIdentity.h"
#include "platform/RegularFile.h"

#include <algorithm>
#include <chrono>
#include <vector>

namespace exiftool {

namespace fs = std::filesystem;

namespace {

fs::path leftoverOf(fs::path file) {
    return file += "_exiftool_tmp";
}

/// A tool that has closed the file renames it at once.
constexpr std::chrono::seconds kSettled{1};
constexpr std::size_t kBlock = 1 << 16;

bool hasSettled(const platform::FileStamp& stamp) {
    const auto changed =
        std::chrono::seconds(stamp.changedSeconds) + std::chrono::nanoseconds(stamp.changedNanoseconds);
    return std::chrono::system_clock::now().time_since_epoch() - changed >= kSettled;
}

/// True for a file that is shorter than the other and has the same bytes as far as it goes.
bool isOnlyBeginningOf(const fs::path& file, const fs::path& whole) {
    const platform::RegularFile one(file);
    const platform::RegularFile other(whole, platform::Links::Refused);
    if (!one.isOpen() || one.size() >= other.size()) return !one.isOpen();
    std::vector<std::byte> block(kBlock);
    std::vector<std::byte> otherBlock(kBlock);
    for (std::uint64_t at = 0; at < one.size();) {
        const std::size_t got = one.readAt(at, block);
        if (got == 0) return true;
        if (other.readAt(at, std::span(otherBlock).first(got)) != got) return false;
        if (!std::equal(block.begin(), block.begin() + static_cast<std::ptrdiff_t>(got), otherBlock.begin()))
            return false;
        at += got;
    }
    return true;
}

}  // namespace

Leftover::Leftover(const fs::path& file)
    : file_(file),
      leftover_(leftoverOf(file)),
      before_(platform::stampOf(file)),
      isOthers_(platform::isNameTaken(leftover_) && !removeWhenAbandoned()) {}

bool Leftover::removeWhenAbandoned() const {
    std::error_code ignored;
    if (fs::symlink_status(leftover_, ignored).type() != fs::file_type::regular) return false;
    const bool isAbandoned = hasSettled(platform::stampOf(leftover_)) && platform::isOpenNowhere(leftover_) &&
                             !isOnlyBeginningOf(file_, leftover_);
    return isAbandoned && fs::remove(leftover_, ignored);
}

bool Leftover::isThere() const {
    return !isOthers_ && platform::isNameTaken(leftover_);
}

void Leftover::removeWhenUntouched() const {
    std::error_code ignored;
    if (isThere() && before_.isFile() && platform::isUntouched(before_, platform::stampOf(file_)))
        fs::remove(leftover_, ignored);
}

}  // namespace exiftool
