#pragma once

#include <filesystem>
#include <string_view>

namespace support {

/// A new empty folder that goes away with the object, whatever permissions the test left in it.
class TemporaryFolder {
 public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path operator/(std::string_view name) const {
        return path_ / std::filesystem::path(name);
    }

 private:
    std::filesystem::path path_;
};

/// The file's bytes; a test failure when it cannot be read.
std::string readBytes(const std::filesystem::path& file);
void writeBytes(const std::filesystem::path& file, std::string_view bytes);

}  // namespace support
