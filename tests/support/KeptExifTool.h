#pragma once

#include <optional>
#include <string>
#include <vector>

namespace support {

/// What the installed exiftool answers on its standard output, from a process that stays open, so that its
/// start is paid once for a test program. Nothing where only a process of its own gives the same: for
/// arguments that cannot stand on a line, for relative files, and for the few options that such a process
/// lacks. Any thread.
std::optional<std::string> askKeptExifTool(const std::vector<std::string>& arguments);

}  // namespace support
