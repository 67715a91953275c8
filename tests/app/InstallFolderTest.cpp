#include "support/SmallFiles.h"
#include "support/TemporaryFolder.h"

#include <cstdlib>

namespace {

namespace fs = std::filesystem;

const fs::path kSource = TAGWRIGHT_SOURCE_DIR;

int layOut(const fs::path& install) {
    const std::string command = "cmake -DINSTALL='" + install.string() + "' -DFIRST_RUN='" +
                                (kSource / "data").string() + "' -P '" +
                                (kSource / "data/LayOutInstallFolder.cmake").string() + "'";
    return std::system(command.c_str());
}

TEST(InstallFolder, ANewOneIsCompleteWithTheFirstRunSettings) {
    const support::TemporaryFolder folder;
    ASSERT_EQ(layOut(folder.path()), 0);
    for (const char* inside :
         {"babel", "cache/reports", "cache/sav", "Temp", "data/sets", "data/web", "MyBatch", "samples"})
        EXPECT_TRUE(fs::is_directory(folder / inside)) << inside;
    EXPECT_EQ(support::readBytes(folder / "cache/Tagwright.ini"),
              support::readBytes(kSource / "data/first-run.ini"));
}

TEST(InstallFolder, TheUsersSettingsSurviveABuild) {
    const support::TemporaryFolder folder;
    ASSERT_EQ(layOut(folder.path()), 0);
    support::writeBytes(folder / "cache/Tagwright.ini", "[Main]\nViewMode=3\n");
    support::writeBytes(folder / "cache/sav/photo.jpg", "kept");
    ASSERT_EQ(layOut(folder.path()), 0);
    EXPECT_EQ(support::readBytes(folder / "cache/Tagwright.ini"), "[Main]\nViewMode=3\n");
    EXPECT_TRUE(fs::exists(folder / "cache/sav/photo.jpg"));
}

TEST(InstallFolder, EverySamplePictureIsSmallAndRichInMetadata) {
    int pictures = 0;
    for (const fs::directory_entry& sample : fs::directory_iterator(kSource / "data" / "samples")) {
        EXPECT_LT(sample.file_size(), 60'000u) << sample.path();
        if (sample.path().extension() != ".jpg") continue;
        ++pictures;
        const std::string tags = support::ExifTool({"-G1", "-s", "-a", sample.path().string()});
        for (const char* group : {"[IFD0]", "[ExifIFD]", "[GPS]", "[IFD1]", "[IPTC]", "[XMP-dc]", "[XMP-xmp]",
                                  "[XMP-photoshop]", "[ICC_Profile]", "[Composite]", "[JFIF]"})
            EXPECT_NE(tags.find(group), std::string::npos) << sample.path() << ' ' << group;
        EXPECT_EQ(tags.find("[MakerNotes]"), std::string::npos);
    }
    EXPECT_GE(pictures, 8);
}

}  // namespace
