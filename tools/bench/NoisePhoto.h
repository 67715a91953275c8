#pragma once

#include <filesystem>

namespace bench {

/// A JPEG of noise, which no format makes smaller: of about as many bytes as asked for. Throws
/// std::runtime_error when it cannot be written.
void writeNoisePhoto(const std::filesystem::path& file, int bytes);

}  // namespace bench
