#include "tags/PropertyWrite.h"

#include "properties/MediaFiles.h"
#include "properties/PropertyStore.h"
#include "support/LocalZone.h"
#include "support/SmallFiles.h"
#include "support/TemporaryFolder.h"
#include "tags/PropertyCatalogue.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <algorithm>
#include <set>

namespace {

namespace fs = std::filesystem;
using properties::PropertyResult;
using properties::PropertyStore;
using properties::PropertyValue;
using support::ExifTool;
using support::TemporaryFolder;
using Id = properties::PropertyId;

class PropertyWrite : public ::testing::Test {
 protected:
    PropertyWrite() { support::writeJpeg(file); }

    /// What ExifTool reads, without its line end.
    std::string read(const std::string& tag) const { return readFrom(file, tag); }
    static std::string readFrom(const fs::path& path, const std::string& tag) {
        std::string value =
            ExifTool({"-s3", "-n", "-api", "StructFormat=JSON", "-sep", "; ", "-" + tag, path.string()});
        while (value.ends_with('\n')) value.pop_back();
        return value;
    }
    PropertyResult write(Id property, const PropertyValue& value,
                         PropertyStore::CommitOptions options = {}) const {
        PropertyStore store(file);
        const PropertyResult result = store.set(property, value);
        return result == PropertyResult::Ok ? store.commit(options) : result;
    }
    std::string imageHash() const { return read("ImageDataHash"); }
    std::size_t filesInFolder() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()));
    }

    /// What ExifTool prints of each file of a folder beside the facts of the file itself.
    static QHash<QString, QSet<QString>> valuesByFile(const fs::path& files) {
        const std::string output = ExifTool({"-q", "-j", "-a", "-G1", "-n", "--System:all", "--File:all",
                                             "--ExifTool:all", "--MPEG:all", "--JFIF:all", files.string()});
        QHash<QString, QSet<QString>> values;
        for (const QJsonValue& one : QJsonDocument::fromJson(QByteArray::fromStdString(output)).array()) {
            const QJsonObject tags = one.toObject();
            const QString name = tags["SourceFile"].toString().section(u'/', -1);
            for (const QString& tag : tags.keys()) {
                const QJsonArray several = tags[tag].isArray() ? tags[tag].toArray() : QJsonArray{tags[tag]};
                for (const QJsonValue& value : several) values[name].insert(value.toVariant().toString());
            }
        }
        return values;
    }

    TemporaryFolder folder;
    fs::path file = folder / "photo.jpg";
};

TEST_F(PropertyWrite, TextsOfAllScriptsReachThePhoto) {
    struct Case {
        Id property;
        const char* value;
        const char* tag;
    };
    const Case cases[] = {
        {Id::SummaryTitle, "Größe \"x\" $(touch owned) `y` 100%", "XMP-dc:Title"},
        {Id::SummaryTitle, "lang=\"de\" type=Bag", "XMP-dc:Title"},
        {Id::SummarySubject, "日本語", "XPSubject"},
        {Id::SummaryComment, "קול -if >x", "XPComment"},
        {Id::SummaryCopyright, "© Ann", "XMP-dc:Rights"},
        {Id::SummaryKeywords, "one; two three;drei", "XMP-dc:Subject"},
        {Id::PhotoEvent, "type=\"Seq\" party", "XMP-iptcExt:Event"},
        {Id::PhotoPeopleNames, "Zoë", "XMP-iptcExt:PersonInImage"},
        {Id::PhotoCameraModel, "Model 5", "IFD0:Model"},
        {Id::PhotoLensModel, "50mm", "ExifIFD:LensModel"},
        {Id::PhotoFNumber, "2.8", "ExifIFD:FNumber"},
        {Id::PhotoExposureTime, "1/250", "ExifIFD:ExposureTime"},
        {Id::PhotoExposureBias, "-2/3", "ExifIFD:ExposureCompensation"},
        {Id::PhotoISOSpeed, "400", "ExifIFD:ISO"},
        {Id::PhotoAperture, "2.8", "ExifIFD:ApertureValue"},
        {Id::PhotoShutterSpeed, "1/250", "ExifIFD:ShutterSpeedValue"},
        {Id::PhotoOrientation, "6", "IFD0:Orientation"},
        {Id::DiskRating, "3", "XMP-xmp:Rating"},
        {Id::ImageImageID, "abc", "ExifIFD:ImageUniqueID"},
    };
    const std::string expected[] = {"Größe \"x\" $(touch owned) `y` 100%",
                                    "lang=\"de\" type=Bag",
                                    "日本語",
                                    "קול -if >x",
                                    "© Ann",
                                    "one; two three; drei",
                                    "type=\"Seq\" party",
                                    "Zoë",
                                    "Model 5",
                                    "50mm",
                                    "2.8",
                                    "0.004",
                                    "-0.6666666667",
                                    "400",
                                    "2.80004497446971",
                                    "0.00399995642806865",
                                    "6",
                                    "3",
                                    "abc"};
    const std::string before = imageHash();
    std::size_t i = 0;
    for (const Case& one : cases) {
        EXPECT_EQ(write(one.property, QString::fromUtf8(one.value)), PropertyResult::Ok) << one.tag;
        EXPECT_EQ(read(one.tag), expected[i++]) << one.tag;
    }
    EXPECT_EQ(imageHash(), before);
    EXPECT_EQ(filesInFolder(), 1U) << "nothing stays beside the photo";
}

