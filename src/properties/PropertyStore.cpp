#include "properties/PropertyStore.h"

#include "properties/AudioProperties.h"
#include "properties/DocumentProperties.h"
#include "properties/FileProperties.h"
#include "properties/FilmNotes.h"
#include "properties/MacintoshTexts.h"
#include "properties/PhotoProperties.h"
#include "properties/SafeRewrite.h"
#include "properties/StreamProperties.h"
#include "properties/SunSound.h"

#include <algorithm>

namespace properties {
namespace {

struct Message {
    PropertyResult result;
    const char* text;
};

constexpr Message kMessages[] = {
    {PropertyResult::AccessDenied, "Access denied!"},
    {PropertyResult::InvalidParameter, "Invalid parameter!"},
    {PropertyResult::InvalidArguments, "One or more arguments are invalid!"},
    {PropertyResult::NotSupported, "This property is not supported by this codec!"},
    {PropertyResult::TypeMismatch, "Type mismatch.\nPlesase contact Vennmark!"},
};

}  // namespace

QString propertyResultMessage(PropertyResult result) {
    const auto found = std::ranges::find(kMessages, result, &Message::result);
    return found == std::end(kMessages) ? QString() : QString::fromLatin1(found->text);
}

PropertyStore::PropertyStore(std::filesystem::path file)
    : file_(std::move(file)), identity_(platform::identifyFile(file_)) {}

void PropertyStore::look() {
    if (mediaClassKnown_) return;
    mediaClass_ = mediaClassOf(file_);
    mediaClassKnown_ = true;
}

const PropertyValue& PropertyStore::get(PropertyId property) {
    static const PropertyValue absent;
    if (static_cast<std::size_t>(property) >= kPropertyCount) return absent;
    if (isOpen() && !values_.has(property)) read(property);
    return values_.at(property);
}

/// Asks those who may know of the property and were not asked yet, the best informed first.
void PropertyStore::read(PropertyId property) {
    const auto ask = [&](bool& asked, auto&& reader) {
        if (asked) return;
        asked = true;
        reader(file_, values_);
    };
    if (fileCanGive(property)) {
        ask(fileRead_, readFileProperties);
        return;
    }
    look();
    // The tables are searched only while nobody was asked: a photo without a value is asked for all of them.
    const auto mayKnow = [&] { return photoCanGive(property) || documentsCanGive(property); };
    if (mediaClass_ == MediaClass::Photo && !photoRead_ && mayKnow())
        ask(photoRead_, [&](const std::filesystem::path& file, PropertyValues& values) {
            isKnownPhoto_ = readPhotoProperties(file, values);
        });
    const bool isLeftToTool =
        mediaClass_ == MediaClass::Document || (mediaClass_ == MediaClass::Photo && !isKnownPhoto_);
    if (isLeftToTool && documentsCanGive(property)) ask(documentRead_, readDocumentProperties);
    if (mediaClass_ == MediaClass::Audio || mediaClass_ == MediaClass::Video) readMedia(property);
    if (mediaClass_ == MediaClass::Photo && property == PropertyId::ImageBitDepth && !values_.has(property))
        ask(streamsRead_, [](const std::filesystem::path& file, PropertyValues& values) {
            readStreamProperties(file, true, values);
        });
}

/// MediaInfo comes last, whatever is asked for first: it mixes up who has done what.
void PropertyStore::readMedia(PropertyId property) {
    const bool isVideo = mediaClass_ == MediaClass::Video;
    const bool isStreams = streamsCanGive(property);
    if (isVideo && !macintoshRead_ && (isStreams || macintoshTextsCanGive(property))) {
        macintoshRead_ = true;
        readMacintoshTexts(file_, values_);
    }
    if (!audioRead_ && (isStreams || (isVideo ? audioTagsCanGive(property) : audioCanGive(property)))) {
        audioRead_ = true;
        // Of a film only the tags: TagLib takes the first stream for the sound, whatever it is.
        isVideo ? readAudioTags(file_, values_) : readAudioProperties(file_, values_);
        if (!isVideo) readSunSound(file_, values_);
    }
    if (!notesRead_ && (isStreams || filmNotesCanGive(property))) {
        notesRead_ = true;
        readFilmNotes(file_, values_);
    }
    if (streamsRead_ || values_.has(property) || !isStreams) return;
    streamsRead_ = true;
    readStreamProperties(file_, false, values_);
}

PropertyResult PropertyStore::set(PropertyId property, const PropertyValue& value) {
    if (!isOpen()) return PropertyResult::AccessDenied;
    look();
    PropertyChange change{property, value};
    PropertyResult result = PropertyResult::NotSupported;
    if (mediaClass_ == MediaClass::Photo) result = preparePhotoChange(change);
    if (mediaClass_ == MediaClass::Audio || mediaClass_ == MediaClass::Video)
        result = prepareAudioChange(change);
    if (result != PropertyResult::Ok) return result;
    std::erase_if(changes_, [&](const PropertyChange& earlier) { return earlier.property == property; });
    changes_.push_back(std::move(change));
    return PropertyResult::Ok;
}

PropertyResult PropertyStore::commit(CommitOptions options) {
    if (!isOpen()) return PropertyResult::AccessDenied;
    const std::vector<PropertyChange> changes = std::exchange(changes_, {});
    if (changes.empty()) return PropertyResult::Ok;
    const PropertyResult result =
        rewriteSafely(file_, *identity_, options.keepTimes, [&](const std::filesystem::path& copy) {
            return mediaClass_ == MediaClass::Photo ? writePhotoProperties(copy, changes)
                                                    : writeAudioProperties(copy, changes);
        });
    // What was read is that of the file as it was.
    identity_ = platform::identifyFile(file_);
    fileRead_ = photoRead_ = audioRead_ = streamsRead_ = false;
    macintoshRead_ = notesRead_ = documentRead_ = false;
    values_ = {};
    return result;
}

}  // namespace properties
