#include "properties/OggComment.h"

#include "platform/RegularFile.h"

#include <map>
#include <string>
#include <string_view>

namespace properties {
namespace {

// A cover picture can stand in the comment.
constexpr std::size_t kHeadBytes = std::size_t{4} * 1024 * 1024;
constexpr std::size_t kPageHead = 27;
constexpr std::size_t kSerial = 14;
constexpr std::size_t kSegments = 26;
constexpr std::size_t kWholeSegment = 255;

struct Stream {
    int packets = 0;
    std::string second;
};

/// The content of a comment packet, without what says of which kind it is.
std::string_view contentOf(std::string_view packet) {
    for (const std::string_view kind : {"\x81theora", "\x03vorbis", "OpusTags"})
        if (packet.starts_with(kind)) return packet.substr(kind.size());
    return {};
}

}  // namespace

TagLib::ByteVector readOggComment(const std::filesystem::path& file) {
    const std::string head = platform::readHead(file, kHeadBytes);
    const std::string_view bytes = head;
    std::map<std::string_view, Stream> streams;
    std::size_t position = 0;
    while (position + kPageHead <= bytes.size() && bytes.substr(position, 4) == "OggS") {
        Stream& stream = streams[bytes.substr(position + kSerial, 4)];
        const auto count = static_cast<std::uint8_t>(bytes[position + kSegments]);
        const std::string_view lengths = bytes.substr(position + kPageHead, count);
        position += kPageHead + lengths.size();
        for (const char length : lengths) {
            const std::string_view segment =
                bytes.substr(std::min(position, bytes.size()), static_cast<std::uint8_t>(length));
            if (stream.packets == 1) stream.second += segment;
            position += segment.size();
            if (static_cast<std::uint8_t>(length) == kWholeSegment) continue;
            if (++stream.packets != 2) continue;
            if (const std::string_view content = contentOf(stream.second); !content.empty())
                return {content.data(), static_cast<unsigned>(content.size())};
        }
    }
    return {};
}

}  // namespace properties
