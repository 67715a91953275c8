#include "app/SoundCollection.h"

#include <QtEndian>
#include <cstdint>

namespace app {

namespace {

constexpr qsizetype kHeaderSize = 20;  // the mark, the format, and where tree, data and names begin
constexpr qsizetype kNodeSize = 14;
constexpr qsizetype kNameHeaderSize = 6;  // its length in UTF-16 units, and its hash
constexpr std::uint32_t kFormat = 1;
constexpr std::uint16_t kFolderFlag = 2;
constexpr std::uint16_t kKnownFlags = 7;  // a folder, and the two ways of compression

template <typename Number>
Number numberAt(QByteArrayView bytes, qsizetype at) {
    return qFromBigEndian<Number>(bytes.data() + at);
}

bool holdsName(QByteArrayView names, std::uint32_t at) {
    if (qsizetype{at} + kNameHeaderSize > names.size()) return false;
    return qsizetype{at} + kNameHeaderSize + 2 * qsizetype{numberAt<std::uint16_t>(names, at)} <=
           names.size();
}

bool holdsContent(QByteArrayView data, std::uint32_t at) {
    constexpr qsizetype kSize = sizeof(std::uint32_t);
    if (qsizetype{at} + kSize > data.size()) return false;
    return qsizetype{at} + kSize + qsizetype{numberAt<std::uint32_t>(data, at)} <= data.size();
}

}  // namespace

bool isSoundCollection(QByteArrayView bytes) {
    if (bytes.size() < kHeaderSize + kNodeSize || !bytes.startsWith("qres") ||
        numberAt<std::uint32_t>(bytes, 4) != kFormat)
        return false;
    const qsizetype tree = numberAt<std::uint32_t>(bytes, 8);
    const qsizetype data = numberAt<std::uint32_t>(bytes, 12);
    const qsizetype names = numberAt<std::uint32_t>(bytes, 16);
    if (data < kHeaderSize || names < data || tree < names || tree >= bytes.size()) return false;
    const QByteArrayView contents = bytes.sliced(data, names - data);
    const QByteArrayView nameBytes = bytes.sliced(names, tree - names);
    const qsizetype nodes = (bytes.size() - tree) / kNodeSize;
    if (nodes * kNodeSize != bytes.size() - tree) return false;
    for (qsizetype node = 0; node < nodes; ++node) {
        const qsizetype at = tree + node * kNodeSize;
        const auto flags = numberAt<std::uint16_t>(bytes, at + 4);
        const bool isFolder = (flags & kFolderFlag) != 0;
        if (flags > kKnownFlags || (node == 0 && !isFolder)) return false;
        if (node > 0 && !holdsName(nameBytes, numberAt<std::uint32_t>(bytes, at))) return false;
        if (!isFolder) {
            if (!holdsContent(contents, numberAt<std::uint32_t>(bytes, at + 10))) return false;
            continue;
        }
        // What a folder holds stands behind it, so that no folder is within itself.
        const qsizetype held = numberAt<std::uint32_t>(bytes, at + 6);
        const qsizetype first = numberAt<std::uint32_t>(bytes, at + 10);
        if (held > 0 && (first <= node || first + held > nodes)) return false;
    }
    return true;
}

}  // namespace app
