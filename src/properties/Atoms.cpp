#include "properties/Atoms.h"

#include <algorithm>
#include <array>
#include <span>

namespace properties {

namespace {

// A broken file could be all heads.
constexpr std::size_t kMostAtoms = 10'000;

}  // namespace

std::uint64_t bigEndian(std::string_view bytes) {
    std::uint64_t number = 0;
    for (const char byte : bytes) number = number << 8 | static_cast<std::uint8_t>(byte);
    return number;
}

std::string bytesAt(const platform::RegularFile& file, std::uint64_t position, std::size_t length) {
    std::string bytes(length, '\0');
    bytes.resize(file.readAt(position, std::as_writable_bytes(std::span(bytes))));
    return bytes;
}

std::vector<Atom> atomsBetween(const platform::RegularFile& file, std::uint64_t begin, std::uint64_t end) {
    std::vector<Atom> atoms;
    std::uint64_t position = begin;
    while (position + 8 <= end && atoms.size() < kMostAtoms) {
        const std::string head = bytesAt(file, position, 16);
        if (head.size() < 8) break;
        std::uint64_t length = bigEndian(std::string_view(head).substr(0, 4));
        std::uint64_t headLength = 8;
        if (length == 1 && head.size() == 16) {
            length = bigEndian(std::string_view(head).substr(8, 8));
            headLength = 16;
        }
        if (length == 0) length = end - position;
        if (length < headLength || length > end - position) break;
        atoms.push_back({head.substr(4, 4), position + headLength, position + length});
        position += length;
    }
    return atoms;
}

bool isMadeOfAtoms(const platform::RegularFile& file) {
    static constexpr std::array<std::string_view, 5> kFirst = {"ftyp", "moov", "mdat", "wide", "free"};
    const std::string head = bytesAt(file, 0, 8);
    return head.size() == 8 && std::ranges::find(kFirst, head.substr(4)) != kFirst.end();
}

}  // namespace properties
