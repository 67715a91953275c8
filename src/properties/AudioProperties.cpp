#include "properties/AudioProperties.h"

#include "properties/OggComment.h"
#include "properties/PropertyTexts.h"
#include "properties/WindowsMediaTags.h"

#include <taglib/aifffile.h>
#include <taglib/apefooter.h>
#include <taglib/apeproperties.h>
#include <taglib/apetag.h>
#include <taglib/asffile.h>
#include <taglib/asfproperties.h>
#include <taglib/fileref.h>
#include <taglib/flacproperties.h>
#include <taglib/id3v2tag.h>
#include <taglib/mp4file.h>
#include <taglib/mp4properties.h>
#include <taglib/mp4tag.h>
#include <taglib/mpegfile.h>
#include <taglib/popularimeterframe.h>
#include <taglib/synchronizedlyricsframe.h>
#include <taglib/tdebuglistener.h>
#include <taglib/tpropertymap.h>
#include <taglib/trueaudioproperties.h>
#include <taglib/uniquefileidentifierframe.h>
#include <taglib/wavfile.h>
#include <taglib/wavpackproperties.h>
#include <taglib/xiphcomment.h>

#include <algorithm>
#include <mutex>
#include <string_view>

namespace properties {
namespace {

using Id = PropertyId;

enum class AudioForm {
    Text,
    List,
    Integer,
    Counted,  ///< an integer from one on: what no file counts is written as zero
    Yes,
    Date
};

struct AudioSource {
    Id property;
    AudioForm form;
    const char* key;  ///< of TagLib's property map
};

constexpr auto kSources = std::to_array<AudioSource>({
    {Id::SummaryAuthor, AudioForm::List, "ARTIST"},
    {Id::SummaryComment, AudioForm::Text, "COMMENT"},
    {Id::SummaryComment, AudioForm::Text, "DESCRIPTION"},
    {Id::SummaryCopyright, AudioForm::Text, "COPYRIGHT"},
    {Id::SummaryItemAuthors, AudioForm::List, "ARTIST"},
    {Id::SummaryKeywords, AudioForm::List, "KEYWORDS"},
    {Id::SummarySubject, AudioForm::Text, "CONTENTGROUP"},
    {Id::SummarySubject, AudioForm::Text, "WORK"},
    {Id::SummarySubject, AudioForm::Text, "GROUPING"},
    {Id::SummaryTitle, AudioForm::Text, "TITLE"},
    {Id::MusicAlbumArtist, AudioForm::Text, "ALBUMARTIST"},
    {Id::MusicAlbumID, AudioForm::Text, "MUSICBRAINZ_ALBUMID"},
    {Id::MusicAlbumTitle, AudioForm::Text, "ALBUM"},
    {Id::MusicArtist, AudioForm::List, "ARTIST"},
    {Id::MusicBeatsPerMinute, AudioForm::Text, "BPM"},
    {Id::MusicComposer, AudioForm::List, "COMPOSER"},
    {Id::MusicConductor, AudioForm::List, "CONDUCTOR"},
    {Id::MusicDiscNumber, AudioForm::Integer, "DISCNUMBER"},
    {Id::MusicGenre, AudioForm::List, "GENRE"},
    {Id::MusicInitialKey, AudioForm::Text, "INITIALKEY"},
    {Id::MusicIsCompilation, AudioForm::Yes, "COMPILATION"},
    {Id::MusicLyrics, AudioForm::Text, "LYRICS"},
    {Id::MusicMood, AudioForm::Text, "MOOD"},
    {Id::MusicPartOfSet, AudioForm::Text, "DISCNUMBER"},
    {Id::MusicPeriod, AudioForm::Text, "PERIOD"},
    {Id::MusicTrackNumber, AudioForm::Integer, "TRACKNUMBER"},
    {Id::MediaAuthorUrl, AudioForm::Text, "ARTISTWEBPAGE"},
    {Id::MediaCopyright, AudioForm::Text, "COPYRIGHT"},
    {Id::MediaDateEncoded, AudioForm::Date, "ENCODINGTIME"},
    {Id::MediaDateEncoded, AudioForm::Date, "CREATION_TIME"},
    {Id::MediaDateReleased, AudioForm::Text, "RELEASEDATE"},
    {Id::MediaEncodedBy, AudioForm::Text, "ENCODEDBY"},
    {Id::MediaEncodedBy, AudioForm::Text, "ENCODED_BY"},
    {Id::MediaEncodingSettings, AudioForm::Text, "ENCODING"},
    {Id::MediaEpisodeNumber, AudioForm::Counted, "TVEPISODE"},
    {Id::MediaEpisodeNumber, AudioForm::Counted, "EPISODE_SORT"},
    {Id::MediaProducer, AudioForm::List, "PRODUCER"},
    {Id::MediaPromotionUrl, AudioForm::Text, "PUBLISHERWEBPAGE"},
    {Id::MediaPublisher, AudioForm::Text, "LABEL"},
    {Id::MediaPublisher, AudioForm::Text, "PUBLISHER"},
    {Id::MediaSeasonNumber, AudioForm::Counted, "TVSEASON"},
    {Id::MediaSeasonNumber, AudioForm::Counted, "SEASON_NUMBER"},
    {Id::MediaSeriesName, AudioForm::Text, "TVSHOW"},
    {Id::MediaSeriesName, AudioForm::Text, "SHOW"},
    {Id::MediaSubTitle, AudioForm::Text, "SUBTITLE"},
    {Id::MediaUserWebUrl, AudioForm::Text, "FILEWEBPAGE"},
    {Id::MediaWriter, AudioForm::List, "LYRICIST"},
    {Id::MediaWriter, AudioForm::List, "WRITER"},
    {Id::MediaYear, AudioForm::Counted, "DATE"},
    {Id::TelevisionNetworkAffiliation, AudioForm::Text, "TVNETWORK"},
    {Id::TelevisionNetworkAffiliation, AudioForm::Text, "NETWORK"},
    {Id::TelevisionProgramDescription, AudioForm::Text, "SYNOPSIS"},
    {Id::VersionDescription, AudioForm::Text, "DESCRIPTION"},
    {Id::VersionDescription, AudioForm::Text, "PODCASTDESC"},
    {Id::VideoDirector, AudioForm::List, "DIRECTOR"},
});

/// What is read and never written: programs sign with it.
constexpr auto kSignatures = std::to_array<AudioSource>({
    {Id::SummaryApplicationName, AudioForm::Text, "ENCODER"},
    {Id::MediaCreatorApplication, AudioForm::Text, "ENCODER"},
});

/// What MPEG-4 files hold beside the map.
constexpr auto kItems = std::to_array<AudioSource>({
    {Id::SummaryApplicationName, AudioForm::Text, "\251too"},
    {Id::SummaryKeywords, AudioForm::List, "keyw"},
    {Id::MusicConductor, AudioForm::List, "\251con"},
    {Id::MediaCreatorApplication, AudioForm::Text, "\251too"},
    {Id::MediaEncodedBy, AudioForm::Text, "\251enc"},
    {Id::MediaProducer, AudioForm::List, "\251prd"},
    {Id::MediaPublisher, AudioForm::Text, "\251pub"},
    {Id::MediaSubTitle, AudioForm::Text, "\251st3"},
    {Id::TelevisionProgramDescription, AudioForm::Text, "ldes"},
    {Id::VideoDirector, AudioForm::List, "\251dir"},
});

constexpr Id kComputed[] = {Id::DiskRating,
                            Id::AudioChannelCount,
                            Id::AudioEncodingBitrate,
                            Id::AudioSampleRate,
                            Id::AudioSampleSize,
                            Id::AudioStreamNumber,
                            Id::MediaDuration,
                            Id::MediaMCDI,
                            Id::MediaUniqueFileIdentifier,
                            Id::MusicDisplayArtist,
                            Id::MusicSynchronizedLyrics};

/// TagLib tells of every damage on the error stream by itself.
class Silence : public TagLib::DebugListener {
 public:
    void printMessage(const TagLib::String& /*message*/) override {}
};

void silenceOnce() {
    static std::once_flag once;
    static Silence silence;
    std::call_once(once, [] { TagLib::setDebugListener(&silence); });
}

QString textOf(const TagLib::String& text) {
    return QString::fromStdString(text.to8Bit(true));
}

TagLib::String tagText(const QString& text) {
    return {text.toStdString(), TagLib::String::UTF8};
}

QStringList textsOf(const TagLib::StringList& texts) {
    QStringList list;
    for (const TagLib::String& text : texts)
        if (const QString element = textOf(text).trimmed(); !element.isEmpty()) list.append(element);
    return list;
}

PropertyValue valueOf(AudioForm form, const QStringList& texts) {
    if (texts.isEmpty()) return {};
    switch (form) {
        case AudioForm::Text:
            return texts.join(QStringLiteral("; "));
        case AudioForm::List:
            return texts;
        case AudioForm::Integer:
            if (const auto number = parseLeadingInteger(texts.front())) return *number;
            break;
        case AudioForm::Counted:
            if (const auto number = parseLeadingInteger(texts.front()); number && *number > 0) return *number;
            break;
        case AudioForm::Yes:
            return parseLeadingInteger(texts.front()).value_or(0) != 0 ? std::int64_t{1} : std::int64_t{0};
        case AudioForm::Date:
            if (const auto time = parsePointInTime(texts.front())) return *time;
            break;
    }
    return {};
}

template <typename... Kinds>
int bitsPerSample(const TagLib::AudioProperties& audio) {
    int bits = 0;
    const auto ask = [&]<typename Kind>(const Kind* properties) {
        if (properties != nullptr) bits = properties->bitsPerSample();
    };
    (ask(dynamic_cast<const Kinds*>(&audio)), ...);
    return bits;
}

/// The heads of MPEG-4 files say two channels and the rate of the core of every AAC stream, whatever it
/// holds.
bool isVagueAboutSound(const TagLib::AudioProperties& audio) {
    const auto* mp4 = dynamic_cast<const TagLib::MP4::Properties*>(&audio);
    return mp4 != nullptr && mp4->codec() == TagLib::MP4::Properties::AAC;
}

void addSound(const TagLib::AudioProperties& audio, PropertyValues& values) {
    const auto add = [&](Id property, std::int64_t number) {
        if (number > 0) values.add(property, number);
    };
    if (!isVagueAboutSound(audio)) {
        add(Id::AudioChannelCount, audio.channels());
        add(Id::AudioSampleRate, audio.sampleRate());
    }
    add(Id::AudioEncodingBitrate, std::int64_t{audio.bitrate()} * 1000);
    // Kept in the unit that the property has, a ten-millionth of a second.
    add(Id::MediaDuration, std::int64_t{audio.lengthInMilliseconds()} * 10'000);
    add(Id::AudioSampleSize,
        bitsPerSample<TagLib::FLAC::Properties, TagLib::RIFF::WAV::Properties, TagLib::RIFF::AIFF::Properties,
                      TagLib::MP4::Properties, TagLib::APE::Properties, TagLib::ASF::Properties,
                      TagLib::WavPack::Properties, TagLib::TrueAudio::Properties>(audio));
    if (audio.channels() > 0) values.add(Id::AudioStreamNumber, std::int64_t{1});
}

const TagLib::ID3v2::Tag* id3Of(TagLib::File* file) {
    if (const auto* mpeg = dynamic_cast<TagLib::MPEG::File*>(file))
        return const_cast<TagLib::MPEG::File*>(mpeg)->ID3v2Tag(false);
    if (const auto* wave = dynamic_cast<TagLib::RIFF::WAV::File*>(file)) return wave->ID3v2Tag();
    if (const auto* aiff = dynamic_cast<TagLib::RIFF::AIFF::File*>(file)) return aiff->tag();
    return nullptr;
}

/// The steps in which players write stars into the 256 levels.
std::int64_t starsOf(int level) {
    if (level <= 0) return 0;
    if (level < 32) return 1;
    if (level < 96) return 2;
    if (level < 160) return 3;
    return level < 224 ? 4 : 5;
}

void addFrames(const TagLib::ID3v2::Tag& tag, PropertyValues& values) {
    const TagLib::ID3v2::FrameListMap& frames = tag.frameListMap();
    const auto first = [&](const char* id) -> const TagLib::ID3v2::Frame* {
        const auto found = frames.find(id);
        return found == frames.end() || found->second.isEmpty() ? nullptr : found->second.front();
    };
    if (const auto* rating = dynamic_cast<const TagLib::ID3v2::PopularimeterFrame*>(first("POPM")))
        values.add(Id::DiskRating, starsOf(rating->rating()));
    if (const auto* identifier = dynamic_cast<const TagLib::ID3v2::UniqueFileIdentifierFrame*>(first("UFID")))
        values.addText(Id::MediaUniqueFileIdentifier,
                       textOf(identifier->owner()) + u';' +
                           textFromBytes({identifier->identifier().data(), identifier->identifier().size()}));
    if (const auto* disc = first("MCDI"))
        values.add(Id::MediaMCDI, QStringLiteral("(%1 bytes)").arg(disc->size()));
    if (const auto* lyrics = dynamic_cast<const TagLib::ID3v2::SynchronizedLyricsFrame*>(first("SYLT"))) {
        QStringList lines;
        for (const auto& line : lyrics->synchedText()) lines.append(textOf(line.text).trimmed());
        values.addList(Id::MusicSynchronizedLyrics, lines);
    }
}

void addTags(const TagLib::PropertyMap& tags, bool isMp4, PropertyValues& values) {
    const auto add = [&](const AudioSource& source) {
        const auto found = tags.find(source.key);
        if (found != tags.end()) values.add(source.property, valueOf(source.form, textsOf(found->second)));
    };
    // The map calls the program that wrote an MPEG-4 file by that name, not the one who did it.
    for (const AudioSource& source : kSources)
        if (!isMp4 || source.key != std::string_view("ENCODEDBY")) add(source);
    std::ranges::for_each(kSignatures, add);
    const auto artist = tags.find("ARTIST");
    if (artist != tags.end())
        values.addText(Id::MusicDisplayArtist, textsOf(artist->second).join(QStringLiteral("; ")));
    if (const auto rating = tags.find("RATING"); rating != tags.end())
        if (const auto stars = parseLeadingInteger(textOf(rating->second.toString())))
            values.add(Id::DiskRating, *stars > 5 ? (std::min<std::int64_t>(*stars, 100) + 19) / 20 : *stars);
}

void addItems(const TagLib::MP4::Tag& tag, PropertyValues& values) {
    for (const AudioSource& source : kItems)
        if (tag.contains(source.key))
            values.add(source.property, valueOf(source.form, textsOf(tag.item(source.key).toStringList())));
}

/// Programs put tags before and behind sound of every kind; the library looks only for those that the kind
/// itself has.
void addForeignTags(TagLib::File& file, PropertyValues& values) {
    if (dynamic_cast<TagLib::MPEG::File*>(&file) != nullptr) return;
    file.seek(0);
    if (file.readBlock(3) == "ID3") addTags(TagLib::ID3v2::Tag(&file, 0).properties(), false, values);
    constexpr long kFooterBytes = 32;
    constexpr long kOldTagBytes = 128;
    for (const long behind : {0L, kOldTagBytes}) {
        const long footer = file.length() - behind - kFooterBytes;
        if (footer < 0) return;
        file.seek(footer);
        if (file.readBlock(8) == TagLib::APE::Footer::fileIdentifier())
            addTags(TagLib::APE::Tag(&file, footer).properties(), false, values);
    }
}

/// What the property map gets for a value; nothing when the value is of no fitting type.
std::optional<TagLib::StringList> tagsOf(const PropertyValue& value) {
    TagLib::StringList texts;
    if (const auto* list = std::get_if<QStringList>(&value)) {
        for (const QString& text : *list) texts.append(tagText(text));
    } else if (const auto* text = std::get_if<QString>(&value)) {
        texts.append(tagText(*text));
    } else if (const auto* number = std::get_if<std::int64_t>(&value)) {
        texts.append(tagText(QString::number(*number)));
    } else if (!isAbsent(value)) {
        return std::nullopt;
    }
    return texts;
}

void readTagged(const std::filesystem::path& file, bool withSound, PropertyValues& values) {
    silenceOnce();
    try {
        const TagLib::FileRef opened(file.c_str(), withSound, TagLib::AudioProperties::Average);
        if (opened.isNull() || !opened.file()->isValid()) {
            if (const TagLib::ByteVector comment = readOggComment(file); !comment.isEmpty())
                addTags(TagLib::Ogg::XiphComment(comment).properties(), false, values);
            return;
        }
        auto* mp4 = dynamic_cast<TagLib::MP4::File*>(opened.file());
        addTags(opened.file()->properties(), mp4 != nullptr, values);
        if (mp4 != nullptr && mp4->tag() != nullptr) addItems(*mp4->tag(), values);
        const auto* asf = dynamic_cast<TagLib::ASF::File*>(opened.file());
        if (asf != nullptr && asf->tag() != nullptr) addWindowsMediaTags(*asf->tag(), values);
        if (withSound && opened.audioProperties() != nullptr) addSound(*opened.audioProperties(), values);
        if (const TagLib::ID3v2::Tag* tag = id3Of(opened.file())) addFrames(*tag, values);
        addForeignTags(*opened.file(), values);
    } catch (...) {
        // A damaged file: what was found before the damage stays.
    }
}

}  // namespace

bool audioTagsCanGive(PropertyId property) {
    return std::ranges::find(kSources, property, &AudioSource::property) != kSources.end() ||
           std::ranges::find(kItems, property, &AudioSource::property) != kItems.end() ||
           property == Id::DiskRating || windowsMediaCanGive(property);
}

bool audioCanGive(PropertyId property) {
    return audioTagsCanGive(property) || std::ranges::find(kComputed, property) != std::end(kComputed);
}

PropertyResult prepareAudioChange(PropertyChange& change) {
    const auto source = std::ranges::find(kSources, change.property, &AudioSource::property);
    if (source == kSources.end() || source->form == AudioForm::Date) return PropertyResult::NotSupported;
    if (const auto* given = std::get_if<QString>(&change.value)) {
        const QString text = *given;
        const bool isNumber = source->form == AudioForm::Integer || source->form == AudioForm::Counted ||
                              source->form == AudioForm::Yes;
        if (text.isEmpty()) {
            change.value = std::monostate();
        } else if (source->form == AudioForm::List) {
            change.value = splitList(text);
        } else if (isNumber) {
            bool valid = false;
            change.value = std::int64_t{text.trimmed().toInt(&valid)};
            if (!valid) return PropertyResult::InvalidParameter;
        }
    }
    return tagsOf(change.value) ? PropertyResult::Ok : PropertyResult::TypeMismatch;
}

void readAudioProperties(const std::filesystem::path& file, PropertyValues& values) {
    readTagged(file, true, values);
}

void readAudioTags(const std::filesystem::path& file, PropertyValues& values) {
    readTagged(file, false, values);
}

PropertyResult writeAudioProperties(const std::filesystem::path& copy,
                                    std::span<const PropertyChange> changes) {
    silenceOnce();
    try {
        TagLib::FileRef opened(copy.c_str(), false);
        if (opened.isNull() || !opened.file()->isValid()) return PropertyResult::NotSupported;
        TagLib::PropertyMap tags = opened.file()->properties();
        for (const PropertyChange& change : changes) {
            const auto source = std::ranges::find(kSources, change.property, &AudioSource::property);
            if (source == kSources.end()) return PropertyResult::NotSupported;
            if (change.property == Id::MediaEncodedBy && dynamic_cast<TagLib::MP4::File*>(opened.file()))
                return PropertyResult::NotSupported;
            const auto texts = tagsOf(change.value);
            if (!texts) return PropertyResult::TypeMismatch;
            if (texts->isEmpty())
                tags.erase(source->key);
            else
                tags.replace(source->key, *texts);
        }
        const TagLib::PropertyMap refused = opened.file()->setProperties(tags);
        for (const PropertyChange& change : changes)
            if (const auto source = std::ranges::find(kSources, change.property, &AudioSource::property);
                refused.contains(source->key))
                return PropertyResult::NotSupported;
        return opened.file()->save() ? PropertyResult::Ok : PropertyResult::Failed;
    } catch (const std::bad_alloc&) {
        return PropertyResult::OutOfMemory;
    } catch (...) {
        return PropertyResult::Failed;
    }
}

}  // namespace properties
