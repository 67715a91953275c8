#include "properties/SunSound.h"

#include "properties/Atoms.h"

#include <algorithm>
#include <array>

namespace properties {

void readSunSound(const std::filesystem::path& file, PropertyValues& values) {
    using Id = PropertyId;
    constexpr std::size_t kHeadBytes = 24;
    constexpr std::int64_t kTicksInASecond = 10'000'000;
    constexpr std::uint64_t kMostRate = 10'000'000;
    constexpr std::uint64_t kMostChannels = 256;
    // By the number of the encoding: samples of companded sound have eight bits.
    static constexpr std::array<int, 8> kBits = {0, 8, 8, 16, 24, 32, 32, 64};
    const platform::RegularFile opened(file);
    if (!opened.isOpen()) return;
    // Name, place of the samples, their bytes, encoding, rate, channels.
    const std::string head = bytesAt(opened, 0, kHeadBytes);
    if (head.size() < kHeadBytes || !head.starts_with(".snd")) return;
    const auto number = [&](std::size_t place) {
        return bigEndian(std::string_view(head).substr(place * 4, 4));
    };
    const std::uint64_t rate = number(4);
    const std::uint64_t channels = number(5);
    if (number(3) >= kBits.size() || kBits[number(3)] == 0 || rate == 0 || rate > kMostRate ||
        channels == 0 || channels > kMostChannels || number(1) > opened.size())
        return;
    const auto bits = static_cast<std::uint64_t>(kBits[number(3)]);
    const std::uint64_t bytes = std::min(number(2), opened.size() - number(1));
    const std::uint64_t bytesInASecond = rate * channels * bits / 8;
    values.add(Id::AudioChannelCount, static_cast<std::int64_t>(channels));
    values.add(Id::AudioSampleRate, static_cast<std::int64_t>(rate));
    values.add(Id::AudioSampleSize, static_cast<std::int64_t>(bits));
    values.add(Id::AudioEncodingBitrate, static_cast<std::int64_t>(bytesInASecond * 8));
    const double seconds = static_cast<double>(bytes) / static_cast<double>(bytesInASecond);
    values.add(Id::MediaDuration, static_cast<std::int64_t>(seconds * kTicksInASecond));
}

}  // namespace properties
