#include "properties/MediaFiles.h"
#include "properties/PropertyStore.h"
#include "support/SmallFiles.h"
#include "support/TemporaryFolder.h"
#include "tags/PropertyCatalogue.h"

#include <gtest/gtest.h>

#include <QString>
#include <algorithm>
#include <map>
#include <set>
#include <sstream>

// What a write of a property leaves in the file, as ExifTool sees it.

namespace fs = std::filesystem;
using properties::PropertyResult;
using properties::PropertyStore;
using properties::PropertyValue;
using Id = properties::PropertyId;

namespace {

using Lines = std::set<std::string>;

/// "Group:Tag=value" of all tags of all files of the folder, by the file's name, but for what stands outside
/// of the files and what is only computed.
std::map<std::string, Lines> tagsIn(const fs::path& folder) {
    std::istringstream printed(
        support::ExifTool({"-a", "-G1", "-s", "-n", "-r", "-x", "System:all", "-x", "File:all", "-x",
                           "ExifTool:all", "-x", "Composite:all", folder.string()}));
    std::map<std::string, Lines> all;
    Lines* lines = nullptr;
    for (std::string line; std::getline(printed, line);) {
        if (line.starts_with("======== ")) lines = &all[fs::path(line.substr(9)).filename().string()];
        const std::size_t bracket = line.find(']');
        const std::size_t colon = line.find(": ");
        if (lines == nullptr || !line.starts_with('[') || colon == std::string::npos) continue;
        std::istringstream tag(line.substr(bracket + 1, colon - bracket - 1));
        std::string name;
        tag >> name;
        lines->insert(line.substr(1, bracket - 1) + ":" + name + "=" + line.substr(colon + 2));
    }
    return all;
}

/// A row that a file of this kind takes, and the line that ExifTool must then give for it, or its beginning.
struct Landing {
    Id property;
    const char* extension;
    const char* line;
};

// What a photo or song takes; everything else it refuses. The text that is written is "2", the time one of
// the ninth of September 2001.
constexpr Landing kLandings[] = {
    {Id::DiskDateImported, ".jpg", "XMP-microsoft:DateAcquired=2001:09:0"},
    {Id::DiskRating, ".jpg", "XMP-xmp:Rating=2"},
    {Id::SummaryApplicationName, ".jpg", "IFD0:Software=2"},
    {Id::SummaryAuthor, ".jpg", "XMP-dc:Creator=2"},
    {Id::SummaryCategory, ".jpg", "XMP-photoshop:Category=2"},
    {Id::SummaryComment, ".jpg", "IFD0:XPComment=2"},
    {Id::SummaryCopyright, ".jpg", "XMP-dc:Rights=2"},
    {Id::SummaryKeywords, ".jpg", "XMP-dc:Subject=2"},
    {Id::SummarySubject, ".jpg", "IFD0:XPSubject=2"},
    {Id::SummaryTitle, ".jpg", "XMP-dc:Title=2"},
    {Id::ImageImageID, ".jpg", "ExifIFD:ImageUniqueID=2"},
    {Id::PhotoAperture, ".jpg", "ExifIFD:ApertureValue=2"},
    {Id::PhotoBrightness, ".jpg", "ExifIFD:BrightnessValue=2"},
    {Id::PhotoCameraManufacturer, ".jpg", "IFD0:Make=2"},
    {Id::PhotoCameraModel, ".jpg", "IFD0:Model=2"},
    {Id::PhotoSerialNumber, ".jpg", "ExifIFD:SerialNumber=2"},
    {Id::PhotoContrast, ".jpg", "ExifIFD:Contrast=2"},
    {Id::PhotoDateTaken, ".jpg", "ExifIFD:DateTimeOriginal=2001:09:0"},
    {Id::PhotoDigitalZoom, ".jpg", "ExifIFD:DigitalZoomRatio=2"},
    {Id::PhotoEvent, ".jpg", "XMP-iptcExt:Event=2"},
    {Id::PhotoExposureBias, ".jpg", "ExifIFD:ExposureCompensation=2"},
    {Id::PhotoExposureIndex, ".jpg", "ExifIFD:ExposureIndex=2"},
    {Id::PhotoExposureProgram, ".jpg", "ExifIFD:ExposureProgram=2"},
    {Id::PhotoExposureTime, ".jpg", "ExifIFD:ExposureTime=2"},
    {Id::PhotoFlashEnergy, ".jpg", "ExifIFD:FlashEnergy=2"},
    {Id::PhotoFlashManufacturer, ".jpg", "XMP-microsoft:FlashManufacturer=2"},
    {Id::PhotoFlashModel, ".jpg", "XMP-microsoft:FlashModel=2"},
    {Id::PhotoFNumber, ".jpg", "ExifIFD:FNumber=2"},
    {Id::PhotoFocalLength, ".jpg", "ExifIFD:FocalLength=2"},
    {Id::PhotoFocalLengthInFilm, ".jpg", "ExifIFD:FocalLengthIn35mmFormat=2"},
    {Id::PhotoFocalPlaneXResolution, ".jpg", "ExifIFD:FocalPlaneXResolution=2"},
    {Id::PhotoFocalPlaneYResolution, ".jpg", "ExifIFD:FocalPlaneYResolution=2"},
    {Id::PhotoGainControl, ".jpg", "ExifIFD:GainControl=2"},
    {Id::PhotoISOSpeed, ".jpg", "ExifIFD:ISO=2"},
    {Id::PhotoLensManufacturer, ".jpg", "ExifIFD:LensMake=2"},
    {Id::PhotoLensModel, ".jpg", "ExifIFD:LensModel=2"},
    {Id::PhotoLightSource, ".jpg", "ExifIFD:LightSource=2"},
    {Id::PhotoMaxAperture, ".jpg", "ExifIFD:MaxApertureValue=2"},
    {Id::PhotoMeteringMode, ".jpg", "ExifIFD:MeteringMode=2"},
    {Id::PhotoOrientation, ".jpg", "IFD0:Orientation=2"},
    {Id::PhotoPeopleNames, ".jpg", "XMP-iptcExt:PersonInImage=2"},
    {Id::PhotoProgramMode, ".jpg", "ExifIFD:ExposureProgram=2"},
    {Id::PhotoRelatedSoundFile, ".jpg", "ExifIFD:RelatedSoundFile=2"},
    {Id::PhotoSaturation, ".jpg", "ExifIFD:Saturation=2"},
    {Id::PhotoSharpness, ".jpg", "ExifIFD:Sharpness=2"},
    {Id::PhotoShutterSpeed, ".jpg", "ExifIFD:ShutterSpeedValue=2"},
    {Id::PhotoSubjectDistance, ".jpg", "ExifIFD:SubjectDistance=2"},
    {Id::PhotoWhiteBalance, ".jpg", "ExifIFD:WhiteBalance=2"},
    {Id::TextDateSaved, ".jpg", "IFD0:ModifyDate=2001:09:0"},
    {Id::SummaryAuthor, ".mp3", "ID3v2_4:Artist=2"},
    {Id::SummaryKeywords, ".mp3", "ID3v2_4:UserDefinedText=(KEYWORDS) 2"},
    {Id::SummaryComment, ".mp3", "ID3v2_4:Comment-xxx=2"},
    {Id::SummaryCopyright, ".mp3", "ID3v2_4:Copyright=2"},
    {Id::SummarySubject, ".mp3", "ID3v2_4:UserDefinedText=(CONTENTGROUP) 2"},
    {Id::SummaryTitle, ".mp3", "ID3v2_4:Title=2"},
    {Id::MusicAlbumArtist, ".mp3", "ID3v2_4:Band=2"},
    {Id::MusicAlbumID, ".mp3", "ID3v2_4:UserDefinedText=(MUSICBRAINZ ALBUM ID) 2"},
    {Id::MusicAlbumTitle, ".mp3", "ID3v2_4:Album=2"},
    {Id::MusicArtist, ".mp3", "ID3v2_4:Artist=2"},
    {Id::MusicBeatsPerMinute, ".mp3", "ID3v2_4:BeatsPerMinute=2"},
    {Id::MusicComposer, ".mp3", "ID3v2_4:Composer=2"},
    {Id::MusicConductor, ".mp3", "ID3v2_4:Conductor=2"},
    {Id::MusicDiscNumber, ".mp3", "ID3v2_4:PartOfSet=2"},
    {Id::MusicGenre, ".mp3", "ID3v2_4:Genre=2"},
    {Id::MusicInitialKey, ".mp3", "ID3v2_4:InitialKey=2"},
    {Id::MusicIsCompilation, ".mp3", "ID3v2_4:Compilation=2"},
    {Id::MusicLyrics, ".mp3", "ID3v2_4:Lyrics-xxx=(LYRICS) 2"},
    {Id::MusicMood, ".mp3", "ID3v2_4:Mood=2"},
    {Id::MusicPartOfSet, ".mp3", "ID3v2_4:PartOfSet=2"},
    {Id::MusicPeriod, ".mp3", "ID3v2_4:UserDefinedText=(PERIOD) 2"},
    {Id::MusicTrackNumber, ".mp3", "ID3v2_4:Track=2"},
    {Id::MediaAuthorUrl, ".mp3", "ID3v2_4:ArtistURL=2"},
    {Id::MediaCopyright, ".mp3", "ID3v2_4:Copyright=2"},
    {Id::MediaDateReleased, ".mp3", "ID3v2_4:ReleaseTime=2"},
    {Id::MediaEncodedBy, ".mp3", "ID3v2_4:EncodedBy=2"},
    {Id::MediaEncodingSettings, ".mp3", "ID3v2_4:EncoderSettings=2"},
    {Id::MediaProducer, ".mp3", "ID3v2_4:InvolvedPeople=PRODUCER/2"},
    {Id::MediaPromotionUrl, ".mp3", "ID3v2_4:PublisherURL=2"},
    {Id::MediaPublisher, ".mp3", "ID3v2_4:Publisher=2"},
    {Id::MediaSubTitle, ".mp3", "ID3v2_4:Subtitle=2"},
    {Id::MediaUserWebUrl, ".mp3", "ID3v2_4:FileURL=2"},
    {Id::MediaWriter, ".mp3", "ID3v2_4:Lyricist=2"},
    {Id::MediaYear, ".mp3", "ID3v2_4:RecordingTime=2"},
};

bool begins(const Lines& lines, const std::string& line) {
    return std::ranges::any_of(lines, [&](const std::string& one) {
        // A time goes on with what depends on the zone of this machine; a text does not.
        return line.ends_with(":0") ? one.starts_with(line) : one == line;
    });
}

}  // namespace

