#pragma once

#include <string>
#include <string_view>

namespace sweep {

/// Why a line that was not edited may differ, for people; empty when it may not. Groups and tags as ExifTool
/// prints them (`-G1 -s`).
std::string_view reasonOfChange(std::string_view editedGroup, std::string_view editedTag,
                                std::string_view group, std::string_view tag);

}  // namespace sweep
