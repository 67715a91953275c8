#include "tags/ExtensionTable.h"

#include <gmock/gmock.h>
#include <map>

namespace {

using tags::ExtensionRecord;
using tags::FileClass;

TEST(ExtensionTable, HoldsAsManyRowsOfEachSupportAsItShould) {
    std::map<int, int> rows;
    for (const ExtensionRecord& row : tags::ExtensionTable()) ++rows[row.support];
    EXPECT_THAT(rows, testing::ElementsAre(testing::Pair(-1, 5), testing::Pair(0, 82), testing::Pair(1, 6),
                                           testing::Pair(2, 2), testing::Pair(3, 32), testing::Pair(4, 197),
                                           testing::Pair(5, 4), testing::Pair(6, 3)));
}

TEST(ExtensionTable, EveryRowIsLowerCaseWithOneDotAndIsFound) {
    for (const ExtensionRecord& row : tags::ExtensionTable()) {
        EXPECT_EQ(row.extension.rfind('.'), 0u) << row.extension;
        EXPECT_GT(row.extension.size(), 1u);
        for (const char letter : row.extension)
            EXPECT_TRUE((letter >= 'a' && letter <= 'z') || (letter >= '0' && letter <= '9') ||
                        letter == '.' || letter == '-')
                << row.extension;
        EXPECT_EQ(tags::findExtension("/photos/name" + std::string(row.extension)), &row);
    }
}

TEST(ExtensionTable, KnowsWhatAFileIsWhateverTheCaseOfItsExtension) {
    struct {
        const char* file;
        FileClass expected;
    } const cases[] = {
        {"a.bmp", FileClass::OtherImage},     {"a.dcx", FileClass::OtherImage},
        {"a.dpx", FileClass::OtherImage},     {"a.fits", FileClass::OtherImage},
        {"a.HEIC", FileClass::OtherImage},    {"a.3fr", FileClass::Photograph},
        {"a.ARW", FileClass::Photograph},     {"a.Cr2", FileClass::Photograph},
        {"a.dng", FileClass::Photograph},     {"/x.y/a.b.JPG", FileClass::Photograph},
        {"a.png", FileClass::Photograph},     {"a.tif", FileClass::Photograph},
        {"a.ape", FileClass::Audio},          {"a.flac", FileClass::Audio},
        {"a.mp3", FileClass::Audio},          {"a.wav", FileClass::Audio},
        {"a.3gp", FileClass::Video},          {"a.avi", FileClass::Video},
        {"a.mpg", FileClass::Video},          {"a.doc", FileClass::Document},
        {"a.epub", FileClass::Document},      {"a.pdf", FileClass::Document},
        {"a.rtf", FileClass::Document},       {"a.dll", FileClass::Executable},
        {"a.dz", FileClass::Executable},      {"a.exe", FileClass::Executable},
        {"a.mui", FileClass::Executable},     {"a.iso", FileClass::Archive},
        {"a.tgz", FileClass::Archive},        {"a.zip", FileClass::Archive},
        {"a.dfont", FileClass::Font},         {"a.sfd", FileClass::Font},
        {"a.azw", FileClass::ElectronicBook}, {"a.mobi", FileClass::ElectronicBook},
        {"a.prc", FileClass::ElectronicBook},
    };
    for (const auto& row : cases) {
        const ExtensionRecord* const found = tags::findExtension(row.file);
        ASSERT_NE(found, nullptr) << row.file;
        EXPECT_EQ(found->fileClass, row.expected) << row.file;
    }
}

TEST(ExtensionTable, KnowsNothingOfOtherNames) {
    for (const char* file : {"", "jpg", ".jpg", "a.", "a.jpg~", "a.jpg.part", "folder.jpg/a", "a.j", "a.jpgg",
                             "a.\xC4\xB1so", "a.zzz", "a.!"})
        EXPECT_EQ(tags::findExtension(file), nullptr) << file;
}

}  // namespace