TEST(WritableRows, EachIsRefusedOrLandsInTheTagThatItIsNamedFor) {
    const support::TemporaryFolder folder;
    support::writeJpeg(folder / "plain.jpg");
    support::writeMp3(folder / "plain.mp3");
    std::set<std::string> written;
    for (const tags::PropertyRecord& row : tags::propertyRows()) {
        if (row.writable == 0) continue;
        for (const char* extension : {".jpg", ".mp3"}) {
            const std::string name = std::to_string(row.propertyId) + extension;
            fs::copy_file(folder / (std::string("plain") + extension), folder / name);
            PropertyStore store(folder / name);
            const PropertyValue value = row.valueKind == 0
                                            ? PropertyValue(platform::PointInTime{1'000'036'800'000'000'000})
                                            : PropertyValue(QString("2"));
            if (store.set(static_cast<Id>(row.propertyId), value) != PropertyResult::Ok) continue;
            EXPECT_EQ(store.commit(), PropertyResult::Ok) << name;
            written.insert(name);
        }
    }
    const std::map<std::string, Lines> found = tagsIn(folder.path());
    for (const Landing& landing : kLandings) {
        const std::string name = std::to_string(static_cast<int>(landing.property)) + landing.extension;
        EXPECT_EQ(written.erase(name), 1U) << name << " is refused";
        ASSERT_TRUE(found.contains(name)) << name;
        const Lines& plain = found.at(std::string("plain") + landing.extension);
        EXPECT_FALSE(begins(plain, landing.line)) << landing.line;
        EXPECT_TRUE(begins(found.at(name), landing.line))
            << landing.line << " of " << name << ": " << testing::PrintToString(found.at(name));
    }
    EXPECT_EQ(written, std::set<std::string>()) << "taken and not known";
}
