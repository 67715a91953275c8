#include "properties/PngTexts.h"

#include "properties/Atoms.h"
#include "properties/PropertyTexts.h"

#include <QDateTime>
#include <algorithm>
#include <array>

namespace properties {
namespace {

using Id = PropertyId;

struct TextSource {
    Id property;
    std::string_view keyword;
};

constexpr auto kSources = std::to_array<TextSource>({
    {Id::SummaryTitle, "Title"},
    {Id::SummaryAuthor, "Author"},
    {Id::SummaryItemAuthors, "Author"},
    {Id::SummaryComment, "Comment"},
    {Id::SummaryComment, "Description"},
    {Id::SummaryCopyright, "Copyright"},
    {Id::SummaryApplicationName, "Software"},
    {Id::PhotoDateTaken, "Creation Time"},
});

constexpr int kMostChunks = 10'000;
constexpr int kMostTexts = 64;
constexpr std::uint64_t kLongestText = std::uint64_t{64} * 1024;
// What is packed may be a thousand times as long.
constexpr std::size_t kLongestPacked = std::size_t{16} * 1024;

struct Text {
    std::string keyword;
    QString text;
};

QString unpacked(std::string_view bytes, bool isUtf8) {
    if (bytes.size() > kLongestPacked) return {};
    // The library wants the length in front, which is not known.
    const QByteArray plain =
        qUncompress(QByteArray(4, '\0') + QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size())));
    return isUtf8 ? QString::fromUtf8(plain) : QString::fromLatin1(plain);
}

QString plainText(std::string_view bytes, bool isUtf8) {
    const QByteArrayView view(bytes.data(), static_cast<qsizetype>(bytes.size()));
    return isUtf8 ? QString::fromUtf8(view) : QString::fromLatin1(view);
}

std::uint32_t checkSum(std::string_view bytes) {
    std::uint32_t sum = 0xFFFFFFFF;
    for (const char byte : bytes) {
        sum ^= static_cast<std::uint8_t>(byte);
        for (int bit = 0; bit < 8; ++bit) sum = (sum >> 1) ^ ((sum & 1) != 0 ? 0xEDB88320 : 0);
    }
    return ~sum;
}

/// Takes what stands before the next zero.
std::string_view taken(std::string_view& bytes) {
    const std::size_t length = std::min(bytes.find('\0'), bytes.size());
    const std::string_view part = bytes.substr(0, length);
    bytes.remove_prefix(std::min(length + 1, bytes.size()));
    return part;
}

Text textOf(std::string_view name, std::string_view bytes) {
    Text text;
    text.keyword = taken(bytes);
    const bool isKnown = std::ranges::find(kSources, text.keyword, &TextSource::keyword) != kSources.end();
    if (!isKnown) return text;
    if (name == "tEXt") text.text = plainText(bytes, false);
    if (name == "zTXt" && bytes.size() > 1) text.text = unpacked(bytes.substr(1), false);
    if (name != "iTXt" || bytes.size() < 2) return text;
    const bool isPacked = bytes[0] != 0;
    bytes.remove_prefix(2);
    taken(bytes);  // the language
    taken(bytes);  // the keyword in that language
    text.text = isPacked ? unpacked(bytes, true) : plainText(bytes, true);
    return text;
}

/// The form that is asked for, or the one that most programs write.
PropertyValue timeOf(const QString& text) {
    if (const auto time = parseLocalTime(text)) return *time;
    const QDateTime mail = QDateTime::fromString(text, Qt::RFC2822Date);
    if (!mail.isValid()) return {};
    if (const auto time = parseLocalTime(mail.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss")))) return *time;
    return {};
}

void addText(const Text& text, PropertyValues& values) {
    const QString plain = text.text.trimmed();
    if (plain.isEmpty()) return;
    for (const TextSource& source : kSources) {
        if (source.keyword != text.keyword) continue;
        if (source.property == Id::PhotoDateTaken)
            values.add(source.property, timeOf(plain));
        else if (source.keyword == "Author")
            values.addList(source.property, {plain});
        else
            values.addText(source.property, plain);
    }
}

/// Of a whole point. A palette's numbers are its depth.
void addDepth(std::string_view head, PropertyValues& values) {
    static constexpr std::array<int, 7> kSamples = {1, 0, 3, 1, 2, 0, 4};
    const auto bits = static_cast<std::uint8_t>(head[8]);
    const auto kind = static_cast<std::uint8_t>(head[9]);
    if (kind < kSamples.size() && kSamples[kind] > 0 && bits > 0 && bits <= 16)
        values.add(Id::ImageBitDepth, std::int64_t{bits} * kSamples[kind]);
}

}  // namespace

void readPngTexts(const std::filesystem::path& file, PropertyValues& values) {
    const platform::RegularFile opened(file);
    if (!opened.isOpen() || bytesAt(opened, 0, 6) != "\x89PNG\r\n") return;
    std::uint64_t position = 8;
    std::vector<Text> texts;
    int textsSeen = 0;
    for (int i = 0; i < kMostChunks; ++i) {
        const std::string head = bytesAt(opened, position, 8);
        if (head.size() < 8) break;
        const std::uint64_t length = bigEndian(std::string_view(head).substr(0, 4));
        const std::string name = head.substr(4);
        position += 8;
        const bool isText = name == "tEXt" || name == "zTXt" || name == "iTXt";
        if (name == "IHDR" && length == 13) {
            if (const std::string content = bytesAt(opened, position, 13); content.size() == 13)
                addDepth(content, values);
        } else if (isText && length <= kLongestText && ++textsSeen <= kMostTexts) {
            const std::string content = bytesAt(opened, position, static_cast<std::size_t>(length) + 4);
            if (content.size() < length + 4) break;
            const std::string_view chunk(content.data(), static_cast<std::size_t>(length));
            // The library complains aloud of what cannot be unpacked.
            if (checkSum(name + std::string(chunk)) ==
                bigEndian(std::string_view(content).substr(chunk.size()))) {
                Text text = textOf(name, chunk);
                if (!text.text.isEmpty()) texts.push_back(std::move(text));
            }
        }
        position += length + 4;
    }
    // In the order of the table, not of the file.
    for (const TextSource& source : kSources)
        for (const Text& text : texts)
            if (text.keyword == source.keyword) addText(text, values);
}

}  // namespace properties
