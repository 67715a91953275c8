#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

namespace platform {

enum class VolumeKind { Root, Disk, Removable, MemoryCard, Optical, Network };

struct Volume {
    std::filesystem::path folder;  ///< where it begins
    VolumeKind kind = VolumeKind::Disk;
};

/// The root of the file system and the volumes a person would look for: disks, cards, network shares. Nothing
/// is asked of the volumes themselves, so that one that does not answer holds up nobody.
std::vector<Volume> mountedVolumes();

/// The bytes that files of this folder's volume are measured out in; 0 when it does not tell.
std::uint64_t clusterBytes(const std::filesystem::path& folder);

}  // namespace platform
