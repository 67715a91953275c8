#include "app/SortMode.h"

#include <array>

namespace app {

namespace {

constexpr auto kSortModes = std::to_array<NumberedName>({
    {1, QLatin1StringView("Name")},
    {2, QLatin1StringView("DateModified")},
    {3, QLatin1StringView("Size")},
    {4, QLatin1StringView("Type")},
    {5, QLatin1StringView("TotalSize")},
    {6, QLatin1StringView("FreeSpace")},
    {7, QLatin1StringView("Comments")},
    {8, QLatin1StringView("DateDeleted")},
    {9, QLatin1StringView("OriginalLocation")},
    {10, QLatin1StringView("Attributes")},
    {11, QLatin1StringView("RealSize")},
    {12, QLatin1StringView("Owner")},
    {13, QLatin1StringView("Rating")},
    {14, QLatin1StringView("ProductName")},
    {15, QLatin1StringView("Company")},
    {16, QLatin1StringView("Description")},
    {17, QLatin1StringView("FileVersion")},
    {18, QLatin1StringView("ProductVersion")},
    {21, QLatin1StringView("Extension")},
    {22, QLatin1StringView("Created")},
    {23, QLatin1StringView("Accessed")},
    {24, QLatin1StringView("Title")},
    {25, QLatin1StringView("Subject")},
    {26, QLatin1StringView("Authors")},
    {27, QLatin1StringView("Keywords")},
    {29, QLatin1StringView("CameraModel")},
    {30, QLatin1StringView("DateTaken")},
    {31, QLatin1StringView("Width")},
    {32, QLatin1StringView("Height")},
    {33, QLatin1StringView("VirtualComments")},
    {35, QLatin1StringView("MediaBitrate")},
    {36, QLatin1StringView("MediaCopyright")},
    {37, QLatin1StringView("MediaDuration")},
    {38, QLatin1StringView("MediaProtected")},
    {39, QLatin1StringView("MediaRating")},
    {40, QLatin1StringView("MediaAlbumArtist")},
    {41, QLatin1StringView("MediaAlbum")},
    {42, QLatin1StringView("MediaBeatsPerMinute")},
    {43, QLatin1StringView("MediaComposer")},
    {44, QLatin1StringView("MediaConductor")},
    {45, QLatin1StringView("MediaDirector")},
    {46, QLatin1StringView("MediaGenre")},
    {47, QLatin1StringView("MediaLanguage")},
    {48, QLatin1StringView("MediaBroadcastDate")},
    {49, QLatin1StringView("MediaChannel")},
    {50, QLatin1StringView("MediaStationName")},
    {51, QLatin1StringView("MediaMood")},
    {52, QLatin1StringView("MediaParentalRating")},
    {53, QLatin1StringView("MediaParentalRatingReason")},
    {54, QLatin1StringView("MediaPeriod")},
    {55, QLatin1StringView("MediaProducer")},
    {56, QLatin1StringView("MediaPublisher")},
    {57, QLatin1StringView("MediaWriter")},
    {58, QLatin1StringView("MediaYear")},
    {59, QLatin1StringView("Kind")},
});
static_assert(kSortModes.size() == 55);

}  // namespace

std::span<const NumberedName> sortModes() {
    return kSortModes;
}

SortMode sortModeFromIntegral(int number) {
    if (nameOfNumber(kSortModes, number).isEmpty())
        throw InvalidEnumeration("SortMode::_from_integral: invalid argument");
    return static_cast<SortMode>(number);
}

SortMode sortModeFromString(const QString& name) {
    const int number = numberOfName(kSortModes, name);
    if (number < 0) throw InvalidEnumeration("SortMode::_from_string: invalid argument");
    return static_cast<SortMode>(number);
}

QString toString(SortMode mode) {
    return nameOfNumber(kSortModes, static_cast<int>(mode));
}

}  // namespace app
