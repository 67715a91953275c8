#include "properties/MediaFiles.h"

#include "support/TemporaryFolder.h"

#include <cstdint>
#include <initializer_list>

namespace support {
namespace {

std::string big(std::uint64_t number, int bytes) {
    std::string text;
    for (int i = bytes - 1; i >= 0; --i) text.push_back(static_cast<char>(number >> (8 * i)));
    return text;
}

std::string little(std::uint64_t number, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) text.push_back(static_cast<char>(number >> (8 * i)));
    return text;
}

std::string zeros(std::size_t count) {
    return std::string(count, '\0');
}

std::string box(const std::string& type, const std::string& content) {
    return big(content.size() + 8, 4) + type + content;
}

std::string boxes(std::initializer_list<std::string> parts) {
    std::string all;
    for (const std::string& part : parts) all += part;
    return all;
}

const std::string& unityMatrix() {
    static const std::string matrix =
        big(0x10000, 4) + zeros(12) + big(0x10000, 4) + zeros(12) + big(0x40000000, 4);
    return matrix;
}

std::string sampleTable() {
    const std::string entry = zeros(6) + big(1, 2) + zeros(16) + big(320, 2) + big(240, 2) +
                              big(0x480000, 4) + big(0x480000, 4) + zeros(4) + big(1, 2) + zeros(32) +
                              big(24, 2) + big(0xFFFF, 2);
    return box("stbl",
               boxes({box("stsd", zeros(4) + big(1, 4) + box("avc1", entry)),
                      box("stts", zeros(4) + big(1, 4) + big(50, 4) + big(40, 4)), box("stsc", zeros(8)),
                      box("stsz", zeros(4) + big(1, 4) + big(50, 4)), box("stco", zeros(8))}));
}

}  // namespace

void writeWave(const std::filesystem::path& file) {
    const std::string format =
        little(1, 2) + little(1, 2) + little(8000, 4) + little(16000, 4) + little(2, 2) + little(16, 2);
    const std::string content =
        "WAVEfmt " + little(format.size(), 4) + format + "data" + little(16000, 4) + zeros(16000);
    writeBytes(file, "RIFF" + little(content.size(), 4) + content);
}

void writeFlac(const std::filesystem::path& file) {
    // Rate, channels less one, bits less one and the number of samples share eight bytes.
    const std::uint64_t packed = (44100ULL << 44) | (1ULL << 41) | (15ULL << 36) | 441000ULL;
    const std::string information = big(4096, 2) + big(4096, 2) + zeros(6) + big(packed, 8) + zeros(16);
    std::string comments = little(4, 4) + "none" + little(4, 4);
    for (const std::string tag : {"TITLE=Rain", "ARTIST=Ann", "ARTIST=Bo", "TRACKNUMBER=3/9"})
        comments += little(tag.size(), 4) + tag;
    writeBytes(file, "fLaC" + big(0, 1) + big(information.size(), 3) + information + big(0x84, 1) +
                         big(comments.size(), 3) + comments);
}

void writeMp3(const std::filesystem::path& file) {
    constexpr std::size_t kFrameBytes = 417;
    std::string bytes;
    for (int frame = 0; frame < 8; ++frame) bytes += "\xFF\xFB\x90" + zeros(1) + zeros(kFrameBytes - 4);
    writeBytes(file, bytes);
}

void writeMp4(const std::filesystem::path& file) {
    constexpr std::uint64_t kFrom1904To2020 = 3660681600;  // 2020-01-01 00:00:00
    const std::string times = big(kFrom1904To2020, 4) + big(kFrom1904To2020, 4);
    const std::string movieHeader = zeros(4) + times + big(1000, 4) + big(2000, 4) + big(0x10000, 4) +
                                    big(0x100, 2) + zeros(10) + unityMatrix() + zeros(24) + big(2, 4);
    const std::string trackHeader = big(7, 4) + times + big(1, 4) + zeros(4) + big(2000, 4) + zeros(16) +
                                    unityMatrix() + big(320 << 16, 4) + big(240 << 16, 4);
    const std::string mediaHeader =
        zeros(4) + times + big(1000, 4) + big(2000, 4) + big(0x55C4, 2) + zeros(2);
    const std::string handler = zeros(8) + "vide" + zeros(13);
    const std::string data = box("dinf", box("dref", zeros(4) + big(1, 4) + box("url ", big(1, 4))));
    const std::string media =
        box("mdia", boxes({box("mdhd", mediaHeader), box("hdlr", handler),
                           box("minf", boxes({box("vmhd", big(1, 4) + zeros(8)), data, sampleTable()}))}));
    writeBytes(
        file,
        boxes({box("ftyp", "isom" + big(512, 4) + "isomavc1"),
               box("moov", boxes({box("mvhd", movieHeader), box("trak", box("tkhd", trackHeader) + media)})),
               box("mdat", zeros(64))}));
}

}  // namespace support
