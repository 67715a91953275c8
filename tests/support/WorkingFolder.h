#pragma once

#include <filesystem>

namespace support {

/// Gives the process an empty working folder, which goes away with it, so that test programs that run side by
/// side cannot see what another leaves behind. Each test begins in it, and fails when anything is left in it,
/// or when it has made safety copies for a context whose cache folder nobody has set.
void keepToAWorkingFolder();

/// That folder.
const std::filesystem::path& workingFolder();

}  // namespace support
