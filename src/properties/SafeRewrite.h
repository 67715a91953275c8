#pragma once

#include "platform/FileIdentity.h"
#include "properties/PropertyResult.h"

#include <filesystem>
#include <functional>

namespace properties {

/// Changes a file by way of a copy beside it: `change` gets the copy, which has the original's extension and
/// permissions; after its Ok the copy is brought to the disk and takes the file's place. A file that is not
/// any more what `seen` saw is left alone. The copy never stays behind. Links are followed.
PropertyResult rewriteSafely(const std::filesystem::path& file, const platform::FileIdentity& seen,
                             bool keepTimes,
                             const std::function<PropertyResult(const std::filesystem::path& copy)>& change);

}  // namespace properties