TEST_F(PropertyWrite, AllPlacesOfAValueAgreeAfterwards) {
    ExifTool({"-q", "-overwrite_original", "-XMP-dc:Title=old", "-XPTitle=old", "-ImageDescription=old",
              "-IPTC:ObjectName=old", "-IPTC:Keywords=keep", "-Make=Maker", file.string()});
    ASSERT_EQ(write(Id::SummaryTitle, QString("new")), PropertyResult::Ok);
    for (const char* tag : {"XMP-dc:Title", "XPTitle", "ImageDescription", "IPTC:ObjectName"})
        EXPECT_EQ(read(tag), "new") << tag;
    EXPECT_EQ(read("IPTC:Keywords"), "keep");
    EXPECT_EQ(read("IFD0:Make"), "Maker");
    ASSERT_EQ(write(Id::SummaryTitle, QString()), PropertyResult::Ok);
    for (const char* tag : {"XMP-dc:Title", "XPTitle", "ImageDescription", "IPTC:ObjectName"})
        EXPECT_EQ(read(tag), "") << tag;
}

TEST_F(PropertyWrite, OtherLanguagesOfATitleStay) {
    ExifTool({"-q", "-overwrite_original", "-XMP-dc:Title=old", "-XMP-dc:Title-de=alt", file.string()});
    ASSERT_EQ(write(Id::SummaryTitle, QString("new")), PropertyResult::Ok);
    EXPECT_EQ(read("XMP-dc:Title"), "new");
    EXPECT_EQ(read("XMP-dc:Title-de"), "alt");
}

TEST_F(PropertyWrite, ADateIsThatOfTheClockWhereThePhotoWasTaken) {
    ExifTool({"-q", "-overwrite_original", "-ExifIFD:DateTimeOriginal=2000:01:01 00:00:00",
              "-ExifIFD:OffsetTimeOriginal=+05:30", "-ExifIFD:SubSecTimeOriginal=77", file.string()});
    ExifTool(
        {"-q", "-overwrite_original", "-XMP-exif:DateTimeOriginal=2000:01:01 00:00:00+05:30", file.string()});
    // An hour that the summer time here leaves out.
    const support::LocalZone here("CET-1CEST,M3.5.0,M10.5.0/3");
    const auto written = tags::WriteProperty(
        file, {static_cast<std::uint32_t>(Id::PhotoDateTaken), "2021:03:28 02:30:00", {}});
    ASSERT_EQ(written, PropertyResult::Ok);
    EXPECT_EQ(read("ExifIFD:DateTimeOriginal"), "2021:03:28 02:30:00");
    EXPECT_EQ(read("ExifIFD:OffsetTimeOriginal"), "+05:30");
    EXPECT_EQ(read("ExifIFD:SubSecTimeOriginal"), "");
    EXPECT_EQ(read("XMP-exif:DateTimeOriginal"), "2021:03:28 02:30:00+05:30");
    // A moment stands for what clocks here show.
    ASSERT_EQ(write(Id::PhotoDateTaken, platform::PointInTime{1'000'000'000'000'000'000}),
              PropertyResult::Ok);
    EXPECT_EQ(read("ExifIFD:DateTimeOriginal"), "2001:09:09 03:46:40");
}

