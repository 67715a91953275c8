#include "exiftool/Leftover.h"

#include "platform/FileIdentity.h"

namespace exiftool {

namespace fs = std::filesystem;

namespace {

fs::path leftoverOf(fs::path file) {
    return file += "_exiftool_tmp";
}

}  // namespace

Leftover::Leftover(const fs::path& file)
    : file_(file),
      leftover_(leftoverOf(file)),
      before_(platform::stampOf(file)),
      isOthers_(platform::isNameTaken(leftover_)) {}

bool Leftover::isThere() const {
    return !isOthers_ && platform::isNameTaken(leftover_);
}

void Leftover::removeWhenUntouched() const {
    std::error_code ignored;
    if (isThere() && before_.isFile() && platform::isUntouched(before_, platform::stampOf(file_)))
        fs::remove(leftover_, ignored);
}

}  // namespace exiftool
