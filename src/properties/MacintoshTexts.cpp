#include "properties/MacintoshTexts.h"

#include "properties/Atoms.h"

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

constexpr std::size_t kLongestText = 0xFFFF;
// From here on the number is three letters of a language, and the text is UTF-8.
constexpr std::uint64_t kFirstNamedLanguage = 0x400;

/// Length, language, text.
void add(const std::string& name, std::string_view content, PropertyValues& values) {
    if (content.size() < 4) return;
    const std::size_t length = static_cast<std::size_t>(bigEndian(content.substr(0, 2)));
    if (bigEndian(content.substr(2, 2)) >= kFirstNamedLanguage || length > content.size() - 4) return;
    QStringDecoder decoder("macintosh");
    if (!decoder.isValid()) return;
    const std::string_view bytes = content.substr(4, length);
    const QString text = QString(decoder(QByteArrayView(bytes.data(), static_cast<qsizetype>(length))))
                             .remove(QChar(u'\0'))
                             .trimmed();
    for (const TextSource& source : kSources) {
        if (source.atom != name) continue;
        if (source.isList && !text.isEmpty())
            values.addList(source.property, {text});
        else
            values.addText(source.property, text);
    }
}

}  // namespace

bool macintoshTextsCanGive(PropertyId property) {
    return std::ranges::find(kSources, property, &TextSource::property) != kSources.end();
}

void readMacintoshTexts(const std::filesystem::path& file, PropertyValues& values) {
    const platform::RegularFile opened(file);
    if (!opened.isOpen() || !isMadeOfAtoms(opened)) return;
    for (const Atom& movie : atomsBetween(opened, 0, opened.size())) {
        if (movie.name != "moov") continue;
        for (const Atom& user : atomsBetween(opened, movie.content, movie.end)) {
            if (user.name != "udta") continue;
            for (const Atom& text : atomsBetween(opened, user.content, user.end))
                if (text.name.starts_with('\251') && text.end - text.content <= kLongestText)
                    add(text.name,
                        bytesAt(opened, text.content, static_cast<std::size_t>(text.end - text.content)),
                        values);
        }
    }
}

}  // namespace properties
