#pragma once

#include "platform/FileAccess.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <span>

namespace platform {

/// The bytes of a regular file, mapped into memory instead of read, so that a file of any size is there at
/// once. For files of the program's own, which nobody cuts off meanwhile. Any thread.
class MappedFile {
 public:
    ~MappedFile();
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;

    /// Null when it cannot be opened or is no regular file.
    static std::shared_ptr<const MappedFile> Open(const std::filesystem::path& file,
                                                  Links links = Links::Followed);

    std::span<const unsigned char> bytes() const { return {begin_, size_}; }

 private:
    MappedFile(const unsigned char* begin, std::size_t size) : begin_(begin), size_(size) {}

    const unsigned char* begin_;
    std::size_t size_;
};

}  // namespace platform