TEST_F(PropertyWrite, WhatCannotBeReadAsAValueIsRefused) {
    const std::string before = support::readBytes(file);
    const std::tuple<Id, PropertyValue, PropertyResult> cases[] = {
        {Id::PhotoISOSpeed, QString("many"), PropertyResult::InvalidParameter},
        {Id::PhotoISOSpeed, QString("70000"), PropertyResult::InvalidParameter},
        {Id::PhotoFNumber, QString("-2.8"), PropertyResult::InvalidParameter},
        {Id::PhotoFNumber, QString("1/0"), PropertyResult::InvalidParameter},
        {Id::DiskRating, QString("6"), PropertyResult::InvalidParameter},
        {Id::PhotoDateTaken, QString("soon"), PropertyResult::InvalidParameter},
        {Id::PhotoFNumber, PropertyValue(std::int64_t{3}), PropertyResult::TypeMismatch},
        {Id::SummaryTitle, PropertyValue(2.0), PropertyResult::TypeMismatch},
        {Id::MusicArtist, QString("Ann"), PropertyResult::NotSupported},
        {Id::DiskFileSize, QString("3"), PropertyResult::NotSupported},
        {Id::DrmDatePlayStarts, platform::PointInTime{1}, PropertyResult::NotSupported},
    };
    for (const auto& [property, value, expected] : cases)
        EXPECT_EQ(write(property, value), expected) << static_cast<int>(property);
    EXPECT_EQ(support::readBytes(file), before);
    EXPECT_EQ(filesInFolder(), 1U);
}

