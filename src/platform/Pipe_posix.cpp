#include "platform/Pipe.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <vector>

namespace platform {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

namespace {

bool isOneReady(std::span<pollfd> watched, milliseconds limit) {
    const auto deadline = steady_clock::now() + limit;
    while (true) {
        const auto left =
            std::max(milliseconds(0), std::chrono::ceil<milliseconds>(deadline - steady_clock::now()));
        const int ready = ::poll(watched.data(), watched.size(), static_cast<int>(left.count()));
        if (ready >= 0 || errno != EINTR) return ready > 0;
    }
}

}  // namespace

Pipe openPipe() {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) return {};
    return {FileDescriptor(ends[0]), FileDescriptor(ends[1])};
}

SocketPair openSocketPair() {
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) return {};
    return {FileDescriptor(ends[0]), FileDescriptor(ends[1])};
}

ReadResult readSome(int descriptor, std::span<char> buffer) {
    ssize_t got = 0;
    do got = ::read(descriptor, buffer.data(), buffer.size());
    while (got < 0 && errno == EINTR);
    return got < 0 ? ReadResult{0, errno} : ReadResult{static_cast<std::size_t>(got), 0};
}

std::size_t availableBytes(int descriptor) {
    int available = 0;
    if (::ioctl(descriptor, FIONREAD, &available) != 0 || available <= 0) return 0;
    return static_cast<std::size_t>(available);
}

bool sendAll(int socket, std::string_view bytes, milliseconds patience) {
    while (!bytes.empty()) {
        const ssize_t sent = ::send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
        if (sent > 0) bytes.remove_prefix(static_cast<std::size_t>(sent));
        if (sent >= 0 || errno == EINTR) continue;
        pollfd watched{socket, POLLOUT, 0};
        if (errno != EAGAIN || !isOneReady({&watched, 1}, patience)) return false;
    }
    return true;
}

bool isAnyReadableWithin(std::initializer_list<int> descriptors, milliseconds limit) {
    std::vector<pollfd> watched;
    for (const int descriptor : descriptors) watched.push_back({descriptor, POLLIN, 0});
    return isOneReady(watched, limit);
}

}  // namespace platform
