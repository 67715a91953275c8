#pragma once

#include "platform/FileStamp.h"

#include <filesystem>

namespace exiftool {

/// ExifTool writes a new file beside the old one, and refuses to when one is there already. A run that was
/// ended in the middle must not leave one that bars every later write; but it must stay when it may be the
/// only whole copy, thus when the file itself has been touched in any way.
///
/// One that is there already is of a run that nobody could clean up behind, as after a power failure, or of
/// one that goes on. It is taken away when nobody has it open and it has stood there for a second, but not
/// when the file itself is no more than its beginning, and so may be the half-made copy of it.
class Leftover {
 public:
    /// Right before the run.
    explicit Leftover(const std::filesystem::path& file);

    /// True when a half-written file stands there that did not before the run.
    bool isThere() const;

    /// After a run that was cut.
    void removeWhenUntouched() const;

 private:
    bool removeWhenAbandoned() const;

    std::filesystem::path file_;
    std::filesystem::path leftover_;
    platform::FileStamp before_;
    bool isOthers_;  ///< it stood there before the run, and still does
};

}  // namespace exiftool
