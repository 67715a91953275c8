#include "properties/MediaFiles.h"

#include "support/TemporaryFolder.h"

#include <cstdint>
#include <initializer_list>
#include <string>

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

void writeSunSound(const std::filesystem::path& file) {
    writeBytes(file,
               ".snd" + big(24, 4) + big(32000, 4) + big(3, 4) + big(8000, 4) + big(1, 4) + zeros(32000));
}

void writeFlac(const std::filesystem::path& file) {
    writeFlac(file, {{"TITLE", "Rain"}, {"ARTIST", "Ann"}, {"ARTIST", "Bo"}, {"TRACKNUMBER", "3/9"}});
}

void writeFlac(const std::filesystem::path& file, const Texts& tags) {
    // Rate, channels less one, bits less one and the number of samples share eight bytes.
    const std::uint64_t packed = (44100ULL << 44) | (1ULL << 41) | (15ULL << 36) | 441000ULL;
    const std::string information = big(4096, 2) + big(4096, 2) + zeros(6) + big(packed, 8) + zeros(16);
    std::string comments = little(4, 4) + "none" + little(tags.size(), 4);
    for (const auto& [name, text] : tags)
        comments += little(name.size() + 1 + text.size(), 4) + name + "=" + text;
    writeBytes(file, "fLaC" + big(0, 1) + big(information.size(), 3) + information + big(0x84, 1) +
                         big(comments.size(), 3) + comments);
}

void writeMp3(const std::filesystem::path& file) {
    constexpr std::size_t kFrameBytes = 417;
    std::string bytes;
    for (int frame = 0; frame < 8; ++frame) bytes += "\xFF\xFB\x90" + zeros(1) + zeros(kFrameBytes - 4);
    writeBytes(file, bytes);
}

namespace {

void writeMovie(const std::filesystem::path& file, const std::string& userData) {
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
    writeBytes(file, boxes({box("ftyp", "isom" + big(512, 4) + "isomavc1"),
                            box("moov", boxes({box("mvhd", movieHeader),
                                               box("trak", box("tkhd", trackHeader) + media), userData})),
                            box("mdat", zeros(64))}));
}

/// An element of Matroska: its id, its length in eight bytes, its content.
std::string element(std::uint32_t id, const std::string& content) {
    std::string name;
    for (int shift = 24; shift >= 0; shift -= 8)
        if ((id >> shift) != 0) name.push_back(static_cast<char>(id >> shift));
    return name + big(0x01ULL << 56 | content.size(), 8) + content;
}

/// A chunk of RIFF, filled to an even length.
std::string chunk(const std::string& name, const std::string& content) {
    return name + little(content.size(), 4) + content + zeros(content.size() % 2);
}

std::uint32_t checkSum(const std::string& bytes) {
    std::uint32_t sum = 0xFFFFFFFF;
    for (const char byte : bytes) {
        sum ^= static_cast<std::uint8_t>(byte);
        for (int bit = 0; bit < 8; ++bit) sum = (sum >> 1) ^ ((sum & 1) != 0 ? 0xEDB88320 : 0);
    }
    return ~sum;
}

}  // namespace

void writeMp4(const std::filesystem::path& file) {
    writeMovie(file, {});
}

void writeMacintoshMovie(const std::filesystem::path& file, const Texts& texts) {
    std::string atoms;
    // Language 0 is English of the Macintosh.
    for (const auto& [name, text] : texts) atoms += box(name, big(text.size(), 2) + big(0, 2) + text);
    writeMovie(file, box("udta", atoms));
}

void writePng(const std::filesystem::path& file) {
    std::string bytes = "\x89PNG\r\n\x1A\n";
    const auto add = [&](const std::string& content) {
        bytes += big(content.size() - 4, 4) + content + big(checkSum(content), 4);
    };
    add("IHDR" + big(1, 4) + big(1, 4) + big(8, 1) + zeros(4));
    // One uncompressed block of a filter and a point, and its sum.
    add("IDAT\x78\x01\x01" + little(2, 2) + little(0xFFFD, 2) + zeros(2) + big(0x20001, 4));
    add("IEND");
    writeBytes(file, bytes);
}

