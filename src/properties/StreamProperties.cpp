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

enum class StreamForm { Text, List, Integer, Number, Date, Milliseconds };

struct StreamSource {
    Id property;
    stream_t stream;
    StreamForm form;
    const wchar_t* parameter;
};

using enum StreamForm;

constexpr auto kSources = std::to_array<StreamSource>({
    {Id::VersionDescription, Stream_General, Text, L"Description"},
    {Id::SummaryApplicationName, Stream_General, Text, L"Encoded_Application"},
    {Id::SummaryAuthor, Stream_General, List, L"Performer"},
    {Id::SummaryComment, Stream_General, Text, L"Comment"},
    {Id::SummaryCopyright, Stream_General, Text, L"Copyright"},
    {Id::SummaryItemAuthors, Stream_General, List, L"Performer"},
    {Id::SummaryKeywords, Stream_General, List, L"Keywords"},
    {Id::SummarySubject, Stream_General, Text, L"Subject"},
    {Id::SummaryTitle, Stream_General, Text, L"Title"},

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
    {Id::MusicAlbumTitle, Stream_General, Text, L"Album"},
    {Id::MusicArtist, Stream_General, List, L"Performer"},
    {Id::MusicBeatsPerMinute, Stream_General, Text, L"BPM"},
    {Id::MusicComposer, Stream_General, List, L"Composer"},
    {Id::MusicConductor, Stream_General, List, L"Conductor"},
    {Id::MusicDisplayArtist, Stream_General, Text, L"Performer"},
    {Id::MusicGenre, Stream_General, List, L"Genre"},
    {Id::MusicLyrics, Stream_General, Text, L"Lyrics"},
    {Id::MusicMood, Stream_General, Text, L"Mood"},
    {Id::MusicPartOfSet, Stream_General, Text, L"Part/Position"},
    {Id::MusicPeriod, Stream_General, Text, L"Period"},
    {Id::MusicTrackNumber, Stream_General, Integer, L"Track/Position"},

    {Id::MediaContentDistributor, Stream_General, Text, L"DistributedBy"},
    {Id::MediaCopyright, Stream_General, Text, L"Copyright"},
    {Id::MediaCreatorApplication, Stream_General, Text, L"Encoded_Application/Name"},
    {Id::MediaCreatorApplication, Stream_General, Text, L"Encoded_Application"},
    {Id::MediaCreatorApplicationVersion, Stream_General, Text, L"Encoded_Application/Version"},
    {Id::MediaDateEncoded, Stream_General, Date, L"Encoded_Date"},
    {Id::MediaDateReleased, Stream_General, Text, L"Released_Date"},
    {Id::MediaDuration, Stream_General, Milliseconds, L"Duration"},
    {Id::MediaEncodedBy, Stream_General, Text, L"EncodedBy"},
    {Id::MediaEncodingSettings, Stream_Video, Text, L"Encoded_Library_Settings"},
    {Id::MediaEncodingSettings, Stream_Audio, Text, L"Encoded_Library_Settings"},
    {Id::MediaEpisodeNumber, Stream_General, Integer, L"Part"},
    {Id::MediaFrameCount, Stream_Video, Integer, L"FrameCount"},
    {Id::MediaProducer, Stream_General, List, L"Producer"},
    {Id::MediaPublisher, Stream_General, Text, L"Publisher"},
    {Id::MediaSeasonNumber, Stream_General, Integer, L"Season"},
    {Id::MediaSeriesName, Stream_General, Text, L"Collection"},
    {Id::MediaUniqueFileIdentifier, Stream_General, Text, L"UniqueID"},
    {Id::MediaWriter, Stream_General, List, L"WrittenBy"},
    {Id::MediaYear, Stream_General, Integer, L"Recorded_Date"},

    {Id::PhotoCameraManufacturer, Stream_General, Text, L"Encoded_Hardware_CompanyName"},
    {Id::PhotoCameraModel, Stream_General, Text, L"Encoded_Hardware_Model"},
    {Id::PhotoCameraModel, Stream_General, Text, L"Encoded_Hardware"},
    {Id::PhotoDateTaken, Stream_General, Date, L"Recorded_Date"},

    {Id::TelevisionChannelNumber, Stream_General, Integer, L"ServiceChannel"},
    {Id::TelevisionNetworkAffiliation, Stream_General, Text, L"NetworkName"},
    {Id::TelevisionProgramDescription, Stream_General, Text, L"Synopsis"},
    {Id::TelevisionRecordingTime, Stream_General, Date, L"Recorded_Date"},
    {Id::TelevisionStationCallSign, Stream_General, Text, L"ServiceProvider"},
    {Id::TelevisionStationName, Stream_General, Text, L"ServiceName"},

    {Id::VideoCompression, Stream_Video, Text, L"Format"},
    {Id::VideoDirector, Stream_General, List, L"Director"},
    {Id::VideoEncodingBitrate, Stream_Video, Integer, L"BitRate"},
    {Id::VideoFourCC, Stream_Video, Text, L"CodecID"},
    {Id::VideoFrameHeight, Stream_Video, Integer, L"Height"},
    {Id::VideoFrameRate, Stream_Video, Number, L"FrameRate"},
    {Id::VideoFrameWidth, Stream_Video, Integer, L"Width"},
    {Id::VideoSampleSize, Stream_Video, Integer, L"BitDepth"},
    {Id::VideoStreamName, Stream_Video, Text, L"Title"},
    {Id::VideoStreamNumber, Stream_Video, Integer, L"ID"},
    {Id::VideoTotalBitrate, Stream_General, Integer, L"OverallBitRate"},
});

