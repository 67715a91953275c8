#pragma once

#include <filesystem>

namespace bench {

/// Whether the target's file system lets the two files share their blocks, so that a copy costs nothing.
/// Leaves the target behind.
bool canShareBlocks(const std::filesystem::path& source, const std::filesystem::path& target);

}  // namespace bench
