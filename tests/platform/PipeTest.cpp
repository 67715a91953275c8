#include "platform/Pipe.h"

#include "platform/AtomicFile.h"

#include <gtest/gtest.h>

#include <array>
#include <thread>

using namespace std::chrono_literals;
using platform::isAnyReadableWithin;

TEST(Pipe, IsReadableForBytesAndForItsEnd) {
    platform::Pipe one = platform::openPipe();
    platform::Pipe other = platform::openPipe();
    ASSERT_TRUE(one.isOpen() && other.isOpen());
    const auto isOneReadable = [&] {
        return isAnyReadableWithin({one.readEnd.get(), other.readEnd.get()}, 0ms);
    };
    EXPECT_FALSE(isOneReadable());
    EXPECT_EQ(platform::availableBytes(other.readEnd.get()), 0U);
    ASSERT_EQ(platform::writeAll(other.writeEnd.get(), "word"), 0);
    EXPECT_TRUE(isOneReadable());
    EXPECT_EQ(platform::availableBytes(other.readEnd.get()), 4U);
    std::array<char, 3> buffer{};
    EXPECT_EQ(platform::readSome(other.readEnd.get(), buffer).size, 3U);
    EXPECT_EQ(std::string_view(buffer.data(), 3), "wor");
    EXPECT_EQ(platform::readSome(other.readEnd.get(), buffer).size, 1U);
    EXPECT_FALSE(isOneReadable());
    one.writeEnd.close();
    EXPECT_TRUE(isOneReadable());
    EXPECT_TRUE(platform::readSome(one.readEnd.get(), buffer).isAtEnd());
}

TEST(Pipe, AReadOfWhatIsNotOpenIsAnErrorAndNoEnd) {
    std::array<char, 3> buffer{};
    const platform::ReadResult result = platform::readSome(-1, buffer);
    EXPECT_NE(result.error, 0);
    EXPECT_FALSE(result.isAtEnd());
}

TEST(Pipe, SendsMoreThanASocketHoldsToOneWhoReads) {
    const platform::SocketPair sockets = platform::openSocketPair();
    ASSERT_TRUE(sockets.isOpen());
    const std::string bytes(10'000'000, 'x');
    std::size_t received = 0;
    std::jthread reader([&] {
        std::array<char, 65536> buffer{};
        while (received < bytes.size() && isAnyReadableWithin({sockets.other.get()}, 5s))
            received += platform::readSome(sockets.other.get(), buffer).size;
    });
    EXPECT_TRUE(platform::sendAll(sockets.own.get(), bytes, 5s));
    reader.join();
    EXPECT_EQ(received, bytes.size());
}

TEST(Pipe, SendingEndsWhenNobodyReadsOrNobodyIsThere) {
    platform::SocketPair sockets = platform::openSocketPair();
    EXPECT_FALSE(platform::sendAll(sockets.own.get(), std::string(10'000'000, 'x'), 20ms));
    sockets = platform::openSocketPair();
    sockets.other.close();
    EXPECT_FALSE(platform::sendAll(sockets.own.get(), "x", 5s));
}
