#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <optional>

namespace browser {

/// The bytes of all files in the folder and in those below it, hidden ones too. Links are not followed, so
/// that none leads in a circle or out of the folder; what cannot be read counts nothing. Any thread; blocks
/// as the disk does. Nothing when another thread has set cancelled meanwhile.
[[nodiscard]] std::optional<std::uint64_t> folderSize(const std::filesystem::path& folder,
                                                      const std::atomic_bool& cancelled);

}  // namespace browser
