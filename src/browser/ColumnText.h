#pragma once

#include <QString>
#include <cstdint>
#include <filesystem>

namespace browser {

/// The text of one cell, in the user's locale; empty when the file has no such property, cannot be looked at,
/// or is a folder. Looks at the file anew. Any thread; blocks as the disk does. Pipes and devices are never
/// opened.
QString GetColumnText(const std::filesystem::path& path, std::uint32_t columnType);

/// A size for people, such as "1.2 MB": bytes by the thousand and twenty-four, one place after the point.
QString sizeText(std::uint64_t bytes);

/// A time (nanoseconds since 1970, UTC) as short local date and time.
QString dateText(std::int64_t nanoseconds);

}  // namespace browser
