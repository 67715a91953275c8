#pragma once

#include <filesystem>

namespace support {

/// Tells from outside which commands were ExifTool processes of their own: a user's configuration, which
/// ExifTool loads when it starts and thus not for a command that the warm starter has forked, notes every
/// loading down. Counts only what the program starts, not what the test itself asks ExifTool.
class OwnRuns {
 public:
    /// Writes the configuration into the folder, which is then to be HOME.
    explicit OwnRuns(const std::filesystem::path& home);

    /// Since the object was made; the warm starter's own loading is one of them.
    int count() const;

 private:
    std::filesystem::path log_;
};

}  // namespace support
