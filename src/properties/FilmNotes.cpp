#include "properties/FilmNotes.h"

#include "properties/Atoms.h"
#include "properties/PhotoFile.h"
#include "properties/PhotoProperties.h"
#include "properties/PropertyTexts.h"

#include <algorithm>
#include <array>

namespace properties {
namespace {

using Id = PropertyId;

struct NoteSource {
    Id property;
    const char* key;
    bool isList = false;
};

/// What notes hold of films and sound alone; the rest is as in those of photos.
constexpr auto kSources = std::to_array<NoteSource>({
    {Id::MediaCopyright, "Xmp.xmpDM.copyright"},
    {Id::MusicAlbumTitle, "Xmp.xmpDM.album"},
    {Id::MusicArtist, "Xmp.xmpDM.artist", true},
    {Id::MusicComposer, "Xmp.xmpDM.composer", true},
    {Id::MusicDisplayArtist, "Xmp.xmpDM.artist"},
    {Id::MusicGenre, "Xmp.xmpDM.genre", true},
    {Id::VideoDirector, "Xmp.xmpDM.director", true},
});

constexpr std::uint64_t kLongestNote = std::uint64_t{16} * 1024 * 1024;
constexpr std::string_view kNoteId = "\xBE\x7A\xCF\xCB\x97\xA9\x42\xE8\x9C\x71\x99\x94\x91\xE3\xAF\xAC";

std::string noteBetween(const platform::RegularFile& file, std::uint64_t begin, std::uint64_t end) {
    if (end <= begin || end - begin > kLongestNote) return {};
    return bytesAt(file, begin, static_cast<std::size_t>(end - begin));
}

/// In a box of its own beside the film, or among the user data.
std::string noteOfAtoms(const platform::RegularFile& file) {
    for (const Atom& atom : atomsBetween(file, 0, file.size())) {
        if (atom.name == "uuid" && bytesAt(file, atom.content, kNoteId.size()) == kNoteId)
            return noteBetween(file, atom.content + kNoteId.size(), atom.end);
        if (atom.name != "moov") continue;
        for (const Atom& user : atomsBetween(file, atom.content, atom.end)) {
            if (user.name != "udta") continue;
            for (const Atom& note : atomsBetween(file, user.content, user.end))
                if (note.name == "XMP_") return noteBetween(file, note.content, note.end);
        }
    }
    return {};
}

/// Chunks of name, length with the lowest byte first, content filled to an even length.
std::string noteOfRiff(const platform::RegularFile& file) {
    constexpr int kMostChunks = 10'000;
    std::uint64_t position = 12;
    for (int i = 0; i < kMostChunks; ++i) {
        std::string head = bytesAt(file, position, 8);
        if (head.size() < 8) return {};
        std::ranges::reverse(head);
        const std::uint64_t length = bigEndian(std::string_view(head).substr(0, 4));
        position += 8;
        if (head.ends_with("XMP_")) return noteBetween(file, position, position + length);
        position += length + length % 2;
    }
    return {};
}

}  // namespace

bool filmNotesCanGive(PropertyId property) {
    return photoCanGive(property) ||
           std::ranges::find(kSources, property, &NoteSource::property) != kSources.end();
}

void readFilmNotes(const std::filesystem::path& file, PropertyValues& values) {
    const platform::RegularFile opened(file);
    if (!opened.isOpen()) return;
    std::string note;
    if (isMadeOfAtoms(opened))
        note = noteOfAtoms(opened);
    else if (bytesAt(opened, 0, 4) == "RIFF")
        note = noteOfRiff(opened);
    if (note.empty()) return;
    addNoteProperties(note, values);
    try {
        const auto image = openNote(note);
        for (const NoteSource& source : kSources) {
            const auto found = image->xmpData().findKey(Exiv2::XmpKey(source.key));
            if (found == image->xmpData().end()) continue;
            const QString text = textFromBytes(found->toString());
            if (source.isList)
                values.addList(source.property, splitList(text));
            else
                values.addText(source.property, text);
        }
    } catch (...) {
        // A damaged note: what was found before the damage stays.
    }
}

}  // namespace properties
