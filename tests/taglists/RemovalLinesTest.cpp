#include "taglists/RemovalLines.h"

#include "exiftool/ToolRunner.h"
#include "taglists/HeldTags.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

using app::AppContext;
using app::CommandForm;
using platform::CommandText;
using testing::ElementsAre;
using namespace taglists;

namespace {

AppContext makeContext() {
    AppContext context;
    context.exifToolPath = "/opt/my tools/exiftool";
    context.reportFile = "/install/cache/reports/day.txt";
    context.tempPath = "/install/Temp";
    return context;
}

const std::filesystem::path kFile = "/photos/\"best\" 100%.jpg";
const TagAddress kTitle{"XMP-dc", "Title"};
const TagAddress kMake{"IFD0", "Make"};

/// What belongs to the program in a line; the rest came from outside.
std::string literalsOf(const CommandText& command) {
    std::string literals;
    for (const CommandText::Piece& piece : command.pieces()) {
        if (piece.origin == CommandText::Origin::Literal)
            literals += command.text().substr(piece.begin, piece.end - piece.begin);
    }
    return literals;
}

}  // namespace

TEST(RemovalLines, TagsOfOneFile) {
    struct {
        std::vector<TagAddress> tags;
        const char* designed;
    } const cases[] = {
        {{kTitle},
         "\"/opt/my tools/exiftool\" -XMP-dc:Title= -overwrite_original -charset filename=UTF8 "
         "\"/photos/\"best\" 100%.jpg\""},
        {{kTitle, kMake},
         "\"/opt/my tools/exiftool\" -XMP-dc:Title= -IFD0:Make= -overwrite_original -charset filename=UTF8 "
         "\"/photos/\"best\" 100%.jpg\""},
        {{},
         "\"/opt/my tools/exiftool\" -overwrite_original -charset filename=UTF8 "
         "\"/photos/\"best\" 100%.jpg\""},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(removeTagsOfFileCommand(makeContext(), CommandForm::Designed, row.tags, kFile).text(),
                  row.designed);
        EXPECT_EQ(removeTagsOfFileCommand(makeContext(), CommandForm::Corrected, row.tags, kFile).text(),
                  std::string(row.designed) + " 2>>\"/install/cache/reports/day.txt\"");
    }
}

TEST(RemovalLines, TagsOfASelection) {
    struct {
        std::vector<TagAddress> tags;
        const char* designed;
    } const cases[] = {
        {{kTitle},
         "\"/opt/my tools/exiftool\" -XMP-dc:Title= -q -overwrite_original -charset filename=UTF8 "
         "\"/photos/\"best\" 100%.jpg\""},
        {{kTitle, kMake},
         "\"/opt/my tools/exiftool\" -XMP-dc:Title=  -IFD0:Make= -q -overwrite_original -charset "
         "filename=UTF8 \"/photos/\"best\" 100%.jpg\""},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(removeTagsOfSelectionCommand(makeContext(), CommandForm::Designed, row.tags, kFile).text(),
                  row.designed);
        EXPECT_EQ(removeTagsOfSelectionCommand(makeContext(), CommandForm::Corrected, row.tags, kFile).text(),
                  std::string(row.designed) + " 2>>\"/install/cache/reports/day.txt\"");
    }
}

TEST(RemovalLines, GroupsOfAListOfFiles) {
    const std::filesystem::path list = "/install/Temp/files.tmp";
    EXPECT_EQ(removeTypesCommand(makeContext(), CommandForm::Designed, {"EXIF"}, list).text(),
              "\"/opt/my tools/exiftool\" -@ \"/install/Temp/files.tmp\" -overwrite_original \"EXIF= \"");
    EXPECT_EQ(
        removeTypesCommand(makeContext(), CommandForm::Designed, {"EXIF", "XMP-dc"}, list).text(),
        "\"/opt/my tools/exiftool\" -@ \"/install/Temp/files.tmp\" -overwrite_original \"EXIF= XMP-dc= \"");
    EXPECT_EQ(removeTypesCommand(makeContext(), CommandForm::Corrected, {"EXIF", "XMP-dc"}, list).text(),
              "\"/opt/my tools/exiftool\" -@ \"/install/Temp/files.tmp\" -overwrite_original -charset "
              "filename=UTF8 -EXIF:All= -XMP-dc:All= 2>>\"/install/cache/reports/day.txt\"");
}