constexpr Id kComputed[] = {Id::ImageBitDepth,
                            Id::AudioIsVariableBitRate,
                            Id::VideoHorizontalAspectRatio,
                            Id::VideoVerticalAspectRatio,
                            Id::VideoIsStereo,
                            Id::VideoIsSpherical,
                            Id::VideoOrientation};

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

QString textOf(MediaInfo& library, stream_t stream, const wchar_t* parameter) {
    return QString::fromStdWString(library.Get(stream, 0, parameter)).trimmed();
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
        case Number: {
            bool isNumber = false;
            const double number = text.toDouble(&isNumber);
            if (isNumber && std::isfinite(number)) return number;
            break;
        }
        case Date:
            // What cameras without a clock write as the beginning of their counting.
            if (text.contains(u"1904-01-01")) break;
            if (const auto time = parsePointInTime(text)) return *time;
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
bool appliesTo(MediaInfo& library, Id property) {
    static constexpr Id kFilm[] = {Id::PhotoCameraManufacturer, Id::PhotoCameraModel, Id::PhotoDateTaken,
                                   Id::VideoDirector, Id::VideoTotalBitrate};
    static constexpr Id kBroadcast[] = {Id::TelevisionChannelNumber,      Id::TelevisionNetworkAffiliation,
                                        Id::TelevisionProgramDescription, Id::TelevisionRecordingTime,
                                        Id::TelevisionStationCallSign,    Id::TelevisionStationName};
    if (std::ranges::find(kFilm, property) != std::end(kFilm)) return library.Count_Get(Stream_Video) > 0;
    if (std::ranges::find(kBroadcast, property) != std::end(kBroadcast))
        return !textOf(library, Stream_General, L"ServiceName").isEmpty();
    return true;
}

/// Of a whole point; the library tells it of one component.
void addDepth(MediaInfo& library, PropertyValues& values) {
    const auto bits = parseLeadingInteger(textOf(library, Stream_Image, L"BitDepth"));
    const qsizetype components = textOf(library, Stream_Image, L"ColorSpace").size();
    if (bits && *bits > 0 && *bits <= 64 && components > 0 && components <= 4)
        values.add(Id::ImageBitDepth, *bits * components);
}

void addComputed(MediaInfo& library, PropertyValues& values) {
    addDepth(library, values);
    const auto yes = [](bool is) { return is ? std::int64_t{1} : std::int64_t{0}; };
    const QString mode = textOf(library, Stream_Audio, L"BitRate_Mode");
    if (!mode.isEmpty()) values.add(Id::AudioIsVariableBitRate, yes(mode.startsWith(u"VBR")));
    if (library.Count_Get(Stream_Video) == 0) return;
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
            if (!values.has(source.property) && appliesTo(library, source.property))
                values.add(source.property,
                           valueOf(source.form, textOf(library, source.stream, source.parameter)));
        addComputed(library, values);
    } catch (...) {
        // A damaged file: what was found before the damage stays.
    }
}

}  // namespace properties
