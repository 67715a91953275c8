#include "platform/RegularFile.h"

namespace platform {

std::string readHead(const std::filesystem::path& file, std::size_t maximumBytes) {
    const RegularFile opened(file);
    std::string head(maximumBytes, '\0');
    head.resize(opened.readAt(0, std::as_writable_bytes(std::span(head))));
    return head;
}

}  // namespace platform
