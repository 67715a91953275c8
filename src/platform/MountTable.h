#pragma once

#include "platform/Volumes.h"

#include <string_view>

namespace platform {

/// The volumes of mountedVolumes from the text of a mount table as fstab(5) describes it, blanks in names
/// written \040.
std::vector<Volume> volumesOfMountTable(std::string_view table);

}  // namespace platform
