#pragma once

#include "platform/FileAccess.h"
#include "platform/FileDescriptor.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>

namespace platform {

/// A regular file that is read piece by piece. Whatever else stands at its name (a pipe, a device, a folder)
/// is not opened and holds up nobody. One thread.
class RegularFile {
 public:
    explicit RegularFile(const std::filesystem::path& file, Links links = Links::Followed);

    bool isOpen() const { return descriptor_.isOpen(); }
    std::uint64_t size() const { return size_; }  ///< bytes, at the time of opening

    /// Fills the buffer from that byte on. How many bytes have come; 0 at the end of the file, and when it
    /// cannot be read.
    std::size_t readAt(std::uint64_t position, std::span<std::byte> buffer) const;

 private:
    FileDescriptor descriptor_;
    std::uint64_t size_ = 0;
};

/// The first bytes of a regular file, no more than that many; empty also when it cannot be read.
std::string readHead(const std::filesystem::path& file, std::size_t maximumBytes);

}  // namespace platform