void writeMatroska(const std::filesystem::path& file, const Texts& tags) {
    std::string all;
    for (const auto& [name, text] : tags)
        all += element(0x67C8, element(0x45A3, name) + element(0x4487, text));
    const std::string head = element(0x4286, big(1, 1)) + element(0x42F7, big(1, 1)) +
                             element(0x4282, "matroska") + element(0x4287, big(4, 1)) +
                             element(0x4285, big(2, 1));
    const std::string information =
        element(0x2AD7B1, big(1'000'000, 4)) + element(0x4D80, "by hand") + element(0x5741, "by hand");
    const std::string track = element(0xD7, big(1, 1)) + element(0x73C5, big(1, 1)) +
                              element(0x83, big(1, 1)) + element(0x86, "V_MPEG4/ISO/AVC") +
                              element(0xE0, element(0xB0, big(320, 2)) + element(0xBA, big(240, 2)));
    writeBytes(
        file,
        element(0x1A45DFA3, head) +
            element(0x18538067, element(0x1549A966, information) + element(0x1654AE6B, element(0xAE, track)) +
                                    element(0x1254C367, element(0x7373, element(0x63C0, {}) + all))));
}

void writeAvi(const std::filesystem::path& file, const std::string& date, const std::string& artist,
              const std::string& note) {
    const std::string header = little(40'000, 4) + zeros(12) + little(50, 4) + zeros(4) + little(1, 4) +
                               zeros(4) + little(320, 4) + little(240, 4) + zeros(16);
    const std::string stream =
        "vidsXVID" + zeros(12) + little(1, 4) + little(25, 4) + zeros(4) + little(50, 4) + zeros(16);
    const std::string format =
        little(40, 4) + little(320, 4) + little(240, 4) + little(1, 2) + little(24, 2) + "XVID" + zeros(20);
    const std::string lists =
        chunk("LIST", "hdrl" + chunk("avih", header) +
                          chunk("LIST", "strl" + chunk("strh", stream) + chunk("strf", format)) +
                          chunk("IDIT", date)) +
        chunk("LIST", "INFO" + chunk("IART", artist + zeros(1))) + chunk("LIST", "movi") +
        (note.empty() ? note : chunk("_PMX", note));
    writeBytes(file, chunk("RIFF", "AVI " + lists));
}

namespace {

/// An object of Windows Media: its identifier, its length in eight bytes, its content.
std::string object(const std::string& id, const std::string& content) {
    return id + little(content.size() + 24, 8) + content;
}

/// ASCII letters in two bytes each, with the zero that ends them.
std::string wide(const std::string& text) {
    std::string bytes;
    for (const char letter : text) bytes += letter + zeros(1);
    return bytes + zeros(2);
}

std::string attribute(const std::string& name, int type, const std::string& content) {
    return little(wide(name).size(), 2) + wide(name) + little(static_cast<std::uint64_t>(type), 2) +
           little(content.size(), 2) + content;
}

std::string oggPage(const std::string& packet, int flags, int number) {
    std::string lengths(packet.size() / 255, '\xFF');
    lengths += static_cast<char>(packet.size() % 255);
    return "OggS" + zeros(1) + little(static_cast<std::uint64_t>(flags), 1) + zeros(8) + little(7, 4) +
           little(static_cast<std::uint64_t>(number), 4) + zeros(4) + little(lengths.size(), 1) + lengths +
           packet;
}

}  // namespace

void writeWindowsMedia(const std::filesystem::path& file, const Texts& texts,
                       const std::vector<std::string>& truths) {
    static const std::string head =
        "\x30\x26\xB2\x75\x8E\x66\xCF\x11\xA6\xD9" + zeros(1) + "\xAA" + zeros(1) + "\x62\xCE\x6C";
    static const std::string extended =
        "\x40\xA4\xD0\xD2\x07\xE3\xD2\x11\x97\xF0" + zeros(1) + "\xA0\xC9" + "\x5E\xA8\x50";
    static const std::string facts =
        "\xA1\xDC\xAB\x8C\x47\xA9\xCF\x11\x8E\xE4" + zeros(1) + "\xC0\x0C\x20\x53\x65";
    static const std::string stream =
        "\x91\x07\xDC\xB7\xB7\xA9\xCF\x11\x8E\xE6" + zeros(1) + "\xC0\x0C\x20\x53\x65";
    std::string attributes;
    for (const auto& [name, text] : texts) attributes += attribute(name, 0, wide(text));
    for (const std::string& name : truths) attributes += attribute(name, 2, little(1, 4));
    writeBytes(file,
               object(head, little(3, 4) + "\x01\x02" + object(facts, zeros(80)) + object(stream, zeros(80)) +
                                object(extended, little(texts.size() + truths.size(), 2) + attributes)));
}

void writeOggFilm(const std::filesystem::path& file, const Texts& tags) {
    const std::string kind = "\x80theora\x03\x02\x01" + big(20, 2) + big(15, 2) + big(320, 3) + big(240, 3) +
                             zeros(2) + big(25, 4) + big(1, 4) + big(1, 3) + big(1, 3) + zeros(6);
    std::string comments = "\x81theora" + little(4, 4) + "none" + little(tags.size(), 4);
    for (const auto& [name, text] : tags)
        comments += little(name.size() + 1 + text.size(), 4) + name + "=" + text;
    writeBytes(file, oggPage(kind, 2, 0) + oggPage(comments, 0, 1));
}

void writeMusepack(const std::filesystem::path& file, const std::string& composer, const std::string& title) {
    const std::string frame = "TCOM" + big(composer.size() + 1, 4) + zeros(3) + composer;
    const std::string front = "ID3\x03" + zeros(5) + big(frame.size(), 1) + frame;
    const std::string item = little(title.size(), 4) + zeros(4) + "Title" + zeros(1) + title;
    const std::string ends = "APETAGEX" + little(2000, 4) + little(item.size() + 32, 4) + little(1, 4);
    writeBytes(file, front + "MP+\x07" + zeros(200) + item + ends + zeros(12));
}

void writeRaf(const std::filesystem::path& file, const std::string& photo, int width, int height) {
    constexpr std::size_t kHead = 148;
    const std::string table = big(1, 4) + big(0x111, 2) + big(4, 2) +
                              big(static_cast<std::uint64_t>(height), 2) +
                              big(static_cast<std::uint64_t>(width), 2);
    std::string head = "FUJIFILMCCD-RAW 0201FF000000Camera" + zeros(50) + big(kHead, 4) +
                       big(photo.size(), 4) + big(kHead + photo.size(), 4) + big(table.size(), 4) +
                       big(kHead + photo.size() + table.size(), 4) + big(64, 4);
    head.resize(kHead);
    writeBytes(file, head + photo + table + zeros(64));
}

void writeArchive(const std::filesystem::path& file, const Texts& parts) {
    std::string bytes;
    std::string index;
    for (const auto& [name, content] : parts) {
        const std::string facts = little(20, 2) + zeros(8) + little(checkSum(content), 4) +
                                  little(content.size(), 4) + little(content.size(), 4) +
                                  little(name.size(), 2) + zeros(2);
        index += "PK\x01\x02" + little(20, 2) + facts + zeros(10) + little(bytes.size(), 4) + name;
        bytes += "PK\x03\x04" + facts + name + content;
    }
    const std::string count = little(parts.size(), 2);
    writeBytes(file, bytes + index + "PK\x05\x06" + zeros(4) + count + count + little(index.size(), 4) +
                         little(bytes.size(), 4) + zeros(2));
}

}  // namespace support
