#pragma once

#include "platform/FileDescriptor.h"

#include <chrono>
#include <cstddef>
#include <initializer_list>
#include <span>
#include <string_view>

/// Talking to other processes by descriptors. The functions leave the descriptors to their owners, and begin
/// again what the system has interrupted.
namespace platform {

struct Pipe {
    FileDescriptor readEnd;
    FileDescriptor writeEnd;
    bool isOpen() const { return readEnd.isOpen(); }
};

/// Not open when the system has none to give. No child inherits the ends but those it is given.
Pipe openPipe();

/// Two ends that both read and write.
struct SocketPair {
    FileDescriptor own;
    FileDescriptor other;
    bool isOpen() const { return own.isOpen(); }
};
SocketPair openSocketPair();

struct ReadResult {
    std::size_t size = 0;  ///< bytes that have come
    int error = 0;         ///< the number of the system's error
    bool isAtEnd() const { return size == 0 && error == 0; }
};

/// What has come, as far as the buffer takes it; waits for the first byte.
ReadResult readSome(int descriptor, std::span<char> buffer);

/// How many bytes can be read without waiting.
std::size_t availableBytes(int descriptor);

/// Sends all to a socket. False when the other end is gone or takes nothing for that long; a part may have
/// been sent.
[[nodiscard]] bool sendAll(int socket, std::string_view bytes, std::chrono::milliseconds patience);

/// True when one of them has something to read, or its end, within that time. A negative descriptor counts
/// as silent.
bool isAnyReadableWithin(std::initializer_list<int> descriptors, std::chrono::milliseconds limit);

}  // namespace platform
