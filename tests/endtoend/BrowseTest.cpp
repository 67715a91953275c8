#include "DrivenProgram.h"

#include "support/SmallFiles.h"

#include <gtest/gtest.h>

using endtoend::DrivenProgram;

namespace {

class BrowseTest : public ::testing::Test {
 protected:
    QString photo(const std::string& name, const std::string& title) {
        const auto file = folder / name;
        support::WriteJpeg(file);
        support::ExifTool({"-q", "-overwrite_original", "-XMP-dc:Title=" + title, file.string()});
        return QString::fromStdString(name);
    }
    QString path(const char* name = "") { return QString::fromStdString((folder / name).string()); }

    support::TemporaryFolder folder;
};

}  // namespace

TEST_F(BrowseTest, AClickedFileShowsItsTagsAndTheStatusReturnsToReady) {
    photo("img2.jpg", "second");
    photo("img10.jpg", "tenth");
    DrivenProgram program;
    program.tell("open", {path()});
    EXPECT_EQ(program.fileNames(), QStringList({"img2.jpg", "img10.jpg"})) << "natural order";
    program.tell("click", {"img10.jpg"});
    EXPECT_EQ(program.value("XMP-dc", "Title"), "tenth");
    EXPECT_EQ(program.status(), "Ready");
    program.tell("key", {"Up"});
    EXPECT_EQ(program.value("XMP-dc", "Title"), "tenth") << "the keyboard selects without reading";
    program.tell("click", {"img2.jpg"});
    EXPECT_EQ(program.value("XMP-dc", "Title"), "second");
    EXPECT_EQ(program.quit(), 0);
}
