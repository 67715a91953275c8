#include "platform/Text.h"
#include "properties/AudioProperties.h"
#include "properties/DocumentProperties.h"
#include "properties/FileProperties.h"
#include "properties/FilmNotes.h"
#include "properties/MacintoshTexts.h"
#include "properties/MediaFiles.h"
#include "properties/PhotoProperties.h"
#include "properties/PropertyStore.h"
#include "properties/StreamProperties.h"
#include "support/LocalZone.h"
#include "support/SmallFiles.h"
#include "support/TemporaryFolder.h"
#include "tags/PropertyCatalogue.h"

#include <gtest/gtest.h>

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringEncoder>
#include <QTimeZone>
#include <cmath>
#include <map>
#include <set>

// Values of properties beside those that ExifTool gives for the same files.

namespace {

namespace fs = std::filesystem;
using properties::PropertyStore;
using properties::PropertyValue;
using Id = properties::PropertyId;

/// A property of a file and ExifTool's tag for it, whose value has to be taken so many times.
struct Agreement {
    const char* file;
    Id property;
    const char* tag;
    double factor = 1;
};

constexpr double kCentimetresInAnInch = 2.54;
constexpr double kInchesInAMetre = 0.0254;

constexpr Agreement kAgreements[] = {
    {"photo.jpg", Id::PhotoDateTaken, "ExifIFD:DateTimeOriginal"},
    {"photo.jpg", Id::TextDateSaved, "IFD0:ModifyDate"},
    {"photo.jpg", Id::PhotoAperture, "ExifIFD:ApertureValue"},
    {"photo.jpg", Id::PhotoMaxAperture, "ExifIFD:MaxApertureValue"},
    {"photo.jpg", Id::PhotoShutterSpeed, "ExifIFD:ShutterSpeedValue"},
    {"photo.jpg", Id::PhotoFNumber, "ExifIFD:FNumber"},
    {"photo.jpg", Id::PhotoExposureTime, "ExifIFD:ExposureTime"},
    {"photo.jpg", Id::PhotoBrightness, "ExifIFD:BrightnessValue"},
    {"photo.jpg", Id::PhotoFocalLength, "ExifIFD:FocalLength"},
    {"photo.jpg", Id::PhotoFocalPlaneXResolution, "ExifIFD:FocalPlaneXResolution"},
    {"photo.jpg", Id::GpsLatitude, "GPS:GPSLatitude"},
    {"photo.jpg", Id::GpsLatitudeDecimal, "Composite:GPSLatitude"},
    {"photo.jpg", Id::GpsLongitudeDecimal, "Composite:GPSLongitude"},
    {"photo.jpg", Id::GpsAltitude, "GPS:GPSAltitude"},
    {"photo.jpg", Id::GpsDateStamp, "Composite:GPSDateTime"},
    {"photo.jpg", Id::ImageHorizontalResolution, "IFD0:XResolution", kCentimetresInAnInch},
    {"photo.jpg", Id::ImageVerticalResolution, "IFD0:YResolution", kCentimetresInAnInch},
    {"photo.jpg", Id::ImageResolutionUnit, "IFD0:ResolutionUnit"},
    {"note.xmp", Id::PhotoDateTaken, "XMP-exif:DateTimeOriginal"},
    {"note.xmp", Id::PhotoAperture, "XMP-exif:ApertureValue"},
    {"note.xmp", Id::GpsLatitudeDecimal, "XMP-exif:GPSLatitude"},
    {"note.xmp", Id::GpsLongitudeDecimal, "XMP-exif:GPSLongitude"},
    {"inch.jpg", Id::ImageHorizontalResolution, "JFIF:XResolution"},
    {"inch.jpg", Id::ImageVerticalResolution, "JFIF:YResolution"},
    {"cm.jpg", Id::ImageHorizontalResolution, "JFIF:XResolution", kCentimetresInAnInch},
    {"dense.png", Id::ImageHorizontalResolution, "PNG-pHYs:PixelsPerUnitX", kInchesInAMetre},
    {"dense.png", Id::ImageVerticalResolution, "PNG-pHYs:PixelsPerUnitY", kInchesInAMetre},
    {"wide.xmp", Id::PhotoDateTaken, "XMP-exif:DateTimeOriginal"},
    {"wide.xmp", Id::PhotoAperture, "XMP-exif:ApertureValue"},
    {"comment.jpg", Id::SummaryComment, "File:Comment"},
    {"described.jpg", Id::SummaryComment, "XMP-dc:Description"},
    {"dense.png", Id::ImageBitDepth, "PNG:BitDepth"},
    {"dense.png", Id::SummaryTitle, "PNG:Title"},
    {"dense.png", Id::SummaryAuthor, "PNG:Author"},
    {"dense.png", Id::SummaryComment, "PNG:Comment"},
    {"dense.png", Id::SummaryCopyright, "PNG:Copyright"},
    {"dense.png", Id::SummaryApplicationName, "PNG:Software"},
    {"dense.png", Id::PhotoDateTaken, "PNG:CreationTime"},
    {"raw.raf", Id::ImageHorizontalSize, "RAF:RawImageCroppedSize"},
    {"film.mp4", Id::SummaryTitle, "ItemList:Title"},
    {"film.mp4", Id::SummaryKeywords, "ItemList:Keyword"},
    {"film.mp4", Id::VideoDirector, "ItemList:Director"},
    {"film.mp4", Id::MusicPartOfSet, "ItemList:DiskNumber"},
    {"film.mp4", Id::MediaEpisodeNumber, "ItemList:TVEpisode"},
    {"film.mp4", Id::MediaSeasonNumber, "ItemList:TVSeason"},
    {"film.mp4", Id::MediaSeriesName, "ItemList:TVShow"},
    {"film.mp4", Id::MediaSubTitle, "ItemList:Subtitle"},
    {"film.mp4", Id::MediaEncodedBy, "ItemList:EncodedBy"},
    {"film.mp4", Id::TelevisionNetworkAffiliation, "ItemList:TVNetworkName"},
    {"film.mp4", Id::MediaDateEncoded, "QuickTime:CreateDate"},
    {"film.mp4", Id::MediaCreatorApplication, "ItemList:Encoder"},
    {"rated.mp4", Id::DiskRating, "XMP-xmp:Rating"},
    {"rated.mp4", Id::SummaryTitle, "XMP-dc:Title"},
    {"rated.mp4", Id::SummaryKeywords, "XMP-dc:Subject"},
    {"rated.mp4", Id::MusicAlbumTitle, "XMP-xmpDM:Album"},
    {"phone.mp4", Id::PhotoDateTaken, "Keys:CreationDate"},
    {"phone.mp4", Id::PhotoCameraManufacturer, "Keys:Make"},
    {"phone.mp4", Id::PhotoCameraModel, "Keys:Model"},
    {"phone.mp4", Id::VideoDirector, "Keys:Director"},
    {"old.mov", Id::SummaryTitle, "UserData:Title"},
    {"old.mov", Id::SummaryAuthor, "UserData:Artist"},
    {"film.mkv", Id::SummaryAuthor, "Matroska:Artist"},
    {"film.mkv", Id::MusicAlbumTitle, "Matroska:Album"},
    {"film.mkv", Id::MusicComposer, "Matroska:Composer"},
    {"film.mkv", Id::MusicPartOfSet, "Matroska:Disc"},
    {"film.mkv", Id::VideoDirector, "Matroska:Director"},
    {"film.mkv", Id::MediaEpisodeNumber, "Matroska:EpisodeSort"},
    {"film.mkv", Id::MediaSeriesName, "Matroska:Show"},
    {"film.avi", Id::PhotoDateTaken, "RIFF:DateTimeOriginal"},
    {"film.avi", Id::MediaDateEncoded, "RIFF:DateTimeOriginal"},
    {"film.avi", Id::SummaryAuthor, "RIFF:Artist"},
    {"film.avi", Id::DiskRating, "XMP-xmp:Rating"},
    {"film.avi", Id::VideoFrameWidth, "RIFF:ImageWidth"},
    {"song.flac", Id::SummaryComment, "Vorbis:Description"},
    {"song.flac", Id::SummaryTitle, "Vorbis:Title"},
    {"song.flac", Id::MediaCreatorApplication, "Vorbis:Encoder"},
    {"song.mpc", Id::SummaryTitle, "APE:Title"},
    {"song.mpc", Id::MusicComposer, "ID3v2_3:Composer"},
    {"film.ogv", Id::SummaryTitle, "Theora:Title"},
    {"film.ogv", Id::MusicArtist, "Theora:Artist"},
    {"film.ogv", Id::VideoDirector, "Theora:Director"},
    {"film.wmv", Id::VideoDirector, "ASF:Director"},
    {"film.wmv", Id::MediaClassPrimaryID, "ASF:MediaClassPrimaryID"},
    {"film.wmv", Id::MediaProviderStyle, "ASF:ProviderStyle"},
    {"film.wmv", Id::TelevisionEpisodeName, "ASF:Subtitle"},
    {"film.wmv", Id::TelevisionStationName, "ASF:MediaStationName"},
    {"film.wmv", Id::TelevisionIsRepeatBroadcast, "ASF:MediaIsRepeat"},
    {"film.wmv", Id::TelevisionOriginalBroadcastDate, "ASF:MediaOriginalBroadcastDateTime"},
};

/// What has no value, although something stands in the file.
constexpr std::pair<const char*, Id> kAbsent[] = {
    {"empty.jpg", Id::PhotoDateTaken},    {"empty.jpg", Id::PhotoSubjectDistance},
    {"empty.jpg", Id::PhotoExposureBias}, {"empty.jpg", Id::PhotoExposureBiasNumerator},
    {"empty.jpg", Id::PhotoMaxAperture},  {"empty.jpg", Id::ImageHorizontalResolution},
    {"never.mp4", Id::MediaDateEncoded},  {"never.mp4", Id::PhotoDateTaken},
    {"film.avi", Id::VideoDirector},      {"film.mkv", Id::VideoFourCC},
};

void makePhotos(const fs::path& folder) {
    const auto tag = [&](const char* name, std::vector<std::string> arguments) {
        if (!fs::exists(folder / name)) support::writeJpeg(folder / name);
        arguments.insert(arguments.begin(), {"-q", "-overwrite_original", "-n"});
        arguments.push_back((folder / name).string());
        support::ExifTool(arguments);
    };
    tag("photo.jpg", {"-ExifIFD:DateTimeOriginal=2021:03:28 02:30:00",
                      "-ExifIFD:OffsetTimeOriginal=+09:00",
                      "-IFD0:ModifyDate=2021:03:28 02:45:00",
                      "-ExifIFD:ApertureValue=5.6",
                      "-ExifIFD:MaxApertureValue=1.8",
                      "-ExifIFD:ShutterSpeedValue=0.004",
                      "-ExifIFD:FNumber=5.6",
                      "-ExifIFD:ExposureTime=0.004",
                      "-ExifIFD:BrightnessValue=-1.5",
                      "-ExifIFD:FocalLength=50.5",
                      "-ExifIFD:FocalPlaneXResolution=2000",
                      "-GPS:GPSLatitude=48.508333",
                      "-GPS:GPSLatitudeRef=S",
                      "-GPS:GPSLongitude=11.251",
                      "-GPS:GPSLongitudeRef=W",
                      "-GPS:GPSAltitude=519.5",
                      "-GPS:GPSDateStamp=2001:09:09",
                      "-GPS:GPSTimeStamp=01:46:40",
                      "-IFD0:XResolution=100",
                      "-IFD0:YResolution=50",
                      "-IFD0:ResolutionUnit=3"});
    tag("empty.jpg", {"-ExifIFD:DateTimeOriginal=0000:00:00 00:00:00", "-ExifIFD:SubjectDistance=undef",
                      "-ExifIFD:ExposureCompensation=undef", "-ExifIFD:MaxApertureValue=undef",
                      "-IFD0:XResolution=1", "-IFD0:YResolution=1", "-IFD0:ResolutionUnit=1"});
    tag("inch.jpg", {"-JFIF:XResolution=300", "-JFIF:YResolution=150", "-JFIF:ResolutionUnit=1"});
    tag("cm.jpg", {"-JFIF:XResolution=100", "-JFIF:YResolution=50", "-JFIF:ResolutionUnit=2"});
    support::writePng(folder / "dense.png");
    tag("dense.png",
        {"-PNG-pHYs:PixelsPerUnitX=11811", "-PNG-pHYs:PixelsPerUnitY=2835", "-PNG-pHYs:PixelUnits=1",
         "-PNG:Author=Ann", "-PNG:Comment=Note", "-PNG:Copyright=Ann 2020", "-PNG:Software=Program",
         "-PNG:CreationTime=2021:03:28 02:30:00"});
    // Packed, and in letters beyond Latin.
    tag("dense.png", {"-z", "-PNG:Title=" + std::string(40, 'T') + "ĄŁŻ"});
    tag("comment.jpg", {"-File:Comment=Größe"});
    tag("described.jpg", {"-XMP-dc:Description=What it shows", "-File:Comment=Program"});
    // Cameras write the tags right behind the beginning.
    tag("inner.jpg",
        {"-JFIF:all=", "-ExifIFD:FNumber=2", "-ExifIFD:ExifImageWidth=1440", "-ExifIFD:ExifImageHeight=960"});
    support::writeRaf(folder / "raw.raf", support::readBytes(folder / "inner.jpg"), 4256, 2848);
    tag("faces.jpg",
        {"-XMP-mwg-rs:RegionInfo={RegionList=[{Name=Zoe,Type=Face},{Name=Rex,Type=Pet},{Name=Bo,Type=Face},"
         "{Name=Nobody}]}",
         "-XMP-MP:RegionInfoMP={Regions=[{PersonDisplayName=Uli}]}"});
    support::ExifTool({"-q", "-n", "-XMP-exif:DateTimeOriginal=2021:03:28 02:30:00+05:00",
                       "-XMP-exif:ApertureValue=4", "-XMP-exif:GPSLatitude=-48.50875",
                       "-XMP-exif:GPSLongitude=11.25", "-o", (folder / "note.xmp").string()});
    QStringEncoder wide(QStringConverter::Utf16BE, QStringConverter::Flag::WriteBom);
    const QByteArray note = wide(QString::fromStdString(support::readBytes(folder / "note.xmp")));
    support::writeBytes(folder / "wide.xmp", note.toStdString());
}

void makeMedia(const fs::path& folder) {
    const auto tag = [&](const char* name, std::vector<std::string> arguments) {
        support::writeMp4(folder / name);
        arguments.insert(arguments.begin(), {"-q", "-overwrite_original", "-n"});
        arguments.push_back((folder / name).string());
        support::ExifTool(arguments);
    };
    tag("film.mp4", {"-ItemList:Title=Größe", "-ItemList:Keyword=kw", "-ItemList:Director=Dir",
                     "-ItemList:DiskNumber=1 2", "-ItemList:TVEpisode=5", "-ItemList:TVSeason=2",
                     "-ItemList:TVShow=Show", "-ItemList:Subtitle=Sub", "-ItemList:EncodedBy=Eve",
                     "-ItemList:Encoder=Program", "-ItemList:TVNetworkName=Net"});
    tag("phone.mp4", {"-Keys:CreationDate=2021:03:28 02:30:00+09:00", "-Keys:Make=Maker",
                      "-Keys:Model=Model 5", "-Keys:Director=Dir"});
    tag("rated.mp4", {"-XMP-xmp:Rating=4", "-XMP-dc:Title=Größe", "-XMP-dc:Subject=one",
                      "-XMP-dc:Subject=two", "-XMP-xmpDM:Album=Alb"});
    tag("never.mp4",
        {"-QuickTime:CreateDate=0000:00:00 00:00:00", "-QuickTime:ModifyDate=0000:00:00 00:00:00"});
    // "Größe" and "Zoë"
    support::writeMacintoshMovie(folder / "old.mov", {{"\251nam",
                                                       "Gr\x9A\xA7"
                                                       "e"},
                                                      {"\251ART", "Zo\x91"}});
    support::writeMatroska(folder / "film.mkv", {{"ARTIST", "Ann"},
                                                 {"ALBUM", "Größe"},
                                                 {"COMPOSER", "Cy"},
                                                 {"DISC", "1/2"},
                                                 {"DIRECTOR", "Di"},
                                                 {"EPISODE_SORT", "5"},
                                                 {"SHOW", "Show"}});
    const std::string note = support::ExifTool({"-b", "-XMP", (folder / "rated.mp4").string()});
    support::writeAvi(folder / "film.avi", "Sun Mar 28 02:30:00 2021\n", "Ann", note);
    support::writeFlac(folder / "song.flac",
                       {{"TITLE", "Rain"}, {"DESCRIPTION", "Größe"}, {"ENCODER", "Program"}});
    support::writeMusepack(folder / "song.mpc", "Cy", "Rain");
    support::writeOggFilm(folder / "film.ogv", {{"TITLE", std::string(300, 'T')},
                                                {"ARTIST", "Ann"},
                                                {"PERFORMER", "Someone else"},
                                                {"DIRECTOR", "Di"}});
    support::writeWindowsMedia(folder / "film.wmv",
                               {{"WM/Director", "Di"},
                                {"WM/ProviderStyle", "Jazz"},
                                {"WM/SubTitle", "Episode"},
                                {"WM/MediaStationName", "Station"},
                                {"WM/MediaClassPrimaryID", "{DB9830BD-3AB3-4FAB-8A37-1A995F7FF74B}"},
                                {"WM/MediaOriginalBroadcastDateTime", "2020-01-02T03:04:05Z"}},
                               {"WM/MediaIsRepeat"});
}

std::map<std::string, QJsonObject> judged(const fs::path& folder) {
    const std::string output = support::ExifTool({"-q", "-j", "-a", "-G1", "-n", folder.string()});
    std::map<std::string, QJsonObject> values;
    for (const QJsonValue& one : QJsonDocument::fromJson(QByteArray::fromStdString(output)).array())
        values[fs::path(one.toObject()["SourceFile"].toString().toStdString()).filename()] = one.toObject();
    return values;
}

std::optional<double> numberOf(const PropertyValue& value) {
    if (const auto* number = std::get_if<std::int64_t>(&value)) return static_cast<double>(*number);
    if (const auto* number = std::get_if<double>(&value)) return *number;
    if (const auto* fraction = std::get_if<properties::Rational>(&value))
        return static_cast<double>(fraction->numerator) / static_cast<double>(fraction->denominator);
    if (const auto* angle = std::get_if<properties::Angle>(&value))
        return (*angle)[0] + (*angle)[1] / 60 + (*angle)[2] / 3600;
    return std::nullopt;
}

QString textOf(const PropertyValue& value) {
    static const QString form = QStringLiteral("yyyy:MM:dd HH:mm:ss");
    if (const auto* text = std::get_if<QString>(&value)) return *text;
    if (const auto* list = std::get_if<QStringList>(&value)) return list->join(QStringLiteral(", "));
    const auto digits = [](std::int64_t nanoseconds) {
        return QDateTime::fromMSecsSinceEpoch(nanoseconds / 1'000'000, Qt::UTC).toString(form);
    };
    if (const auto* time = std::get_if<platform::PointInTime>(&value)) return digits(time->nanoseconds);
    if (const auto* time = std::get_if<properties::LocalTime>(&value)) return digits(time->nanoseconds);
    return {};
}

void expectAgreement(const PropertyValue& value, const QJsonValue& expected, double factor) {
    if (const auto number = numberOf(value)) {
        // Of a size in two numbers the first.
        const QString text = expected.toVariant().toString().section(u' ', 0, 0);
        const double judge = text.toLower() == u"true" ? 1 : text.toDouble() * factor;
        EXPECT_NEAR(*number, judge, std::max(std::abs(judge) * 1e-4, 1e-9));
        return;
    }
    // Times come with their zone behind them, numbers out of how many in words.
    const QStringList all = expected.toVariant().toStringList();
    QString judge = (expected.isArray() ? all.join(QStringLiteral(", ")) : expected.toVariant().toString());
    judge.replace(QStringLiteral(" of "), QStringLiteral("/"));
    const bool isTime = std::holds_alternative<platform::PointInTime>(value) ||
                        std::holds_alternative<properties::LocalTime>(value);
    if (isTime) judge = judge.left(19);
    EXPECT_EQ(textOf(value), judge);
}

/// Sees the world from a place with summer time: none of it may show in what clocks elsewhere showed.
TEST(PropertyAgreement, ValuesAreThoseOfExifTool) {
    const support::TemporaryFolder folder;
    makePhotos(folder.path());
    makeMedia(folder.path());
    const std::map<std::string, QJsonObject> values = judged(folder.path());
    const support::LocalZone here("CET-1CEST,M3.5.0,M10.5.0/3");
    for (const Agreement& one : kAgreements) {
        SCOPED_TRACE(std::string(one.file) + " " + one.tag + " " +
                     std::to_string(static_cast<int>(one.property)));
        ASSERT_TRUE(values.contains(one.file));
        const QJsonValue expected = values.at(one.file)[QLatin1StringView(one.tag)];
        ASSERT_FALSE(expected.isUndefined()) << "the judge has no such value";
        const PropertyValue value = PropertyStore(folder / one.file).get(one.property);
        EXPECT_FALSE(properties::isAbsent(value));
        if (!properties::isAbsent(value)) expectAgreement(value, expected, one.factor);
    }
    for (const auto& [file, property] : kAbsent)
        EXPECT_TRUE(properties::isAbsent(PropertyStore(folder / file).get(property)))
            << file << " " << static_cast<int>(property);
    EXPECT_EQ(PropertyStore(folder / "faces.jpg").get(Id::PhotoPeopleNames),
              PropertyValue(QStringList{"Uli", "Zoe", "Bo"}));
}

/// "Category.Name" of the rows of the document's last table.
std::set<QString> propertiesWithoutSource() {
    const std::string document =
        support::readBytes(fs::path(TAGWRIGHT_SOURCE_DIR) / "docs" / "properties.md");
    std::set<QString> names;
    const QString table = QString::fromStdString(document).section(QStringLiteral("## Without a source"), 1);
    for (const QString& line : table.split(u'\n')) {
        const QStringList cells = line.split(QStringLiteral(" | "));
        if (!line.startsWith(u"| ") || cells.size() != 2) continue;
        for (const QString& name : cells[1].chopped(2).split(QStringLiteral(", ")))
            names.insert(cells[0].mid(2) + u'.' + name.trimmed());
    }
    names.erase(QStringLiteral("category.properties"));
    return names;
}

TEST(PropertyDocument, NamesThePropertiesThatNoReaderKnows) {
    using namespace properties;
    std::set<QString> unknown;
    for (const tags::PropertyRecord& row : tags::propertyRows()) {
        const auto property = static_cast<Id>(row.propertyId);
        const bool isKnown = fileCanGive(property) || photoCanGive(property) || audioCanGive(property) ||
                             streamsCanGive(property) || macintoshTextsCanGive(property) ||
                             filmNotesCanGive(property) || documentsCanGive(property);
        if (!isKnown) unknown.insert(platform::wide(row.category) + u'.' + platform::wide(row.name));
    }
    EXPECT_EQ(propertiesWithoutSource(), unknown);
}

}  // namespace
