#pragma once

#include <taglib/tbytevector.h>

#include <filesystem>

namespace properties {

/// The comment of the first stream of an Ogg film that has one, behind the name of its kind: TagLib itself
/// opens sound only. Empty when there is none. Reads the head of the file.
TagLib::ByteVector readOggComment(const std::filesystem::path& file);

}  // namespace properties
