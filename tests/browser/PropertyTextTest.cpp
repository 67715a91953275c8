#include "browser/PropertyText.h"

#include "browser/ColumnText.h"
#include "support/SmallFiles.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QLocale>

namespace {

using browser::propertyText;
using properties::Angle;
using properties::PropertyValue;
using properties::Rational;
using support::TemporaryFolder;
using Id = properties::PropertyId;

const tags::PropertyRecord& record(Id property) {
    return *std::ranges::find(tags::propertyRows(), static_cast<std::uint32_t>(property),
                              &tags::PropertyRecord::propertyId);
}

TEST(PropertyText, SaysValuesForPeople) {
    const std::tuple<Id, PropertyValue, QString> cases[] = {
        {Id::GpsAltitude, Rational{1039, 2}, "520 m"},
        {Id::GpsAltitude, Rational{4, 1}, " 4 m"},
        {Id::GpsAltitudeRef, std::int64_t{0}, "Above sea level"},
        {Id::GpsAltitudeRef, std::int64_t{1}, "Below sea level"},
        {Id::GpsDifferential, std::int64_t{0}, "No Correction"},
        {Id::GpsDifferential, std::int64_t{1}, "Differential Corrected"},
        {Id::GpsImgDirection, Rational{2702, 10}, QString::fromUtf8("270 °")},
        {Id::GpsImgDirectionRef, QString("M"), "Magnetic North"},
        {Id::GpsImgDirectionRef, QString("T"), "True North"},
        {Id::GpsLatitude, Angle{48, 5, 7.5}, QString::fromUtf8(" 48° 05' 7.50\"")},
        {Id::GpsLatitude, Angle{48, 59, 59.996}, QString::fromUtf8(" 49° 00' 0.00\"")},
        {Id::GpsLatitudeRef, QString("N"), "North"},
        {Id::GpsLatitudeRef, QString("S"), "South"},
        {Id::GpsLongitudeRef, QString("W"), "West"},
        {Id::GpsLongitudeRef, QString("E"), "East"},
        {Id::GpsMeasureMode, QString("2"), "2-Dimentional Measurement"},
        {Id::GpsMeasureMode, QString("3"), "3-Dimentional Measurement"},
        {Id::GpsVersionID, QStringList{"2", "3", "0", "0"}, "2,3,0,0"},
        {Id::GpsSatellites, QString("05"), "05"},
        {Id::SummaryKeywords, QStringList{"a", "b"}, "a; b"},
        {Id::DiskRating, std::int64_t{1}, "1 Star"},
        {Id::DiskRating, std::int64_t{4}, "4 Stars"},
        {Id::ImageHorizontalSize, std::int64_t{4000}, "4000 pixels"},
        {Id::PhotoFNumber, Rational{28, 10}, "f/2.8"},
        {Id::PhotoAperture, 2.8284, "f/2.8"},
        {Id::PhotoMaxAperture, 1.8, "f/1.8"},
        {Id::PhotoShutterSpeed, 0.0039, "1/256 sec."},
        {Id::PhotoExposureTime, Rational{1, 250}, "1/250 sec."},
        {Id::PhotoExposureTime, Rational{25, 10}, "2.5 sec."},
        {Id::PhotoExposureBias, Rational{1, 3}, "+0.3 step"},
        {Id::PhotoISOSpeed, std::int64_t{400}, "ISO-400"},
        {Id::PhotoFlash, std::int64_t{16}, "No flash, compulsory"},
        {Id::PhotoFlash, std::int64_t{0x5D}, "Flash, auto, no strobe return, red-eye"},
        {Id::MediaDuration, std::int64_t{37'250'000'000}, "01:02:05"},
        {Id::AudioEncodingBitrate, std::int64_t{128000}, "128kbps"},
        {Id::AudioChannelCount, std::int64_t{2}, "2 (stereo)"},
        {Id::MusicIsCompilation, std::int64_t{1}, "Yes"},
        {Id::PhotoFNumber, PropertyValue(), ""},
    };
    for (const auto& [property, value, expected] : cases)
        EXPECT_EQ(propertyText(record(property), value), expected) << static_cast<int>(property);
}

TEST(PropertyText, RawValuesHaveCommasAndPoints) {
    EXPECT_EQ(browser::propertyValueText(QStringList{"a", "b"}), "a, b");
    EXPECT_EQ(browser::propertyValueText(Rational{5, 2}), "2.5");
    EXPECT_EQ(browser::propertyValueText(Rational{5, 0}), "");
    EXPECT_EQ(browser::propertyValueText(PropertyValue()), "");
}

TEST(PropertyText, FillsAnyColumnOfAFile) {
    const TemporaryFolder folder;
    const auto photo = folder / "a.jpg";
    support::writeJpeg(photo);
    support::ExifTool(
        {"-q", "-overwrite_original", "-IFD0:Model=Model 5", "-XMP-xmp:Rating=2", photo.string()});
    EXPECT_EQ(browser::GetColumnText(photo, 207), "Model 5");
    EXPECT_EQ(browser::GetColumnText(photo, 12), "2 Stars");
    EXPECT_EQ(browser::GetColumnText(photo, 107), "32 x 24");
    EXPECT_EQ(browser::GetColumnText(photo, 67), ".jpg");
    EXPECT_EQ(browser::GetColumnText(photo, 602), "");
    EXPECT_EQ(browser::GetPropertyText(photo, record(Id::PhotoCameraModel).formatId, 272), "Model 5");
    EXPECT_EQ(browser::GetPropertyText(photo, record(Id::PhotoCameraModel).formatId, 1), "");
    EXPECT_EQ(browser::GetColumnText(folder.path(), 207), "");
}

TEST(PropertyText, AFileThatWasWrittenIsReadAnew) {
    const TemporaryFolder folder;
    const auto photo = folder / "a.jpg";
    support::writeJpeg(photo);
    EXPECT_EQ(browser::GetColumnText(photo, 207), "");
    support::ExifTool({"-q", "-overwrite_original", "-IFD0:Model=Model 5", photo.string()});
    EXPECT_EQ(browser::GetColumnText(photo, 207), "Model 5");
}

TEST(PropertyText, NeverOpensAPipe) {
    const TemporaryFolder folder;
    ASSERT_EQ(::mkfifo((folder / "pipe.jpg").c_str(), 0600), 0);
    for (const std::uint32_t column : {207U, 12U, 423U, 602U})
        EXPECT_EQ(browser::GetColumnText(folder / "pipe.jpg", column), "");
}

}  // namespace
