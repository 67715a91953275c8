#include "properties/SafeRewrite.h"

#include "platform/FileRewrite.h"

#include <cerrno>

namespace properties {

namespace fs = std::filesystem;

namespace {

PropertyResult resultOf(int error) {
    switch (error) {
        case EACCES:
        case EPERM:
        case EROFS:
        case ENOENT:
            return PropertyResult::AccessDenied;
        case ENOSPC:
        case EFBIG:
            return PropertyResult::DiskFull;
        default:
            return PropertyResult::Failed;
    }
}

}  // namespace

PropertyResult rewriteSafely(const fs::path& file, const platform::FileIdentity& seen, bool keepTimes,
                             const std::function<PropertyResult(const fs::path& copy)>& change) {
    platform::FileRewrite rewrite;
    if (rewrite.open(file) != 0) return PropertyResult::AccessDenied;
    const auto isAsSeen = [&] { return platform::identifyFile(rewrite.original()) == seen; };
    if (!isAsSeen()) return PropertyResult::ChangedMeanwhile;
    if (const int failure = rewrite.makeCopy()) return resultOf(failure);
    if (const PropertyResult result = change(rewrite.copy()); result != PropertyResult::Ok) return result;
    if (const int failure = rewrite.finishCopy(keepTimes)) return resultOf(failure);
    if (!isAsSeen()) return PropertyResult::ChangedMeanwhile;
    if (const int failure = rewrite.takePlace()) return resultOf(failure);
    return PropertyResult::Ok;
}

}  // namespace properties
