#pragma once

#include "platform/RegularFile.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// The boxes of which QuickTime and MPEG-4 files are made, and other things that begin with a length. One
/// thread.
namespace properties {

struct Atom {
    std::string name;           ///< four bytes
    std::uint64_t content = 0;  ///< where it begins
    std::uint64_t end = 0;      ///< behind the last byte
};

/// The atoms of one level, of which only the heads are read. Damage ends the list.
std::vector<Atom> atomsBetween(const platform::RegularFile& file, std::uint64_t begin, std::uint64_t end);

/// The bytes of the highest place first.
std::uint64_t bigEndian(std::string_view bytes);

/// Fewer when the file ends before.
std::string bytesAt(const platform::RegularFile& file, std::uint64_t position, std::size_t length);

/// Begins as such files do.
bool isMadeOfAtoms(const platform::RegularFile& file);

}  // namespace properties
