#include "platform/UniqueFile.h"

#include <fcntl.h>

#include <cerrno>
#include <cstdlib>

namespace platform {
namespace {

constexpr std::string_view kChosen = "XXXXXX";

}  // namespace

UniqueFile makeUniqueFile(const std::filesystem::path& start, std::string_view suffix,
                          UniqueFileWrites writes) {
    std::string name = start.native();
    name.append(kChosen).append(suffix);
    const int flags = O_CLOEXEC | (writes == UniqueFileWrites::AtEnd ? O_APPEND : 0);
    FileDescriptor descriptor(::mkostemps(name.data(), static_cast<int>(suffix.size()), flags));
    if (!descriptor.isOpen()) return {{}, {}, errno};
    return {name, std::move(descriptor), 0};
}

std::filesystem::path makeUniqueFolder(const std::filesystem::path& start) {
    std::string name = start.native();
    name.append(kChosen);
    return ::mkdtemp(name.data()) != nullptr ? std::filesystem::path(name) : std::filesystem::path();
}

}  // namespace platform