TEST_F(PropertyWrite, PermissionsStayAndTimesOnRequest) {
    ASSERT_EQ(::chmod(file.c_str(), 0640), 0);
    const timespec times[] = {{1'000'000'000, 5}, {1'100'000'000, 6}};
    ASSERT_EQ(::utimensat(AT_FDCWD, file.c_str(), times, 0), 0);
    ASSERT_EQ(write(Id::SummaryTitle, QString("a"), {.keepTimes = true}), PropertyResult::Ok);
    struct stat facts {};
    ASSERT_EQ(::stat(file.c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 07777, 0640U);
    EXPECT_EQ(facts.st_mtim.tv_sec, 1'100'000'000);
    EXPECT_EQ(facts.st_mtim.tv_nsec, 6);
    ASSERT_EQ(write(Id::SummaryTitle, QString("b")), PropertyResult::Ok);
    ASSERT_EQ(::stat(file.c_str(), &facts), 0);
    EXPECT_GT(facts.st_mtim.tv_sec, 1'100'000'000);
}

TEST_F(PropertyWrite, AReadOnlyFileIsDenied) {
    ASSERT_EQ(::chmod(file.c_str(), 0444), 0);
    const std::string before = support::readBytes(file);
    const PropertyResult result = write(Id::SummaryTitle, QString("a"));
    EXPECT_EQ(static_cast<std::uint32_t>(result), 0x80030005U);
    EXPECT_EQ(properties::propertyResultMessage(result), "Access denied!");
    EXPECT_EQ(support::readBytes(file), before);
}

TEST_F(PropertyWrite, AFileThatChangedMeanwhileIsLeftAlone) {
    PropertyStore store(file);
    ASSERT_EQ(store.set(Id::SummaryTitle, QString("a")), PropertyResult::Ok);
    support::writeBytes(file, support::readBytes(file) + "more");
    const std::string before = support::readBytes(file);
    EXPECT_EQ(store.commit(), PropertyResult::ChangedMeanwhile);
    EXPECT_EQ(support::readBytes(file), before);
    EXPECT_EQ(filesInFolder(), 1U);
}

TEST_F(PropertyWrite, ALinkStaysALink) {
    fs::create_symlink("photo.jpg", folder / "link.jpg");
    PropertyStore store(folder / "link.jpg");
    ASSERT_EQ(store.set(Id::SummaryTitle, QString("a")), PropertyResult::Ok);
    ASSERT_EQ(store.commit(), PropertyResult::Ok);
    EXPECT_TRUE(fs::is_symlink(folder / "link.jpg"));
    EXPECT_EQ(read("XMP-dc:Title"), "a");
}

TEST_F(PropertyWrite, NamesOfAllKinds) {
    for (const std::string& name : support::hostileNames()) {
        const fs::path path = folder / name;
        support::writeJpeg(path);
        PropertyStore store(path);
        ASSERT_EQ(store.set(Id::SummaryTitle, QString("a")), PropertyResult::Ok) << name;
        EXPECT_EQ(store.commit(), PropertyResult::Ok) << name;
        EXPECT_EQ(PropertyStore(path).get(Id::SummaryTitle), PropertyValue(QString("a"))) << name;
    }
    EXPECT_FALSE(fs::exists(folder / "owned"));
}

TEST_F(PropertyWrite, DamagedFilesStayAsTheyAre) {
    support::writeBytes(file, std::string("\xFF\xD8\xFF\xE1\xFF\xFF"
                                          "Exif",
                                          10));
    const std::string before = support::readBytes(file);
    EXPECT_NE(write(Id::SummaryTitle, QString("a")), PropertyResult::Ok);
    EXPECT_EQ(support::readBytes(file), before);
}

TEST_F(PropertyWrite, Music) {
    const fs::path song = folder / "song.flac";
    support::writeFlac(song);
    PropertyStore store(song);
    ASSERT_EQ(store.set(Id::SummaryTitle, QString::fromUtf8("Größe")), PropertyResult::Ok);
    ASSERT_EQ(store.set(Id::MusicArtist, QString("Cy; Di")), PropertyResult::Ok);
    ASSERT_EQ(store.set(Id::MediaYear, QString("2020")), PropertyResult::Ok);
    ASSERT_EQ(store.set(Id::MusicTrackNumber, QString()), PropertyResult::Ok);
    EXPECT_EQ(store.set(Id::MusicDiscNumber, QString("first")), PropertyResult::InvalidParameter);
    EXPECT_EQ(store.set(Id::PhotoFNumber, QString("2.8")), PropertyResult::NotSupported);
    ASSERT_EQ(store.commit(), PropertyResult::Ok);
    EXPECT_EQ(store.get(Id::SummaryTitle), PropertyValue(QString::fromUtf8("Größe")))
        << "the same object reads anew";
    EXPECT_EQ(readFrom(song, "Title"), "Größe");
    EXPECT_EQ(readFrom(song, "Artist"), "Cy; Di");
    EXPECT_EQ(readFrom(song, "Date"), "2020");
    EXPECT_EQ(readFrom(song, "TrackNumber"), "");
    EXPECT_EQ(readFrom(song, "SampleRate"), "44100");
}

TEST_F(PropertyWrite, ByTheNumberOfTheRow) {
    tags::PropertyWrite title{static_cast<std::uint32_t>(Id::SummaryTitle), QString("a"), {}};
    EXPECT_EQ(tags::WriteProperty(file, title), PropertyResult::Ok);
    EXPECT_EQ(read("XMP-dc:Title"), "a");
    EXPECT_EQ(tags::WriteProperty(file, {172, QString(), {1'000'000'000'000'000'000}}), PropertyResult::Ok);
    EXPECT_TRUE(read("ExifIFD:DateTimeOriginal").starts_with("2001:09:0"));
    EXPECT_EQ(tags::WriteProperty(file, {4711, QString("a"), {}}), std::nullopt);
    EXPECT_EQ(tags::WriteProperty(folder / "absent.jpg", title), std::nullopt);
    for (const std::uint32_t group : {30U, 209U, 330U, 332U, 334U, 339U})
        EXPECT_TRUE(tags::isPropertyGroup(group));
    for (const std::uint32_t group : {0U, 329U, 333U, 340U}) EXPECT_FALSE(tags::isPropertyGroup(group));
}

TEST(PropertyResults, HaveTheirMessages) {
    const std::pair<std::uint32_t, const char*> expected[] = {
        {0x80030005, "Access denied!"},
        {0x80030057, "Invalid parameter!"},
        {0x80070057, "One or more arguments are invalid!"},
        {0x88982F41, "This property is not supported by this codec!"},
        {0x80028CA0, "Type mismatch.\nPlesase contact Vennmark!"},
        {0x80004005, ""},
        {0, ""},
    };
    for (const auto& [code, message] : expected)
        EXPECT_EQ(properties::propertyResultMessage(static_cast<PropertyResult>(code)), message);
}

}  // namespace
