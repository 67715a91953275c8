#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace exiftool {

/// The system takes an argument of 128 KiB at most, and a few megabytes of all of them. Longer ones are put
/// into files, from which ExifTool reads them as if they stood on its command line. The files go away with
/// the object.
class LongArguments {
 public:
    /// folder: one of the program's own.
    LongArguments(const std::vector<std::string>& arguments, const std::filesystem::path& folder);
    ~LongArguments();
    LongArguments(const LongArguments&) = delete;
    LongArguments& operator=(const LongArguments&) = delete;

    /// As the system takes them. One that no file can carry, or that could not be written, stands as it was.
    const std::vector<std::string>& arguments() const { return arguments_; }

 private:
    void put(const std::string& argument, const std::filesystem::path& folder);
    std::filesystem::path written(std::string_view bytes, const std::filesystem::path& folder);

    std::vector<std::string> arguments_;
    std::vector<std::filesystem::path> files_;
};

}  // namespace exiftool