TEST(RemovalLines, EverythingOrFamilies) {
    struct {
        DeleteAllChoice choice;
        const char* designed;
        const char* corrected;
    } const cases[] = {
        {{.everything = true}, " -All=", " -All= -overwrite_original"},
        {{.everything = true, .hasSafetyCopy = false}, " -All=", " -All="},
        {{.everything = true, .exif = true, .keepDate = true}, " -All=", " -All= -P -overwrite_original"},
        {{.everything = false, .exif = true}, " -EXIF:All=", " -EXIF:All= -overwrite_original"},
        {{.everything = false, .exif = true, .iptc = true, .xmp = true},
         " -EXIF:All= -IPTC:All= -XMP:All=",
         " -EXIF:All= -IPTC:All= -XMP:All= -overwrite_original"},
        {{.everything = false, .xmp = true, .keepDate = true},
         " -XMP:All=",
         " -XMP:All= -P -overwrite_original"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(deleteAllArguments(CommandForm::Designed, row.choice).text(), row.designed);
        EXPECT_EQ(deleteAllArguments(CommandForm::Corrected, row.choice).text(), row.corrected);
    }
}

TEST(RemovalLines, OnlyPlainNamesBecomeTerms) {
    const std::vector<TagAddress> hostile = {{"XMP-dc", "*"},
                                             {"*", "Title"},
                                             {"XMP-dc", "Title=owned"},
                                             {"XMP-dc", "Title<Make"},
                                             {"", "Title"},
                                             {"XMP-dc", ""},
                                             {"IFD0 -execute", "Make"},
                                             {"IFD0", "Make\" -if \"1"},
                                             {"tagsFromFile @", "all"},
                                             {"IFD0", "Ma\nke"},
                                             {"IFD0", "Make>owned"},
                                             kTitle};
    for (const CommandForm form : {CommandForm::Designed, CommandForm::Corrected}) {
        EXPECT_EQ(removeTagsOfFileCommand(makeContext(), form, hostile, kFile).text(),
                  removeTagsOfFileCommand(makeContext(), form, {kTitle}, kFile).text());
        EXPECT_EQ(removeTagsOfSelectionCommand(makeContext(), form, hostile, kFile).text(),
                  removeTagsOfSelectionCommand(makeContext(), form, {kTitle}, kFile).text());
    }
    EXPECT_EQ(removeTypesCommand(makeContext(), CommandForm::Corrected, {"EXIF", "x y", "*", "All= -b"}, "/f")
                  .text(),
              removeTypesCommand(makeContext(), CommandForm::Corrected, {"EXIF"}, "/f").text());
}

TEST(RemovalLines, NamesAndPathsCountAsComingFromOutside) {
    const std::string literals =
        literalsOf(removeTagsOfFileCommand(makeContext(), CommandForm::Corrected, {kTitle}, kFile));
    EXPECT_EQ(literals, "\"\" -:= -overwrite_original -charset filename=UTF8 \"\" 2>>\"\"");
    EXPECT_EQ(literalsOf(removeTypesCommand(makeContext(), CommandForm::Designed, {"EXIF"}, "/f")),
              "\"\" -@ \"\" -overwrite_original \"= \"");
}

TEST(RemovalLines, TheReadOfASelection) {
    EXPECT_EQ(heldTagsCommand(makeContext(), CommandForm::Corrected, "/install/Temp/files.tmp", {}, "/o.txt")
                  .text(),
              "\"/opt/my tools/exiftool\" -lang en -a -sort -S -G1 --ExifToolVersion -x System:all "
              "-charset filename=UTF8 -@ \"/install/Temp/files.tmp\" >\"/o.txt\"");
    EXPECT_EQ(heldTagsCommand(makeContext(), CommandForm::Corrected, {}, {"/a\nb.jpg"}, "/o.txt").text(),
              "\"/opt/my tools/exiftool\" -lang en -a -sort -S -G1 --ExifToolVersion -x System:all "
              "-charset filename=UTF8 \"/a\nb.jpg\" >\"/o.txt\"");
}

TEST(RemovalLines, GroupsThatCanBeRemovedAreOfferedOnce) {
    const std::vector<std::string> groups(removableGroups().begin(), removableGroups().end());
    EXPECT_EQ(std::set<std::string>(groups.begin(), groups.end()).size(), groups.size());
    EXPECT_EQ(groups.front(), "EXIF");
    for (const char* group : {"IPTC", "XMP", "GPS", "ICC_Profile", "MakerNotes", "XMP-dc", "XMP-lr"})
        EXPECT_THAT(groups, testing::Contains(group));
    for (const std::string& group : groups) EXPECT_TRUE(isPlainName(group)) << group;
}

TEST(HeldTags, CountsTheFilesThatHoldEachWritableTag) {
    const tags::TagDictionary dictionary;
    const std::vector<HeldTag> held = heldTags(
        "======== /photos/a.jpg\n"
        "[IFD0] Make: Acme\n"
        "[IFD0] Make: Acme again\n"
        "[XMP-dc] Title: one: two\n"
        "[File] FileType: JPEG\n"
        "======== /photos/[IFD0] Model: b.jpg\n"
        "[XMP-dc] Title: other\r\n"
        "[XMP-nowhere] Title: unknown group\n"
        "[IFD0] NoSuchTag: 1\n"
        "[IFD0] Ma*: 1\n"
        "no line of a tag\n"
        "[IFD0]\n"
        "[IFD0] Artist:\n"
        "[XMP-lr] HierarchicalSubject: a|b\n"
        "[IPTC] Keywords: last without an end",
        dictionary);
    std::vector<std::string> lines;
    for (const HeldTag& tag : held) {
        lines.push_back(tag.address.group + ":" + tag.address.name + " " + std::to_string(tag.files) + " " +
                        tag.value.toStdString());
        EXPECT_GE(tag.tagId, 0);
    }
    EXPECT_THAT(lines,
                ElementsAre("IFD0:Make 1 Acme", "XMP-dc:Title 2 one: two", "IFD0:Artist 1 ",
                            "XMP-lr:HierarchicalSubject 1 a|b", "IPTC:Keywords 1 last without an end"));
    EXPECT_TRUE(heldTags("", dictionary).empty());
}
