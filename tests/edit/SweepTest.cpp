#include "sweep/Sweep.h"

#include "support/EditedFile.h"
#include "support/ManyFormats.h"
#include "sweep/ExpectedChanges.h"

#include <sstream>

namespace fs = std::filesystem;

namespace {

/// Files in which an edit could lead astray: translations, twins, lists, texts that show as others.
class Sweep : public EditedFile {
 protected:
    Sweep() {
        context.installPath = TAGWRIGHT_BIN_DIR;
        support::makeFilesOfManyFormats(folder / "photos");
        starter.Start(context.exifToolPath, context.installPath / "warm", "en");
        starter.isReadyWithin(std::chrono::seconds(10));
    }

    fs::path tagged(const char* name, std::vector<std::string> arguments) const {
        const fs::path file = folder / "photos" / name;
        arguments.insert(arguments.begin(), {"-q", "-overwrite_original"});
        arguments.push_back(file.string());
        support::ExifTool(arguments);
        return file;
    }

    exiftool::WarmStarter starter;
};

}  // namespace

TEST_F(Sweep, EveryEditLeavesTheRestOfTheFileAsItWas) {
    const std::vector<std::string> shared = {"-XMP-dc:Title=plain",
                                             "-XMP-dc:Title-de=deutsch",
                                             "-XMP-dc:Rights-fr=fran\xC3\xA7"
                                             "ais ",
                                             "-XMP-dc:Date=2001",
                                             "-XMP-dc:Date=2002:03:04",
                                             "-XMP-dc:Subject=a, b\n",
                                             "-XMP-dc:Subject=c",
                                             "-XMP-xmp:Rating=3"};
    std::vector<std::string> all = shared;
    all.insert(all.end(),
               {"-IFD0:Artist=gr\xFC\xDF", "-IFD0:Orientation#=6", "-ExifIFD:ExposureTime=1/30",
                "-ExifIFD:DateTimeOriginal=2015:06:01 12:13:14", "-GPS:GPSLatitude=11.5", "-IPTC:Keywords=a",
                "-IPTC:Keywords=\xE6\x9D\xB1", "-IPTC:Headline=kept\x01", "-File:Comment=one\r\ntwo"});
    const std::vector<fs::path> files = {
        tagged("photo.jpg", all), tagged("picture.png", shared),
        tagged("film.mov", {"-ItemList:Title=plain", "-ItemList:Title-deu-DE=deutsch", "-Keys:Title=plain",
                            "-Keys:Title-deu-DE=deutsch", "-ItemList:Artist=x"})};
    sweep::Figures figures;
    std::ostringstream output;
    for (const fs::path& file : files) sweep::sweepFile(context, &starter, file, figures, output);
    EXPECT_EQ(figures.files, files.size());
    EXPECT_EQ(figures.astray, 0U) << output.str();
    // Two versions of standards take digits alone.
    EXPECT_LE(figures.refused + figures.declined, 2U) << output.str();
    EXPECT_GT(figures.written, 20U) << output.str();
    EXPECT_EQ(figures.unchanged, 0U) << output.str();
}

TEST(ExpectedChanges, HoldForWhatTheyNameAlone) {
    EXPECT_NE(sweep::reasonOfChange("XMP-dc", "Title", "XMP-x", "XMPToolkit"), "");
    EXPECT_EQ(sweep::reasonOfChange("IFD0", "Make", "XMP-x", "XMPToolkit"), "");
    EXPECT_EQ(sweep::reasonOfChange("XMP-dc", "Title", "XMP-dc", "Title-de"), "");
    EXPECT_EQ(sweep::reasonOfChange("IFD0", "Make", "IFD0", "Model"), "");
}
