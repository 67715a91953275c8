#include "platform/RegularFile.h"

#include <vector>

namespace platform {

namespace {

constexpr std::size_t kBlock = 1 << 16;

}  // namespace

std::string readHead(const std::filesystem::path& file, std::size_t maximumBytes) {
    const RegularFile opened(file);
    std::string head(maximumBytes, '\0');
    head.resize(opened.readAt(0, std::as_writable_bytes(std::span(head))));
    return head;
}

std::string readOwnFile(const std::filesystem::path& file, std::uint64_t from) {
    const RegularFile opened(file, Links::Refused);
    std::string bytes(opened.size() > from ? opened.size() - from : 0, '\0');
    std::size_t have = 0;
    while (have < bytes.size()) {
        const std::size_t got =
            opened.readAt(from + have, std::as_writable_bytes(std::span(bytes).subspan(have)));
        if (got == 0) break;
        have += got;
    }
    bytes.resize(have);
    return bytes;
}

bool forEachLineOfOwnFile(const std::filesystem::path& file,
                          const std::function<bool(std::string_view)>& call) {
    const RegularFile opened(file, Links::Refused);
    if (!opened.isOpen()) return false;
    std::string carried;
    std::vector<char> block(kBlock);
    std::uint64_t position = 0;
    while (const std::size_t got = opened.readAt(position, std::as_writable_bytes(std::span(block)))) {
        position += got;
        std::string_view rest(block.data(), got);
        for (std::size_t feed = rest.find('\n'); feed != rest.npos; feed = rest.find('\n')) {
            const std::string_view line = rest.substr(0, feed);
            if (!call(carried.empty() ? line : std::string_view(carried.append(line)))) return true;
            carried.clear();
            rest.remove_prefix(feed + 1);
        }
        carried.append(rest);
    }
    if (!carried.empty()) call(carried);
    return true;
}

}  // namespace platform
