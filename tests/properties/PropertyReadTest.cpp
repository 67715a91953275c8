#include "properties/MediaFiles.h"
#include "properties/PropertyStore.h"
#include "support/SmallFiles.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <atomic>
#include <thread>

namespace {

namespace fs = std::filesystem;
using properties::isAbsent;
using properties::PropertyStore;
using properties::PropertyValue;
using properties::Rational;
using support::TemporaryFolder;
using Id = properties::PropertyId;

constexpr std::int64_t kSecond = 1'000'000'000;

PropertyValue text(const char* value) {
    return QString::fromUtf8(value);
}
PropertyValue number(std::int64_t value) {
    return value;
}

class TaggedPhoto : public ::testing::Test {
 protected:
    void tag(std::vector<std::string> arguments) {
        support::writeJpeg(file);
        arguments.insert(arguments.begin(), {"-q", "-overwrite_original", "-n"});
        arguments.push_back(file.string());
        support::ExifTool(arguments);
    }

    TemporaryFolder folder;
    fs::path file = folder / "photo.jpg";
};

TEST_F(TaggedPhoto, GivesTypedValues) {
    tag({"-IFD0:Make=Maker",
         "-IFD0:Model=Model 5",
         "-ExifIFD:FNumber=2.8",
         "-ExifIFD:ExposureTime=1/250",
         "-ExifIFD:ISO=400",
         "-ExifIFD:Flash=16",
         "-ExifIFD:MeteringMode=5",
         "-ExifIFD:WhiteBalance=1",
         "-ExifIFD:ExposureCompensation=-2/3",
         "-ExifIFD:DateTimeOriginal=2001:09:09 01:46:40",
         "-ExifIFD:OffsetTimeOriginal=+00:00",
         "-ExifIFD:SubSecTimeOriginal=25",
         "-ExifIFD:SerialNumber=007",
         "-IFD0:Orientation=6",
         "-IFD0:XPTitle=Größe",
         "-XMP-dc:Subject=one",
         "-XMP-dc:Subject=two",
         "-XMP-dc:Creator=Ann",
         "-XMP-xmp:Rating=4",
         "-XMP-iptcExt:PersonInImage=Zoë",
         "-XMP-dc:Rights=Ann 2020",
         "-ExifIFD:UserComment=a note"});
    PropertyStore store(file);
    const std::pair<Id, PropertyValue> expected[] = {
        {Id::PhotoCameraManufacturer, text("Maker")},
        {Id::PhotoCameraModel, text("Model 5")},
        {Id::PhotoFNumber, Rational{14, 5}},
        {Id::PhotoFNumberNumerator, number(14)},
        {Id::PhotoFNumberDenominator, number(5)},
        {Id::PhotoExposureTime, Rational{1, 250}},
        {Id::PhotoISOSpeed, number(400)},
        {Id::PhotoFlash, number(16)},
        {Id::PhotoMeteringModeText, text("Pattern")},
        {Id::PhotoWhiteBalanceText, text("Manual")},
        {Id::PhotoExposureBias, Rational{-2, 3}},
        {Id::PhotoDateTaken, properties::LocalTime{1'000'000'000 * kSecond + kSecond / 4}},
        {Id::PhotoSerialNumber, text("007")},
        {Id::PhotoOrientationText, text("Rotate 270 degrees")},
        {Id::SummaryTitle, text("Größe")},
        {Id::SummaryKeywords, QStringList{"one", "two"}},
        {Id::SummaryAuthor, QStringList{"Ann"}},
        {Id::DiskRating, number(4)},
        {Id::PhotoPeopleNames, QStringList{QString::fromUtf8("Zoë")}},
        {Id::SummaryCopyright, text("Ann 2020")},
        {Id::SummaryComment, text("a note")},
        {Id::ImageDimensions, text("32 x 24")},
        {Id::ImageHorizontalSize, number(32)},
        {Id::ImageBitDepth, number(24)},
        {Id::ImageCompressionText, text("JPEG")},
        {Id::SummaryContentType, text("image/jpeg")},
        {Id::DiskKind, text("picture")},
        {Id::DiskFileSize, number(static_cast<std::int64_t>(fs::file_size(file)))},
    };
    for (const auto& [property, value] : expected)
        EXPECT_EQ(store.get(property), value) << static_cast<int>(property);
    for (const Id absent :
         {Id::GpsLatitude, Id::GpsLatitudeDecimal, Id::PhotoContrast, Id::MusicArtist, Id::VideoFourCC})
        EXPECT_TRUE(isAbsent(store.get(absent))) << static_cast<int>(absent);
}

TEST_F(TaggedPhoto, NoPositionIsNotTheZeroPosition) {
    tag({"-GPS:GPSLatitude=0", "-GPS:GPSLatitudeRef=N", "-GPS:GPSLongitude=0", "-GPS:GPSLongitudeRef=E"});
    PropertyStore store(file);
    EXPECT_EQ(store.get(Id::GpsLatitudeDecimal), PropertyValue(0.0));
    tag({"-IFD0:Make=Maker"});
    PropertyStore other(file);
    EXPECT_TRUE(isAbsent(other.get(Id::GpsLatitudeDecimal)));
}

TEST_F(TaggedPhoto, GivesItsPosition) {
    tag({"-GPS:GPSLatitude=48.5", "-GPS:GPSLatitudeRef=S", "-GPS:GPSLongitude=11.25",
         "-GPS:GPSLongitudeRef=W", "-GPS:GPSAltitude=519.5", "-GPS:GPSAltitudeRef=1",
         "-GPS:GPSDateStamp=2001:09:09", "-GPS:GPSTimeStamp=01:46:40", "-GPS:GPSVersionID=2 3 0 0",
         "-GPS:GPSMeasureMode=3"});
    PropertyStore store(file);
    EXPECT_EQ(store.get(Id::GpsLatitude), PropertyValue(properties::Angle{48, 30, 0}));
    EXPECT_EQ(store.get(Id::GpsLatitudeDecimal), PropertyValue(-48.5));
    EXPECT_EQ(store.get(Id::GpsLongitudeDecimal), PropertyValue(-11.25));
    EXPECT_EQ(store.get(Id::GpsLatitudeRef), text("S"));
    EXPECT_EQ(store.get(Id::GpsAltitude), PropertyValue(Rational{1039, 2}));
    EXPECT_EQ(store.get(Id::GpsAltitudeRef), number(1));
    EXPECT_EQ(store.get(Id::GpsDateStamp), PropertyValue(platform::PointInTime{1'000'000'000 * kSecond}));
    EXPECT_EQ(store.get(Id::GpsVersionID), PropertyValue(QStringList{"2", "3", "0", "0"}));
    EXPECT_EQ(store.get(Id::GpsLatitudeNumerator), PropertyValue(QStringList{"48", "30", "0"}));
}

TEST_F(TaggedPhoto, ReadsThePositionOfXmpAlone) {
    tag({"-XMP-exif:GPSLatitude=-48.5", "-XMP-exif:GPSLongitude=11.25"});
    PropertyStore store(file);
    EXPECT_EQ(store.get(Id::GpsLatitudeDecimal), PropertyValue(-48.5));
    EXPECT_EQ(store.get(Id::GpsLatitudeRef), text("S"));
    EXPECT_EQ(store.get(Id::GpsLongitudeDecimal), PropertyValue(11.25));
}

TEST(PropertyRead, Sound) {
    const TemporaryFolder folder;
    support::writeWave(folder / "a.wav");
    support::writeFlac(folder / "b.flac");
    support::writeMp3(folder / "c.mp3");
    PropertyStore wave(folder / "a.wav");
    EXPECT_EQ(wave.get(Id::AudioChannelCount), number(1));
    EXPECT_EQ(wave.get(Id::AudioSampleRate), number(8000));
    EXPECT_EQ(wave.get(Id::AudioSampleSize), number(16));
    EXPECT_EQ(wave.get(Id::MediaDuration), number(10'000'000));
    support::writeSunSound(folder / "d.au");
    PropertyStore sun(folder / "d.au");
    EXPECT_EQ(sun.get(Id::AudioChannelCount), number(1));
    EXPECT_EQ(sun.get(Id::AudioSampleSize), number(16));
    EXPECT_EQ(sun.get(Id::AudioEncodingBitrate), number(128'000));
    EXPECT_EQ(sun.get(Id::MediaDuration), number(20'000'000));
    PropertyStore flac(folder / "b.flac");
    EXPECT_EQ(flac.get(Id::SummaryTitle), text("Rain"));
    EXPECT_EQ(flac.get(Id::MusicArtist), PropertyValue(QStringList{"Ann", "Bo"}));
    EXPECT_EQ(flac.get(Id::MusicDisplayArtist), text("Ann; Bo"));
    EXPECT_EQ(flac.get(Id::MusicTrackNumber), number(3));
    EXPECT_EQ(flac.get(Id::MediaDuration), number(100'000'000));
    EXPECT_EQ(flac.get(Id::AudioFormat), text("FLAC"));
    PropertyStore mp3(folder / "c.mp3");
    EXPECT_EQ(mp3.get(Id::AudioEncodingBitrate), number(128000));
    EXPECT_EQ(mp3.get(Id::AudioChannelCount), number(2));
    EXPECT_TRUE(isAbsent(mp3.get(Id::MusicArtist)));
    EXPECT_TRUE(isAbsent(mp3.get(Id::VideoTotalBitrate)));
}

TEST(PropertyRead, Film) {
    const TemporaryFolder folder;
    support::writeMp4(folder / "a.mp4");
    PropertyStore store(folder / "a.mp4");
    EXPECT_EQ(store.get(Id::VideoFrameWidth), number(320));
    EXPECT_EQ(store.get(Id::VideoFrameHeight), number(240));
    EXPECT_EQ(store.get(Id::VideoFourCC), text("avc1"));
    EXPECT_EQ(store.get(Id::MediaDuration), number(20'000'000));
    EXPECT_EQ(store.get(Id::MediaFrameCount), number(50));
    // Two seconds long.
    EXPECT_EQ(store.get(Id::VideoTotalBitrate),
              number(static_cast<std::int64_t>(fs::file_size(folder / "a.mp4")) * 4));
    EXPECT_EQ(store.get(Id::MediaDateEncoded), PropertyValue(platform::PointInTime{1'577'836'800 * kSecond}));
    EXPECT_TRUE(isAbsent(store.get(Id::AudioChannelCount)));
}

TEST(PropertyRead, WhatIsNoRegularFileHasNothingAndIsNotOpened) {
    const TemporaryFolder folder;
    ASSERT_EQ(::mkfifo((folder / "pipe.jpg").c_str(), 0600), 0);
    fs::create_symlink("nowhere", folder / "link.jpg");
    for (const fs::path& path : {folder / "pipe.jpg", folder / "link.jpg", folder / "absent.jpg",
                                 folder.path(), fs::path("/dev/null"), fs::path("/dev/zero")}) {
        PropertyStore store(path);
        EXPECT_FALSE(store.isOpen()) << path;
        for (std::size_t i = 0; i < properties::kPropertyCount; ++i)
            EXPECT_TRUE(isAbsent(store.get(static_cast<Id>(i))));
        EXPECT_EQ(store.set(Id::SummaryTitle, QString("x")), properties::PropertyResult::AccessDenied);
    }
}

TEST(PropertyRead, AnUnknownNumberHasNoValue) {
    const TemporaryFolder folder;
    support::writeJpeg(folder / "a.jpg");
    EXPECT_TRUE(isAbsent(PropertyStore(folder / "a.jpg").get(static_cast<Id>(4711))));
}

TEST(PropertyRead, NamesOfAllKinds) {
    const TemporaryFolder folder;
    for (const std::string& name : support::hostileNames()) {
        support::writeJpeg(folder / name);
        PropertyStore store(folder / name);
        EXPECT_EQ(store.get(Id::ImageHorizontalSize), number(32)) << name;
    }
    EXPECT_FALSE(fs::exists(folder / "owned"));
}

/// Files cut at every length, and with bytes turned over: nothing may crash, hang or print.
TEST(PropertyRead, DamagedFiles) {
    const TemporaryFolder folder;
    support::writeJpeg(folder / "a.jpg");
    support::ExifTool({"-q", "-overwrite_original", "-n", "-Make=Maker", "-FNumber=2.8",
                       "-GPS:GPSLatitude=48.5", "-GPS:GPSLatitudeRef=N", "-XMP-dc:Title=T",
                       "-IPTC:Keywords=k", "-UserComment=c", (folder / "a.jpg").string()});
    support::writeWave(folder / "a.wav");
    support::writeFlac(folder / "a.flac");
    support::writeMp3(folder / "a.mp3");
    support::writeMp4(folder / "a.mp4");
    support::writePng(folder / "a.png");
    support::ExifTool({"-q", "-overwrite_original", "-z", "-XMP-xmp:Rating=4", "-PNG:Title=Title Title Title",
                       "-PNG:CreationTime=2021:03:28 02:30:00", (folder / "a.mp4").string(),
                       (folder / "a.png").string()});
    support::writeAvi(folder / "a.avi", "", "Ann", "<x:xmpmeta xmlns:x='adobe:ns:meta/'></x:xmpmeta>");
    support::writeOggFilm(folder / "a.ogv", {{"TITLE", "Rain"}});
    support::writeMusepack(folder / "a.mpc", "Cy", "Rain");
    support::writeWindowsMedia(folder / "a.wmv", {{"WM/Director", "Di"}}, {"WM/MediaIsRepeat"});
    support::writeRaf(folder / "a.raf", support::readBytes(folder / "a.jpg"), 4256, 2848);
    support::writeSunSound(folder / "a.au");
    ::testing::internal::CaptureStderr();
    for (const char* extension :
         {".jpg", ".wav", ".flac", ".mp3", ".mp4", ".png", ".avi", ".ogv", ".mpc", ".wmv", ".raf", ".au"}) {
        const std::string whole = support::readBytes(folder / (std::string("a") + extension));
        const fs::path broken = folder / (std::string("broken") + extension);
        const auto readAll = [&](const std::string& bytes) {
            support::writeBytes(broken, bytes);
            PropertyStore store(broken);
            for (std::size_t i = 0; i < properties::kPropertyCount; ++i)
                static_cast<void>(store.get(static_cast<Id>(i)));
            EXPECT_EQ(store.get(Id::DiskFileSize), number(static_cast<std::int64_t>(bytes.size())));
        };
        const std::size_t head = std::min<std::size_t>(whole.size(), 2400);
        for (std::size_t length = 0; length < head; length += 1 + head / 40) readAll(whole.substr(0, length));
        std::uint32_t random = 1;
        for (int round = 0; round < 60; ++round) {
            std::string bytes = whole;
            for (int hits = 0; hits < 6; ++hits) {
                random = random * 1664525 + 1013904223;
                bytes[(random >> 8) % head] = static_cast<char>(random >> 24);
            }
            readAll(bytes);
        }
    }
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

TEST(PropertyRead, ANoteWithoutEndIsNotTakenIntoMemory) {
    const TemporaryFolder folder;
    support::ExifTool({"-q", "-XMP-dc:Title=T", "-o", (folder / "a.xmp").string()});
    EXPECT_EQ(PropertyStore(folder / "a.xmp").get(Id::SummaryTitle), text("T"));
    fs::resize_file(folder / "a.xmp", std::uintmax_t{8} << 30);
    EXPECT_TRUE(isAbsent(PropertyStore(folder / "a.xmp").get(Id::SummaryTitle)));
}

TEST(PropertyRead, AFileUnderTheWrongExtensionGivesNothingOfItsMedium) {
    const TemporaryFolder folder;
    support::writeWave(folder / "a.jpg");
    support::writeJpeg(folder / "b.mp3");
    EXPECT_TRUE(isAbsent(PropertyStore(folder / "a.jpg").get(Id::ImageHorizontalSize)));
    EXPECT_TRUE(isAbsent(PropertyStore(folder / "b.mp3").get(Id::SummaryTitle)));
}

TEST(PropertyRead, SeveralThreadsAtOnce) {
    const TemporaryFolder folder;
    support::writeJpeg(folder / "a.jpg");
    support::ExifTool({"-q", "-overwrite_original", "-XMP-dc:Title=T", (folder / "a.jpg").string()});
    support::writeMp4(folder / "b.mp4");
    std::atomic<int> good = 0;
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < 4; ++i)
            threads.emplace_back([&] {
                for (int round = 0; round < 25; ++round) {
                    const bool title = PropertyStore(folder / "a.jpg").get(Id::SummaryTitle) == text("T");
                    const bool width =
                        PropertyStore(folder / "b.mp4").get(Id::VideoFrameWidth) == number(320);
                    if (title && width) ++good;
                }
            });
    }
    EXPECT_EQ(good, 100);
}

}  // namespace
