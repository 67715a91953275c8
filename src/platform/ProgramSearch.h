#pragma once

#include <filesystem>
#include <string_view>

namespace platform {

/// Where the system would find a program of that name, among the absolute folders of its search path alone;
/// empty when nowhere.
std::filesystem::path findProgram(std::string_view name);

}  // namespace platform
