#include "properties/OfficeFiles.h"

#include "support/TemporaryFolder.h"

namespace support {
namespace {

constexpr std::size_t kSector = 512;
// A shorter stream would stand among the small ones.
constexpr std::size_t kStream = 4096;

std::string little(std::uint64_t number, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) text.push_back(static_cast<char>(number >> (8 * i)));
    return text;
}

std::string zeros(std::size_t count) {
    return std::string(count, '\0');
}

std::string filled(std::string bytes, std::size_t unit) {
    return bytes + zeros((unit - bytes.size() % unit) % unit);
}

/// ASCII letters in two bytes each.
std::string wide(const std::string& text) {
    std::string bytes;
    for (const char letter : text) bytes += letter + zeros(1);
    return bytes;
}

std::string typed(const std::string& text) {
    return little(30, 4) + little(text.size() + 1, 4) + filled(text + zeros(1), 4);
}
std::string typed(std::int32_t number) {
    return little(3, 4) + little(static_cast<std::uint32_t>(number), 4);
}
std::string typed(FileTime time) {
    return little(64, 4) + little(time.ticks, 8);
}

/// One set of values, whose texts are said to be UTF-8.
std::string informationStream(const std::string& format, const Information& values) {
    constexpr std::size_t kSetPlace = 48;
    std::string index = little(1, 4) + little(8 + 8 * (values.size() + 1), 4);
    std::string content = little(2, 4) + little(65001, 4);
    for (const auto& [number, value] : values) {
        index += little(static_cast<std::uint64_t>(number), 4) +
                 little(8 + 8 * (values.size() + 1) + content.size(), 4);
        content += std::visit([](const auto& one) { return typed(one); }, value);
    }
    const std::string set =
        little(8 + index.size() + content.size(), 4) + little(values.size() + 1, 4) + index + content;
    return filled(little(0xFFFE, 2) + zeros(2) + little(0x20005, 4) + zeros(16) + little(1, 4) + format +
                      little(kSetPlace, 4) + set,
                  kStream);
}

std::string entry(const std::string& name, int kind, std::uint32_t right, std::uint32_t child,
                  std::uint32_t start, std::size_t size) {
    constexpr std::uint32_t kNone = 0xFFFFFFFF;
    std::string title = wide(name);
    const std::size_t length = title.size() + 2;
    title.resize(64);
    return title + little(length, 2) + little(static_cast<std::uint64_t>(kind), 1) + little(1, 1) +
           little(kNone, 4) + little(right, 4) + little(child, 4) + zeros(36) + little(start, 4) +
           little(size, 8);
}

/// A node of a version: its length, the length of its value, whether that is a text, its name, its value.
std::string node(const std::string& name, const std::string& value, std::size_t valueLength, bool isText) {
    const std::string head = filled(zeros(6) + wide(name) + zeros(2), 4) + value;
    return little(head.size(), 2) + little(valueLength, 2) + little(isText ? 1 : 0, 2) + head.substr(6);
}

}  // namespace

void writeCompoundFile(const std::filesystem::path& file, const Information& summary,
                       const Information& document) {
    static const std::string summaryFormat =
        "\xE0\x85\x9F\xF2\xF9\x4F\x68\x10\xAB\x91\x08" + zeros(1) + "\x2B\x27\xB3\xD9";
    static const std::string documentFormat =
        "\x02\xD5\xCD\xD5\x9C\x2E\x1B\x10\x93\x97\x08" + zeros(1) + "\x2B\x2C\xF9\xAE";
    constexpr std::uint32_t kEnd = 0xFFFFFFFE;
    constexpr std::uint32_t kFree = 0xFFFFFFFF;
    constexpr std::uint32_t kTable = 0xFFFFFFFD;
    constexpr std::uint32_t kFirst = 2;
    constexpr std::uint32_t kSectors = kStream / kSector;
    std::string head = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1" + zeros(16) + little(0x3E, 2) + little(3, 2) +
                       little(0xFFFE, 2) + little(9, 2) + little(6, 2) + zeros(10) + little(1, 4) +
                       little(1, 4) + zeros(4) + little(kStream, 4) + little(kEnd, 4) + zeros(4) +
                       little(kEnd, 4) + zeros(4) + little(0, 4);
    head += std::string(kSector - head.size(), '\xFF');
    std::string table = little(kTable, 4) + little(kEnd, 4);
    for (std::uint32_t sector = 0; sector < 2 * kSectors; ++sector)
        table += little(sector % kSectors == kSectors - 1 ? kEnd : kFirst + sector + 1, 4);
    table += std::string(kSector - table.size(), '\xFF');
    const std::string folder = entry("Root Entry", 5, kFree, 1, kEnd, 0) +
                               entry("\x05SummaryInformation", 2, 2, kFree, kFirst, kStream) +
                               entry(
                                   "\x05"
                                   "DocumentSummaryInformation",
                                   2, kFree, kFree, kFirst + kSectors, kStream) +
                               zeros(128);
    writeBytes(file, head + table + folder + informationStream(summaryFormat, summary) +
                         informationStream(documentFormat, document));
}

void writeProgram(const std::filesystem::path& file,
                  const std::vector<std::pair<std::string, std::string>>& texts) {
    constexpr std::size_t kAddress = 0x1000;
    constexpr std::size_t kFolders = 3 * 24;
    constexpr std::size_t kHeadBytes = 512;
    std::string strings;
    for (const auto& [name, text] : texts)
        strings += filled(node(name, wide(text) + zeros(2), text.size() + 1, true), 4);
    const std::string facts = little(0xFEEF04BD, 4) + little(0x10000, 4) + zeros(44);
    const std::string version =
        node("VS_VERSION_INFO", facts + node("StringFileInfo", node("040904B0", strings, 0, true), 0, true),
             facts.size(), false);
    // Kind, number, language: a folder in a folder in a folder.
    std::string resources;
    for (const int number : {16, 1, 1033}) {
        const std::size_t next = resources.size() + 24;
        resources += zeros(14) + little(1, 2) + little(static_cast<std::uint64_t>(number), 4) +
                     little(next == kFolders ? next : 0x80000000 | next, 4);
    }
    resources += little(kAddress + kFolders + 16, 4) + little(version.size(), 4) + zeros(8) + version;
    std::string bytes = "MZ" + zeros(58) + little(64, 4) + "PE" + zeros(2) + little(0x14C, 2) + little(1, 2) +
                        zeros(12) + little(224, 2) + little(0x102, 2) + little(0x10B, 2) + zeros(222) +
                        ".rsrc" + zeros(3) + little(resources.size(), 4) + little(kAddress, 4) +
                        little(resources.size(), 4) + little(kHeadBytes, 4) + zeros(16);
    writeBytes(file, filled(bytes, kHeadBytes) + resources);
}

}  // namespace support
