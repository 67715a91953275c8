#pragma once

#include "app/AppContext.h"

#include <cstdint>
#include <string>
#include <string_view>

/// The batch report of the day: what ExifTool writes to its error stream, and what this program adds of
/// itself in the same manner. How an operation ended is told by its outcomes.
namespace exiftool {

/// Bytes; 0 when there is none.
std::uintmax_t reportSize(const app::AppContext& context);

/// What the report holds from this byte on, as it stands; empty when there is nothing.
std::string reportFrom(const app::AppContext& context, std::uintmax_t offset);

/// Every operation starts without a report. Makes its folder where it is missing. Empty, or for people why
/// the old report cannot be put away or a new one could not be written.
[[nodiscard]] std::string deleteReport(const app::AppContext& context);

/// Adds a line; line ends within it become question marks. False when the report cannot be written.
[[nodiscard]] bool appendToReport(const app::AppContext& context, std::string_view line);

}  // namespace exiftool
