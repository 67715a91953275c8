#include "properties/StreamProperties.h"

#include "platform/RegularFile.h"
#include "properties/PropertyTexts.h"

#include <MediaInfo/MediaInfo.h>

#include <algorithm>
#include <cmath>
#include <mutex>

namespace properties {
namespace {

using Id = PropertyId;
using MediaInfoLib::MediaInfo;
using MediaInfoLib::Stream_Audio;
using MediaInfoLib::Stream_General;
using MediaInfoLib::Stream_Image;
using MediaInfoLib::stream_t;
using MediaInfoLib::Stream_Video;

enum class StreamForm {
    Text,
    List,
    Integer,
    Counted,  ///< an integer from one on
    Number,
    Yes,
    Date,
    LocalDate,
    Milliseconds,
    FourCC,
};

/// The library gives what RIFF files hold to names of other meanings.
enum class Containers : std::uint8_t { All, Riff, AllButRiff, Mpeg4, Broadcast };

struct StreamSource {
    Id property;
    stream_t stream;
    StreamForm form;
    const wchar_t* parameter;
    Containers containers = Containers::All;
};

using enum StreamForm;

// Behind the names that the library gives, those that stand in the files themselves: Matroska's in capitals,
// and the keys of QuickTime.
constexpr auto kSources = std::to_array<StreamSource>({
    {Id::VersionDescription, Stream_General, Text, L"Description"},
    {Id::VersionDescription, Stream_General, Text, L"com.apple.quicktime.description"},
    {Id::SummaryApplicationName, Stream_General, Text, L"Encoded_Application"},
    {Id::SummaryApplicationName, Stream_General, Text, L"com.apple.quicktime.software"},
    {Id::SummaryApplicationName, Stream_General, Text, L"encoder"},
    {Id::SummaryAuthor, Stream_General, List, L"Performer"},
    {Id::SummaryAuthor, Stream_General, List, L"Director", Containers::Riff},
    {Id::SummaryAuthor, Stream_General, List, L"ARTIST"},
    {Id::SummaryAuthor, Stream_General, List, L"com.apple.quicktime.author"},
    {Id::SummaryAuthor, Stream_General, List, L"com.apple.quicktime.artist"},
    {Id::SummaryComment, Stream_General, Text, L"Comment"},
    {Id::SummaryCopyright, Stream_General, Text, L"Copyright"},
    {Id::SummaryItemAuthors, Stream_General, List, L"Performer"},
    {Id::SummaryItemAuthors, Stream_General, List, L"Director", Containers::Riff},
    {Id::SummaryItemAuthors, Stream_General, List, L"ARTIST"},
    {Id::SummaryItemAuthors, Stream_General, List, L"com.apple.quicktime.author"},
    {Id::SummaryKeywords, Stream_General, List, L"Keywords"},
    {Id::SummaryKeywords, Stream_General, List, L"Keyword"},
    {Id::SummaryKeywords, Stream_General, List, L"KEYWORDS"},
    {Id::SummaryKeywords, Stream_General, List, L"com.apple.quicktime.keywords"},
    {Id::SummarySubject, Stream_General, Text, L"Subject"},
    {Id::SummarySubject, Stream_General, Text, L"SUBJECT"},
    {Id::SummarySubject, Stream_General, Text, L"Grouping"},
    {Id::SummarySubject, Stream_General, Text, L"GROUPING"},
    {Id::SummaryTitle, Stream_General, Text, L"Title"},
    {Id::SummaryTitle, Stream_General, Text, L"com.apple.quicktime.title"},

    {Id::AudioChannelCount, Stream_Audio, Integer, L"Channel(s)"},
    {Id::AudioCompression, Stream_Audio, Text, L"Format/Info"},
    {Id::AudioCompression, Stream_Audio, Text, L"Format"},
    {Id::AudioEncodingBitrate, Stream_Audio, Integer, L"BitRate"},
    {Id::AudioFormat, Stream_Audio, Text, L"Format"},
    {Id::AudioPeakValue, Stream_Audio, Integer, L"ReplayGain_Peak"},
    {Id::AudioSampleRate, Stream_Audio, Integer, L"SamplingRate"},
    {Id::AudioSampleSize, Stream_Audio, Integer, L"BitDepth"},
    {Id::AudioStreamName, Stream_Audio, Text, L"Title"},
    {Id::AudioStreamNumber, Stream_Audio, Integer, L"ID"},

    {Id::DrmIsProtected, Stream_General, Text, L"Encryption"},
    {Id::ImageCompressionText, Stream_Image, Text, L"Format"},
    {Id::ImageHorizontalSize, Stream_Image, Integer, L"Width"},
    {Id::ImageVerticalSize, Stream_Image, Integer, L"Height"},

    {Id::MusicAlbumArtist, Stream_General, Text, L"Album/Performer"},
    {Id::MusicAlbumArtist, Stream_General, Text, L"ALBUM_ARTIST"},
    {Id::MusicAlbumTitle, Stream_General, Text, L"Album"},
    {Id::MusicAlbumTitle, Stream_General, Text, L"ALBUM"},
    {Id::MusicAlbumTitle, Stream_General, Text, L"OriginalSourceForm/Name", Containers::Riff},
    {Id::MusicAlbumTitle, Stream_General, Text, L"com.apple.quicktime.album"},
    {Id::MusicArtist, Stream_General, List, L"Performer"},
    {Id::MusicArtist, Stream_General, List, L"Director", Containers::Riff},
    {Id::MusicArtist, Stream_General, List, L"ARTIST"},
    {Id::MusicArtist, Stream_General, List, L"com.apple.quicktime.artist"},
    {Id::MusicBeatsPerMinute, Stream_General, Text, L"BPM"},
    {Id::MusicComposer, Stream_General, List, L"Composer"},
    {Id::MusicComposer, Stream_General, List, L"COMPOSER"},
    {Id::MusicConductor, Stream_General, List, L"Conductor"},
    {Id::MusicConductor, Stream_General, List, L"CONDUCTOR"},
    {Id::MusicDiscNumber, Stream_General, Counted, L"Part/Position", Containers::AllButRiff},
    {Id::MusicDiscNumber, Stream_General, Counted, L"DISC"},
    {Id::MusicDisplayArtist, Stream_General, Text, L"Performer"},
    {Id::MusicDisplayArtist, Stream_General, Text, L"Director", Containers::Riff},
    {Id::MusicDisplayArtist, Stream_General, Text, L"ARTIST"},
    {Id::MusicDisplayArtist, Stream_General, Text, L"com.apple.quicktime.artist"},
    {Id::MusicGenre, Stream_General, List, L"Genre"},
    {Id::MusicGenre, Stream_General, List, L"GENRE"},
    {Id::MusicInitialKey, Stream_General, Text, L"INITIAL_KEY"},
    {Id::MusicIsCompilation, Stream_General, Yes, L"Compilation"},
    {Id::MusicIsCompilation, Stream_General, Yes, L"COMPILATION"},
    {Id::MusicLyrics, Stream_General, Text, L"Lyrics"},
    {Id::MusicLyrics, Stream_General, Text, L"LYRICS"},
    {Id::MusicMood, Stream_General, Text, L"Mood"},
    {Id::MusicMood, Stream_General, Text, L"MOOD"},
    {Id::MusicPartOfSet, Stream_General, Text, L"DISC"},
    {Id::MusicPeriod, Stream_General, Text, L"Period"},
    {Id::MusicTrackNumber, Stream_General, Counted, L"Track/Position"},
    {Id::MusicTrackNumber, Stream_General, Counted, L"Part/Position", Containers::Riff},

    {Id::MediaContentDistributor, Stream_General, Text, L"DistributedBy"},
    {Id::MediaCopyright, Stream_General, Text, L"Copyright"},
    {Id::MediaCreatorApplication, Stream_General, Text, L"Encoded_Application/Name"},
    {Id::MediaCreatorApplication, Stream_General, Text, L"Encoded_Application"},
    {Id::MediaCreatorApplication, Stream_General, Text, L"com.apple.quicktime.software"},
    {Id::MediaCreatorApplication, Stream_General, Text, L"encoder"},
    {Id::MediaCreatorApplicationVersion, Stream_General, Text, L"Encoded_Application/Version"},
    {Id::MediaDateEncoded, Stream_General, Date, L"Encoded_Date"},
    {Id::MediaDateEncoded, Stream_General, LocalDate, L"Mastered_Date"},
    {Id::MediaDateReleased, Stream_General, Text, L"Released_Date"},
    {Id::MediaDuration, Stream_General, Milliseconds, L"Duration"},
    {Id::MediaEncodedBy, Stream_General, Text, L"EncodedBy"},
    {Id::MediaEncodingSettings, Stream_Video, Text, L"Encoded_Library_Settings"},
    {Id::MediaEncodingSettings, Stream_Audio, Text, L"Encoded_Library_Settings"},
    {Id::MediaEpisodeNumber, Stream_General, Counted, L"Part", Containers::Mpeg4},
    {Id::MediaEpisodeNumber, Stream_General, Counted, L"EPISODE_SORT"},
    {Id::MediaFrameCount, Stream_Video, Integer, L"FrameCount"},
    {Id::MediaProducer, Stream_General, List, L"Producer"},
    {Id::MediaProducer, Stream_General, List, L"PRODUCER"},
    {Id::MediaProducer, Stream_General, List, L"com.apple.quicktime.producer"},
    {Id::MediaPublisher, Stream_General, Text, L"Publisher"},
    {Id::MediaPublisher, Stream_General, Text, L"PUBLISHER"},
    {Id::MediaPublisher, Stream_General, Text, L"com.apple.quicktime.publisher"},
    {Id::MediaSeasonNumber, Stream_General, Counted, L"Season"},
    {Id::MediaSeasonNumber, Stream_General, Counted, L"SEASON_NUMBER"},
    {Id::MediaSeriesName, Stream_General, Text, L"Collection"},
    {Id::MediaSeriesName, Stream_General, Text, L"SHOW"},
    {Id::MediaUniqueFileIdentifier, Stream_General, Text, L"UniqueID"},
    {Id::MediaWriter, Stream_General, List, L"WrittenBy"},
    {Id::MediaYear, Stream_General, Counted, L"Recorded_Date"},
    {Id::MediaYear, Stream_General, Counted, L"DATE"},

    {Id::PhotoCameraManufacturer, Stream_General, Text, L"Encoded_Hardware_CompanyName"},
    {Id::PhotoCameraManufacturer, Stream_General, Text, L"com.apple.quicktime.make"},
    {Id::PhotoCameraModel, Stream_General, Text, L"Encoded_Hardware_Model"},
    {Id::PhotoCameraModel, Stream_General, Text, L"Encoded_Hardware"},
    {Id::PhotoCameraModel, Stream_General, Text, L"com.apple.quicktime.model"},
    {Id::PhotoDateTaken, Stream_General, LocalDate, L"com.apple.quicktime.creationdate"},
    {Id::PhotoDateTaken, Stream_General, LocalDate, L"Mastered_Date"},
    {Id::PhotoDateTaken, Stream_General, LocalDate, L"Recorded_Date"},

    {Id::TelevisionChannelNumber, Stream_General, Integer, L"ServiceChannel"},
    {Id::TelevisionNetworkAffiliation, Stream_General, Text, L"NetworkName"},
    {Id::TelevisionNetworkAffiliation, Stream_General, Text, L"TVNetworkName"},
    {Id::TelevisionNetworkAffiliation, Stream_General, Text, L"NETWORK"},
    {Id::TelevisionProgramDescription, Stream_General, Text, L"Synopsis"},
    {Id::TelevisionProgramDescription, Stream_General, Text, L"SYNOPSIS"},
    {Id::TelevisionProgramDescription, Stream_General, Text, L"LongDescription"},
    {Id::TelevisionRecordingTime, Stream_General, Date, L"Recorded_Date", Containers::Broadcast},
    {Id::TelevisionStationCallSign, Stream_General, Text, L"ServiceProvider"},
    {Id::TelevisionStationName, Stream_General, Text, L"ServiceName"},

    {Id::VideoCompression, Stream_Video, Text, L"Format"},
    {Id::VideoDirector, Stream_General, List, L"Director", Containers::AllButRiff},
    {Id::VideoDirector, Stream_General, List, L"DIRECTOR"},
    {Id::VideoDirector, Stream_General, List, L"com.apple.quicktime.director"},
    {Id::VideoEncodingBitrate, Stream_Video, Integer, L"BitRate"},
    {Id::VideoFourCC, Stream_Video, FourCC, L"CodecID"},
    {Id::VideoFrameHeight, Stream_Video, Integer, L"Height"},
    {Id::VideoFrameRate, Stream_Video, Number, L"FrameRate"},
    {Id::VideoFrameWidth, Stream_Video, Integer, L"Width"},
    {Id::VideoSampleSize, Stream_Video, Integer, L"BitDepth"},
    {Id::VideoStreamName, Stream_Video, Text, L"Title"},
    {Id::VideoStreamNumber, Stream_Video, Integer, L"ID"},
});

constexpr Id kComputed[] = {Id::ImageBitDepth,
                            Id::DiskRating,
                            Id::MusicPartOfSet,
                            Id::AudioIsVariableBitRate,
                            Id::VideoHorizontalAspectRatio,
                            Id::VideoVerticalAspectRatio,
                            Id::VideoIsStereo,
                            Id::VideoIsSpherical,
                            Id::VideoOrientation,
                            Id::VideoTotalBitrate};

constexpr std::size_t kBlockBytes = std::size_t{256} * 1024;
// The end of a picture tells nothing, and its points cost the library dear.
constexpr std::size_t kPictureBlockBytes = std::size_t{4} * 1024;
constexpr std::size_t kFilled = 2;
// A broken file can send the reader to and fro for ever.
constexpr std::size_t kMostBytes = std::size_t{64} * 1024 * 1024;
constexpr std::size_t kFinished = 8;  // the bit of MediaInfo's answer
constexpr std::int64_t kTicksInAMillisecond = 10'000;

std::mutex& libraryMutex() {
    static std::mutex mutex;
    return mutex;
}

/// Feeds the library piece by piece: it would make a wide text of a name, which need not be UTF-8.
bool feed(MediaInfo& library, const platform::RegularFile& file, bool isPicture) {
    const std::uint64_t size = file.size();
    std::vector<std::byte> block(isPicture ? kPictureBlockBytes : kBlockBytes);
    const std::size_t enough = isPicture ? kFinished | kFilled : kFinished;
    std::size_t total = 0;
    std::uint64_t position = 0;
    library.Open_Buffer_Init(size, 0);
    while (total < kMostBytes) {
        const std::size_t got = file.readAt(position, block);
        if (got == 0) break;
        total += got;
        position += got;
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(block.data());
        if ((library.Open_Buffer_Continue(bytes, got) & enough) != 0) break;
        const auto wanted = library.Open_Buffer_Continue_GoTo_Get();
        if (wanted == static_cast<std::uint64_t>(-1)) continue;
        if (wanted >= size) break;
        position = wanted;
        library.Open_Buffer_Init(size, position);
    }
    library.Open_Buffer_Finalize();
    return total > 0;
}

/// Where a file does not tell its encoding the library takes UTF-8 for Latin. No other text becomes valid
/// UTF-8 when its letters are taken for bytes.
QString unmixed(const QString& text) {
    const auto isByte = [](QChar letter) { return letter.unicode() < 0x100; };
    const auto isPlain = [](QChar letter) { return letter.unicode() < 0x80; };
    if (std::ranges::all_of(text, isPlain) || !std::ranges::all_of(text, isByte)) return text;
    const QByteArray bytes = text.toLatin1();
    return bytes.isValidUtf8() ? QString::fromUtf8(bytes) : text;
}

QString textOf(MediaInfo& library, stream_t stream, const wchar_t* parameter) {
    return unmixed(QString::fromStdWString(library.Get(stream, 0, parameter)).trimmed());
}

/// What is written by whom no clock was given.
bool isBeginningOfCounting(const QString& text) {
    return text.contains(u"1904-01-01") || text.contains(u"1970-01-01 00:00:00") ||
           text.contains(u"1601-01-01");
}

PropertyValue valueOf(StreamForm form, const QString& text) {
    if (text.isEmpty()) return {};
    switch (form) {
        case Text:
            return text;
        case List:
            return text.split(QStringLiteral(" / "), Qt::SkipEmptyParts);
        case Integer:
            if (const auto number = parseLeadingInteger(text)) return *number;
            break;
        case Counted:
            if (const auto number = parseLeadingInteger(text); number && *number > 0) return *number;
            break;
        case Yes:
            return std::int64_t{text == u"Yes" || parseLeadingInteger(text).value_or(0) != 0};
        case Number: {
            bool isNumber = false;
            const double number = text.toDouble(&isNumber);
            if (isNumber && std::isfinite(number)) return number;
            break;
        }
        case Date:
            if (isBeginningOfCounting(text)) break;
            if (const auto time = parsePointInTime(text)) return *time;
            break;
        case LocalDate:
            if (isBeginningOfCounting(text)) break;
            if (const auto time = parseLocalTime(text)) return *time;
            break;
        case FourCC:
            // Codecs have other names where a container knows no such codes. Behind a hyphen stands a kind.
            if (const QString code = text.section(QStringLiteral(" / "), -1).section(u'-', 0, 0);
                code.size() == 4)
                return code;
            break;
        case Milliseconds:
            if (const auto number = parseLeadingInteger(text);
                number && *number >= 0 && *number < (1LL << 40))
                return *number * kTicksInAMillisecond;
            break;
    }
    return {};
}

void addAspect(MediaInfo& library, PropertyValues& values) {
    const double ratio = textOf(library, Stream_Video, L"PixelAspectRatio").toDouble();
    if (ratio <= 0 || !std::isfinite(ratio)) return;
    // The smallest fraction that is as near as the three places that are given.
    for (std::int64_t vertical = 1; vertical <= 1000; ++vertical) {
        const double horizontal = std::round(ratio * static_cast<double>(vertical));
        if (std::abs(horizontal / static_cast<double>(vertical) - ratio) > 0.0006 || horizontal < 1) continue;
        values.add(Id::VideoHorizontalAspectRatio, static_cast<std::int64_t>(horizontal));
        values.add(Id::VideoVerticalAspectRatio, vertical);
        return;
    }
}

/// What counts for the picture of one file only, and what only broadcasts have.
bool appliesTo(MediaInfo& library, const StreamSource& source) {
    static constexpr Id kFilm[] = {Id::PhotoCameraManufacturer, Id::PhotoCameraModel, Id::PhotoDateTaken};
    if (std::ranges::find(kFilm, source.property) != std::end(kFilm) && library.Count_Get(Stream_Video) == 0)
        return false;
    if (source.containers == Containers::All) return true;
    if (source.containers == Containers::Broadcast)
        return !textOf(library, Stream_General, L"ServiceName").isEmpty();
    const QString format = textOf(library, Stream_General, L"Format");
    if (source.containers == Containers::Mpeg4) return format == u"MPEG-4";
    const bool isRiff = format == u"AVI" || format == u"Wave";
    return isRiff == (source.containers == Containers::Riff);
}

/// "1/2": which disc, and of how many.
void addPartOfSet(MediaInfo& library, PropertyValues& values) {
    const QString part = textOf(library, Stream_General, L"Part/Position");
    const QString total = textOf(library, Stream_General, L"Part/Total");
    const QString format = textOf(library, Stream_General, L"Format");
    if (part.isEmpty() || format == u"AVI" || format == u"Wave") return;
    values.addText(Id::MusicPartOfSet, total.isEmpty() || part.contains(u'/') ? part : part + u'/' + total);
}

/// Of a whole point; the library tells it of one component, but for bitmaps.
void addDepth(MediaInfo& library, PropertyValues& values) {
    const auto bits = parseLeadingInteger(textOf(library, Stream_Image, L"BitDepth"));
    const bool isWhole = textOf(library, Stream_General, L"Format") == u"Bitmap";
    const qsizetype components = isWhole ? 1 : textOf(library, Stream_Image, L"ColorSpace").size();
    if (bits && *bits > 0 && *bits <= 64 && components > 0 && components <= 4)
        values.add(Id::ImageBitDepth, *bits * components);
}

/// What a second takes on the average; the library believes what the heads of some formats promise.
void addTotalBitrate(MediaInfo& library, std::uint64_t size, PropertyValues& values) {
    const auto milliseconds = parseLeadingInteger(textOf(library, Stream_General, L"Duration"));
    if (!milliseconds || *milliseconds <= 0) return;
    const double bits = static_cast<double>(size) * 8 * 1000 / static_cast<double>(*milliseconds);
    if (bits < 1e15) values.add(Id::VideoTotalBitrate, static_cast<std::int64_t>(std::llround(bits)));
}

void addComputed(MediaInfo& library, std::uint64_t size, PropertyValues& values) {
    addDepth(library, values);
    addPartOfSet(library, values);
    if (const auto stars =
            parseLeadingInteger(textOf(library, Stream_General, L"com.apple.quicktime.rating.user"));
        stars && *stars >= 0 && *stars <= 5)
        values.add(Id::DiskRating, *stars);
    const auto yes = [](bool is) { return is ? std::int64_t{1} : std::int64_t{0}; };
    const QString mode = textOf(library, Stream_Audio, L"BitRate_Mode");
    if (!mode.isEmpty()) values.add(Id::AudioIsVariableBitRate, yes(mode.startsWith(u"VBR")));
    if (library.Count_Get(Stream_Video) == 0) return;
    addTotalBitrate(library, size, values);
    addAspect(library, values);
    values.add(Id::VideoIsStereo, yes(textOf(library, Stream_Video, L"MultiView_Count").toInt() > 1));
    values.add(Id::VideoIsSpherical, yes(!textOf(library, Stream_Video, L"Spatial").isEmpty()));
    const double degrees = textOf(library, Stream_Video, L"Rotation").toDouble();
    values.add(Id::VideoOrientation, static_cast<std::int64_t>(std::lround(std::fmod(degrees, 360))));
}

}  // namespace

bool streamsCanGive(PropertyId property) {
    return std::ranges::find(kSources, property, &StreamSource::property) != kSources.end() ||
           std::ranges::find(kComputed, property) != std::end(kComputed);
}

void readStreamProperties(const std::filesystem::path& file, bool isPicture, PropertyValues& values) {
    const platform::RegularFile opened(file);
    if (!opened.isOpen()) return;
    try {
        const std::lock_guard lock(libraryMutex());
        static MediaInfo library;  // costs more to make than a photo to read
        library.Close();
        if (!feed(library, opened, isPicture)) return;
        for (const StreamSource& source : kSources)
            if (!values.has(source.property) && appliesTo(library, source))
                values.add(source.property,
                           valueOf(source.form, textOf(library, source.stream, source.parameter)));
        addComputed(library, opened.size(), values);
    } catch (...) {
        // A damaged file: what was found before the damage stays.
    }
}

}  // namespace properties
