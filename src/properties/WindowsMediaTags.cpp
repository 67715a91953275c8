#include "properties/WindowsMediaTags.h"

#include "properties/PropertyTexts.h"

#include <taglib/asftag.h>

#include <QUuid>
#include <QtEndian>
#include <algorithm>
#include <array>

namespace properties {
namespace {

using Id = PropertyId;

enum class AttributeForm : std::uint8_t { Text, List, Integer, Counted, Yes, Date, Stars };

struct AttributeSource {
    Id property;
    AttributeForm form;
    const char* name;
};

using enum AttributeForm;

constexpr auto kSources = std::to_array<AttributeSource>({
    {Id::DiskRating, Stars, "WM/SharedUserRating"},
    {Id::SummaryCategory, List, "WM/Category"},
    {Id::AudioPeakValue, Integer, "PeakValue"},
    {Id::MusicInitialKey, Text, "WM/InitialKey"},
    {Id::MusicPeriod, Text, "WM/Period"},
    {Id::MediaAuthorUrl, Text, "WM/AuthorURL"},
    {Id::MediaAverageLevel, Integer, "AverageLevel"},
    {Id::MediaClassPrimaryID, Text, "WM/MediaClassPrimaryID"},
    {Id::MediaClassSecondaryID, Text, "WM/MediaClassSecondaryID"},
    {Id::MediaCollectionGroupID, Text, "WM/WMCollectionGroupID"},
    {Id::MediaCollectionID, Text, "WM/WMCollectionID"},
    {Id::MediaContentDistributor, Text, "WM/ContentDistributor"},
    {Id::MediaContentID, Text, "WM/WMContentID"},
    {Id::MediaDateEncoded, Date, "WM/EncodingTime"},
    {Id::MediaDVDID, Text, "WM/DVDID"},
    {Id::MediaEncodingSettings, Text, "WM/EncodingSettings"},
    {Id::MediaMetadataContentProvider, Text, "WM/Provider"},
    {Id::MediaPromotionUrl, Text, "WM/PromotionURL"},
    {Id::MediaProtectionType, Text, "WM/ProtectionType"},
    {Id::MediaProviderRating, Text, "WM/ProviderRating"},
    {Id::MediaProviderStyle, Text, "WM/ProviderStyle"},
    {Id::MediaSubscriptionContentId, Text, "WM/SubscriptionContentID"},
    {Id::MediaUniqueFileIdentifier, Text, "WM/UniqueFileIdentifier"},
    {Id::MediaUserWebUrl, Text, "WM/UserWebURL"},
    {Id::TelevisionChannelNumber, Integer, "WM/MediaOriginalChannel"},
    {Id::TelevisionCredits, Text, "WM/MediaCredits"},
    {Id::TelevisionEpisodeName, Text, "WM/SubTitle"},
    {Id::TelevisionIsATSCContent, Yes, "WM/WMRVATSCContent"},
    {Id::TelevisionIsClosedCaptioningAvailable, Yes, "WM/VideoClosedCaptioning"},
    {Id::TelevisionIsDTVContent, Yes, "WM/WMRVDTVContent"},
    {Id::TelevisionIsHDContent, Yes, "WM/WMRVHDContent"},
    {Id::TelevisionIsRepeatBroadcast, Yes, "WM/MediaIsRepeat"},
    {Id::TelevisionIsSAP, Yes, "WM/MediaIsSAP"},
    {Id::TelevisionNetworkAffiliation, Text, "WM/MediaNetworkAffiliation"},
    {Id::TelevisionOriginalBroadcastDate, Date, "WM/MediaOriginalBroadcastDateTime"},
    {Id::TelevisionProgramDescription, Text, "WM/SubTitleDescription"},
    {Id::TelevisionRecordingTime, Date, "WM/WMRVEncodeTime"},
    {Id::TelevisionStationCallSign, Text, "WM/MediaStationCallSign"},
    {Id::TelevisionStationName, Text, "WM/MediaStationName"},
    {Id::VideoDirector, List, "WM/Director"},
    // Names of other formats, under which the most used converter puts what it found there.
    {Id::SummaryComment, Text, "description"},
    {Id::SummaryKeywords, List, "keywords"},
    {Id::SummarySubject, Text, "grouping"},
    {Id::MediaEpisodeNumber, Counted, "episode_sort"},
    {Id::MediaSeasonNumber, Counted, "season_number"},
    {Id::MediaSeriesName, Text, "show"},
    {Id::MediaYear, Counted, "date"},
    {Id::MusicIsCompilation, Yes, "compilation"},
    {Id::MusicLyrics, Text, "lyrics"},
    {Id::MusicMood, Text, "mood"},
    {Id::TelevisionNetworkAffiliation, Text, "network"},
    {Id::TelevisionProgramDescription, Text, "synopsis"},
    {Id::VideoDirector, List, "director"},
});

std::int64_t numberOf(const TagLib::ASF::Attribute& attribute) {
    using Kind = TagLib::ASF::Attribute;
    switch (attribute.type()) {
        case Kind::BoolType:
            return attribute.toBool() ? 1 : 0;
        case Kind::WordType:
            return attribute.toUShort();
        case Kind::DWordType:
            return attribute.toUInt();
        case Kind::QWordType:
            return static_cast<std::int64_t>(attribute.toULongLong());
        default:
            return parseLeadingInteger(QString::fromStdString(attribute.toString().to8Bit(true))).value_or(0);
    }
}

QString textOf(const TagLib::ASF::Attribute& attribute) {
    using Kind = TagLib::ASF::Attribute;
    const bool isBytes = attribute.type() == Kind::GuidType || attribute.type() == Kind::BytesType;
    if (isBytes) {
        const TagLib::ByteVector bytes = attribute.toByteVector();
        return guidText(QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size())));
    }
    if (attribute.type() != Kind::UnicodeType) return QString::number(numberOf(attribute));
    return QString::fromStdString(attribute.toString().to8Bit(true)).trimmed();
}

