#include "app/SortMode.h"
#include "app/ViewMode.h"

#include <gtest/gtest.h>

#include <QStringList>
#include <vector>

namespace {

// What settings files hold, which must mean the same for ever.
constexpr const char* kSortModes =
    "Name = 1,DateModified = 2,Size = 3,Type = 4,TotalSize = 5,FreeSpace = 6,Comments = 7,"
    "DateDeleted = 8,OriginalLocation = 9,Attributes = 10,RealSize = 11,Owner = 12,Rating = 13,"
    "ProductName = 14,Company = 15,Description = 16,FileVersion = 17,ProductVersion = 18,"
    "Extension = 21,Created = 22,Accessed = 23,Title = 24,Subject = 25,Authors = 26,"
    "Keywords = 27,CameraModel = 29,DateTaken = 30,Width = 31,Height = 32,VirtualComments = 33,"
    "MediaBitrate = 35,MediaCopyright = 36,MediaDuration = 37,MediaProtected = 38,"
    "MediaRating = 39,MediaAlbumArtist = 40,MediaAlbum = 41,MediaBeatsPerMinute = 42,"
    "MediaComposer = 43,MediaConductor = 44,MediaDirector = 45,MediaGenre = 46,"
    "MediaLanguage = 47,MediaBroadcastDate = 48,MediaChannel = 49,MediaStationName = 50,"
    "MediaMood = 51,MediaParentalRating = 52,MediaParentalRatingReason = 53,MediaPeriod = 54,"
    "MediaProducer = 55,MediaPublisher = 56,MediaWriter = 57,MediaYear = 58,Kind = 59,";
constexpr const char* kViewModes = "Details = 1,Tiles = 2,Thumbnails = 3,Jumbo = 4,";

/// Names and numbers out of such a text.
std::vector<std::pair<QString, int>> storedValues(const char* text) {
    std::vector<std::pair<QString, int>> values;
    for (const QString& entry : QString::fromLatin1(text).split(u',', Qt::SkipEmptyParts)) {
        const QStringList parts = entry.split(QStringLiteral(" = "));
        values.emplace_back(parts.at(0), parts.at(1).toInt());
    }
    return values;
}

TEST(StoredEnumerations, HaveTheNumbersThatSettingsFilesHold) {
    const auto sortModes = storedValues(kSortModes);
    ASSERT_EQ(app::sortModes().size(), sortModes.size());
    for (const auto& [name, number] : sortModes) {
        EXPECT_EQ(toString(app::sortModeFromIntegral(number)), name);
        EXPECT_EQ(static_cast<int>(app::sortModeFromString(name)), number) << name.toStdString();
    }
    const auto viewModes = storedValues(kViewModes);
    ASSERT_EQ(app::viewModes().size(), viewModes.size());
    for (const auto& [name, number] : viewModes) {
        EXPECT_EQ(toString(app::viewModeFromIntegral(number)), name);
        EXPECT_EQ(static_cast<int>(app::viewModeFromString(name)), number) << name.toStdString();
    }
}

TEST(StoredEnumerations, UnknownNumbersAndNamesThrow) {
    for (const int number : {-1, 0, 19, 20, 28, 34, 60, 1 << 30})
        EXPECT_THROW(app::sortModeFromIntegral(number), app::InvalidEnumeration) << number;
    for (const int number : {-1, 0, 5})
        EXPECT_THROW(app::viewModeFromIntegral(number), app::InvalidEnumeration);
    EXPECT_THROW(app::sortModeFromString(QStringLiteral("name")), app::InvalidEnumeration);
    EXPECT_THROW(app::viewModeFromString(QString()), app::InvalidEnumeration);
}

}  // namespace
