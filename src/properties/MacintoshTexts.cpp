#include "properties/MacintoshTexts.h"

#include "platform/RegularFile.h"

#include <QStringDecoder>
#include <algorithm>
#include <array>
#include <string_view>

namespace properties {
namespace {

using Id = PropertyId;

struct TextSource {
    Id property;
    std::string_view atom;
    bool isList = false;
};

constexpr auto kSources = std::to_array<TextSource>({
    {Id::SummaryAuthor, "\251ART", true},
    {Id::SummaryAuthor, "\251aut", true},
    {Id::SummaryComment, "\251cmt"},
    {Id::SummaryCopyright, "\251cpy"},
    {Id::SummaryItemAuthors, "\251ART", true},
    {Id::SummaryKeywords, "\251key", true},
    {Id::SummaryTitle, "\251nam"},
    {Id::MediaCopyright, "\251cpy"},
    {Id::MediaProducer, "\251prd", true},
    {Id::MusicAlbumTitle, "\251alb"},
    {Id::MusicArtist, "\251ART", true},
    {Id::MusicComposer, "\251com", true},
    {Id::MusicDisplayArtist, "\251ART"},
    {Id::MusicGenre, "\251gen", true},
    {Id::PhotoCameraManufacturer, "\251mak"},
    {Id::PhotoCameraModel, "\251mod"},
    {Id::VersionDescription, "\251des"},
    {Id::VideoDirector, "\251dir", true},
});

constexpr std::size_t kNameBytes = 4;
constexpr std::size_t kLongestText = 0xFFFF;
// A broken file could be all heads.
constexpr int kMostAtoms = 10'000;
// From here on the number is three letters of a language, and the text is UTF-8.
constexpr std::uint64_t kFirstNamedLanguage = 0x400;

std::uint64_t numberOf(std::string_view bytes) {
    std::uint64_t number = 0;
    for (const char byte : bytes) number = number << 8 | static_cast<std::uint8_t>(byte);
    return number;
}

std::string bytesAt(const platform::RegularFile& file, std::uint64_t position, std::size_t length) {
    std::string bytes(length, '\0');
    bytes.resize(file.readAt(position, std::as_writable_bytes(std::span(bytes))));
    return bytes;
}

/// The atoms of one level: length, name, content. Damage ends the walk.
class Atoms {
 public:
    Atoms(const platform::RegularFile& file, PropertyValues& values) : file_(file), values_(values) {}

    void walk(std::uint64_t position, std::uint64_t end, const std::string& parent) {
        while (position + 8 <= end && --left_ > 0) {
            const std::string head = bytesAt(file_, position, 16);
            if (head.size() < 8) return;
            std::uint64_t length = numberOf(std::string_view(head).substr(0, 4));
            std::uint64_t headLength = 8;
            if (length == 1 && head.size() == 16) {
                length = numberOf(std::string_view(head).substr(8, 8));
                headLength = 16;
            }
            if (length == 0) length = end - position;
            if (length < headLength || length > end - position) return;
            enter(head.substr(4, kNameBytes), parent, position + headLength, position + length);
            position += length;
        }
    }

 private:
    void enter(const std::string& name, const std::string& parent, std::uint64_t content, std::uint64_t end) {
        const bool isOnTheWay = (name == "moov" && parent.empty()) || (name == "udta" && parent == "moov");
        if (isOnTheWay) walk(content, end, name);
        if (parent == "udta" && name.starts_with('\251') && end - content <= kLongestText)
            add(name, bytesAt(file_, content, static_cast<std::size_t>(end - content)));
    }

    /// Length, language, text.
    void add(const std::string& name, std::string_view content) {
        if (content.size() < 4) return;
        const std::size_t length = static_cast<std::size_t>(numberOf(content.substr(0, 2)));
        if (numberOf(content.substr(2, 2)) >= kFirstNamedLanguage || length > content.size() - 4) return;
        QStringDecoder decoder("macintosh");
        if (!decoder.isValid()) return;
        const std::string_view bytes = content.substr(4, length);
        const QString text = QString(decoder(QByteArrayView(bytes.data(), static_cast<qsizetype>(length))))
                                 .remove(QChar(u'\0'))
                                 .trimmed();
        for (const TextSource& source : kSources) {
            if (source.atom != name) continue;
            if (source.isList && !text.isEmpty())
                values_.addList(source.property, {text});
            else
                values_.addText(source.property, text);
        }
    }

    const platform::RegularFile& file_;
    PropertyValues& values_;
    int left_ = kMostAtoms;
};

}  // namespace

bool macintoshTextsCanGive(PropertyId property) {
    return std::ranges::find(kSources, property, &TextSource::property) != kSources.end();
}

void readMacintoshTexts(const std::filesystem::path& file, PropertyValues& values) {
    const platform::RegularFile opened(file);
    if (!opened.isOpen()) return;
    static constexpr std::array<std::string_view, 5> kFirst = {"ftyp", "moov", "mdat", "wide", "free"};
    const std::string head = bytesAt(opened, 0, 8);
    if (head.size() < 8 || std::ranges::find(kFirst, head.substr(4)) == kFirst.end()) return;
    Atoms(opened, values).walk(0, opened.size(), {});
}

}  // namespace properties