/// Ten-millionths of a second since 1601, or a text. The first second of that counting is no time.
PropertyValue dateOf(const TagLib::ASF::Attribute& attribute) {
    constexpr std::int64_t kTicksInASecond = 10'000'000;
    constexpr std::int64_t kSecondsFrom1601 = 11'644'473'600;
    constexpr std::int64_t kSecondsTo2200 = 7'258'118'400;
    if (attribute.type() == TagLib::ASF::Attribute::UnicodeType) {
        const auto time = parsePointInTime(textOf(attribute));
        return time ? PropertyValue(*time) : PropertyValue();
    }
    const std::int64_t ticks = numberOf(attribute);
    const std::int64_t seconds = ticks / kTicksInASecond - kSecondsFrom1601;
    if (ticks < kTicksInASecond || std::abs(seconds) > kSecondsTo2200) return {};
    return PointInTime{seconds * 1'000'000'000 + ticks % kTicksInASecond * 100};
}

/// The steps in which players write stars into the hundred.
std::int64_t starsOf(std::int64_t percent) {
    if (percent <= 0) return 0;
    return percent < 13 ? 1 : std::min<std::int64_t>(5, (percent + 12) / 25 + 1);
}

PropertyValue valueOf(AttributeForm form, const TagLib::ASF::AttributeList& attributes) {
    const TagLib::ASF::Attribute& first = attributes.front();
    if (form == Date) return dateOf(first);
    if (form == Stars) return starsOf(numberOf(first));
    if (form == Counted && numberOf(first) <= 0) return {};
    if (form == Integer || form == Counted) return numberOf(first);
    if (form == Yes) return numberOf(first) != 0 ? std::int64_t{1} : std::int64_t{0};
    QStringList texts;
    for (const TagLib::ASF::Attribute& attribute : attributes)
        if (const QString text = textOf(attribute); !text.isEmpty()) texts.append(text);
    if (texts.isEmpty()) return {};
    return form == List ? PropertyValue(texts) : PropertyValue(texts.join(QStringLiteral("; ")));
}

}  // namespace

QString guidText(const QByteArray& bytes) {
    if (bytes.size() != 16) return {};
    QUuid guid = QUuid::fromRfc4122(bytes);
    if (guid.isNull()) return {};
    guid.data1 = qbswap(guid.data1);
    guid.data2 = qbswap(guid.data2);
    guid.data3 = qbswap(guid.data3);
    return guid.toString().toUpper();
}

bool windowsMediaCanGive(PropertyId property) {
    return std::ranges::find(kSources, property, &AttributeSource::property) != kSources.end();
}

void addWindowsMediaTags(const TagLib::ASF::Tag& tag, PropertyValues& values) {
    for (const AttributeSource& source : kSources) {
        const TagLib::ASF::AttributeList attributes = tag.attribute(source.name);
        if (!attributes.isEmpty()) values.add(source.property, valueOf(source.form, attributes));
    }
}

}  // namespace properties
