#include "taglists/Removals.h"

#include "taglists/RemovalParts.h"
#include "taglists/RemovalTexts.h"

#include <gmock/gmock.h>

using namespace taglists;
using support::readBytes;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace fs = std::filesystem;

namespace {

class RemovalsTest : public testing::Test, public RemovalParts {
 protected:
    void SetUp() override { fs::current_path(folder / "photos"); }
    void TearDown() override { fs::current_path("/"); }

    FileRuns remove(const std::vector<TagAddress>& tags, const std::vector<fs::path>& files) {
        return removeTagsFromFiles(parts, QStringLiteral("Remove"), tags, files,
                                   [this](const QString& text) { told.push_back(text.toStdString()); });
    }

    std::vector<std::string> told;
};

/// The lines without those that begin so.
std::string without(const std::string& lines, const std::vector<std::string>& beginnings) {
    std::string left;
    std::istringstream stream(lines);
    for (std::string line; std::getline(stream, line);) {
        const auto begins = [&](const std::string& beginning) { return line.starts_with(beginning); };
        if (std::none_of(beginnings.begin(), beginnings.end(), begins)) left += line + "\n";
    }
    return left;
}

}  // namespace

TEST_F(RemovalsTest, OneTagGoesAndNothingElse) {
    const fs::path file = makePhoto("a.jpg");
    const std::string before = readBytes(file);
    const std::string tagsBefore = tagsOf(file);
    const FileRuns runs = remove({{"XMP-dc", "Title"}}, {file});
    EXPECT_EQ(runs.begun, 1u);
    EXPECT_TRUE(runs.lastWasRun);
    EXPECT_FALSE(runs.wasStopped);
    EXPECT_EQ(tagsOf(file), without(tagsBefore, {"[XMP-dc] Title:"}));
    EXPECT_EQ(copyOf(file), before);
    EXPECT_FALSE(fs::exists(file.string() + "_original"));
    EXPECT_EQ(report(), "");
}

TEST_F(RemovalsTest, SeveralTagsOfSeveralGroupsGoInOneRunOfEachFile) {
    const std::vector<fs::path> files = {makePhoto("a.jpg"), makePhoto("b.jpg")};
    const std::string before = readBytes(files[0]);
    const std::string tagsBefore = tagsOf(files[0]);
    remove({{"IFD0", "Make"}, {"IPTC", "Keywords"}, {"XMP-lr", "HierarchicalSubject"}, {"File", "Comment"}},
           files);
    for (const fs::path& file : files) {
        EXPECT_EQ(tagsOf(file), without(tagsBefore, {"[IFD0] Make:", "[IPTC] Keywords:",
                                                     "[XMP-lr] HierarchicalSubject:", "[File] Comment:"}));
        EXPECT_EQ(copyOf(file), before);
    }
    EXPECT_THAT(progress.titles, ElementsAre("Remove/2"));
    EXPECT_THAT(progress.shown, ElementsAre("a.jpg", "b.jpg"));
    EXPECT_EQ(progress.ended, 1);
}

TEST_F(RemovalsTest, TheShownFileLosesItsTagsByItsOwnLine) {
    for (const bool corrected : {false, true}) {
        context.settings.exifTool.correctedCommands = corrected;
        const fs::path file = makePhoto(corrected ? "a.jpg" : "b.jpg");
        const std::string before = readBytes(file);
        const FileRuns runs =
            removeTagsFromShownFile(parts, {}, {{"IFD0", "Artist"}, {"IFD0", "Make"}}, file, nullptr);
        EXPECT_TRUE(runs.lastWasRun);
        EXPECT_EQ(valueOf(file, "IFD0:Artist") + valueOf(file, "IFD0:Make"), "");
        EXPECT_EQ(valueOf(file, "XMP-dc:Title"), "A title");
        EXPECT_EQ(copyOf(file), before);
    }
}

TEST_F(RemovalsTest, AReadOnlyFileAmongSeveralIsInTheReportAndTheOthersGoOn) {
    const fs::path first = makePhoto("first.jpg");
    const fs::path locked = makePhoto("locked.jpg");
    const fs::path last = makePhoto("last.jpg");
    const std::string before = readBytes(locked);
    // Bars writes also for those whom permissions do not.
    fs::create_directory(folder / "photos/locked.jpg_exiftool_tmp");
    const FileRuns runs = remove({{"XMP-dc", "Title"}}, {first, locked, last});
    EXPECT_EQ(runs.begun, 3u);
    EXPECT_EQ(readBytes(locked), before);
    EXPECT_EQ(valueOf(first, "XMP-dc:Title") + valueOf(last, "XMP-dc:Title"), "");
    EXPECT_THAT(report(), HasSubstr("locked.jpg"));

    fs::remove(context.reportFile);
    EXPECT_EQ(removeTypes(parts, {}, {"IPTC"}, {first, locked, last}), 1);
    EXPECT_EQ(readBytes(locked), before);
    EXPECT_EQ(valueOf(first, "IPTC:All") + valueOf(last, "IPTC:All"), "");
    EXPECT_THAT(report(), HasSubstr("locked.jpg"));
}

TEST_F(RemovalsTest, AFileOfNoKnownKindIsToldAndLeftAsItIs) {
    const fs::path photo = makePhoto("a.jpg");
    const fs::path other = makePhoto("b.nokind");
    const std::string before = readBytes(other);
    const FileRuns runs = remove({{"XMP-dc", "Title"}}, {other, photo});
    EXPECT_EQ(runs.begun, 1u);
    EXPECT_THAT(told, ElementsAre(other.string() + " cannot be modified"));
    EXPECT_EQ(readBytes(other), before);
    EXPECT_EQ(valueOf(photo, "XMP-dc:Title"), "");
}

TEST_F(RemovalsTest, AWholeGroupGoesFromAllFilesInOneRun) {
    std::vector<fs::path> files = {makePhoto("a.jpg"), makePhoto("b.jpg")};
    const std::string before = readBytes(files[0]);
    const std::string tagsBefore = tagsOf(files[0]);
    EXPECT_EQ(removeTypes(parts, {}, {"XMP-dc", "GPS"}, files), 1);
    for (const fs::path& file : files) {
        EXPECT_EQ(tagsOf(file), without(tagsBefore, {"[XMP-dc]", "[GPS]"}));
        EXPECT_EQ(copyOf(file), before);
    }
    EXPECT_EQ(report(), "");
    EXPECT_EQ(removeTypes(parts, {}, {}, files), 0);
    EXPECT_EQ(removeTypes(parts, {}, {"EXIF"}, {}), 0);
}

TEST_F(RemovalsTest, TheDesignedTermsInOnePairOfQuotesChangeNothing) {
    context.settings.exifTool.correctedCommands = false;
    const fs::path file = makePhoto("a.jpg");
    const std::string before = readBytes(file);
    EXPECT_EQ(removeTypes(parts, {}, {"EXIF", "IPTC"}, {file}), 1);
    EXPECT_EQ(readBytes(file), before);
}

TEST_F(RemovalsTest, EveryGroupThatIsOfferedCanBeRemoved) {
    const fs::path file = makePhoto("a.jpg");
    EXPECT_EQ(removeTypes(parts, {}, {removableGroups().begin(), removableGroups().end()}, {file}), 1);
    EXPECT_THAT(report(), Not(HasSubstr("Not a deletable group")));
    EXPECT_THAT(report(), Not(HasSubstr("not defined")));
    EXPECT_EQ(valueOf(file, "EXIF:All") + valueOf(file, "XMP:All") + valueOf(file, "IPTC:All"), "");
}

TEST_F(RemovalsTest, EverythingOrChosenFamiliesAreDeleted) {
    const char* const kTags[] = {"EXIF:Artist", "IPTC:City", "XMP-dc:Title", "File:Comment"};
    struct {
        DeleteAllChoice choice;
        std::vector<bool> left;
    } const cases[] = {
        {{.everything = true}, {false, false, false, false}},
        {{.everything = false, .exif = true}, {false, true, true, true}},
        {{.everything = false, .iptc = true}, {true, false, true, true}},
        {{.everything = false, .iptc = true, .xmp = true}, {true, false, false, true}},
    };
    int number = 0;
    for (const auto& row : cases) {
        const fs::path file = makePhoto("everything" + std::to_string(++number) + ".jpg");
        const std::string before = readBytes(file);
        EXPECT_EQ(deleteAllTags(parts, {}, row.choice, true, {file}).begun, 1u);
        for (std::size_t at = 0; at < row.left.size(); ++at)
            EXPECT_EQ(!valueOf(file, kTags[at]).empty(), row.left[at]) << number << kTags[at];
        EXPECT_EQ(copyOf(file), before);
    }
    const fs::path file = makePhoto("nothing.jpg");
    EXPECT_EQ(deleteAllTags(parts, {}, {.everything = false}, true, {file}).begun, 0u);
    EXPECT_EQ(report(), "");
}

TEST_F(RemovalsTest, DeletingCanKeepTheDateAndDoWithoutSafetyCopies) {
    const fs::path file = makePhoto("a.jpg");
    const auto long_ago = fs::last_write_time(file) - std::chrono::hours(1000);
    fs::last_write_time(file, long_ago);
    deleteAllTags(parts, {}, {.keepDate = true}, false, {file});
    // ExifTool sets whole seconds.
    EXPECT_LT(fs::last_write_time(file) - long_ago, std::chrono::seconds(2));
    EXPECT_EQ(valueOf(file, "XMP-dc:Title"), "");
    EXPECT_FALSE(fs::exists(context.cachePath / "sav"));
    EXPECT_EQ(runner.safetyCopies().SafetyCopyEnabled, 1);
}

TEST_F(RemovalsTest, FamiliesGoFileAfterFileUntilTheWindowWantsToClose) {
    const std::vector<fs::path> files = {makePhoto("a.jpg"), makePhoto("b.jpg"), makePhoto("c.jpg")};
    const std::string before = readBytes(files[0]);
    progress.closesAt = 3;
    const FileRuns runs = removeFamily(parts, QStringLiteral("Family"), 10067, files);
    EXPECT_EQ(runs.begun, 2u);
    EXPECT_TRUE(runs.wasStopped);
    EXPECT_EQ(valueOf(files[1], "IPTC:All"), "");
    EXPECT_EQ(copyOf(files[1]), before);
    EXPECT_EQ(readBytes(files[2]), before);
    EXPECT_THAT(progress.titles, ElementsAre("Family/3"));
    EXPECT_EQ(progress.ended, 1);
}

TEST_F(RemovalsTest, AStoppedRunLeavesTheFileAndNoHalfWrittenOne) {
    const fs::path script = folder / "tool";
    support::writeBytes(script,
                        "#!/bin/sh\nfor file; do :; done\n: >\"${file}_exiftool_tmp\"\nexec sleep 30\n");
    fs::permissions(script, fs::perms::owner_all);
    const fs::path file = makePhoto("a.jpg");
    const std::string before = readBytes(file);
    context.exifToolPath = script;
    runner.setKeepWaiting(
        [&](std::chrono::milliseconds) { return !fs::exists(file.string() + "_exiftool_tmp"); });
    const FileRuns runs = remove({{"XMP-dc", "Title"}}, {file, makePhoto("b.jpg")});
    EXPECT_TRUE(runs.wasStopped);
    EXPECT_FALSE(runs.lastWasRun);
    EXPECT_EQ(runs.begun, 1u) << "the next file is not begun";
    EXPECT_EQ(readBytes(file), before);
    EXPECT_FALSE(fs::exists(file.string() + "_exiftool_tmp"));
}

TEST_F(RemovalsTest, HostileNamesAreReadAndTheirTagsRemoved) {
    std::vector<fs::path> files;
    for (const std::string& name : support::hostileNames()) files.push_back(makePhoto(name));
    const std::string before = readBytes(files[0]);
    std::size_t holders = 0;
    for (const HeldTag& tag : readHeldTags(parts, files)) {
        if (tag.address == TagAddress{"XMP-dc", "Title"}) holders = tag.files;
    }
    EXPECT_EQ(holders, files.size());
    EXPECT_EQ(report(), "") << "a name that cannot stand in a list is read all the same";
    EXPECT_FALSE(fs::exists(context.cachePath / "sav")) << "reading copies nothing";

    remove({{"XMP-dc", "Title"}}, files);
    for (const fs::path& file : files) {
        EXPECT_EQ(valueOf(file, "XMP-dc:Title"), "") << file;
        EXPECT_EQ(valueOf(file, "XMP-dc:Creator"), "Somebody") << file;
        EXPECT_EQ(copyOf(file), before) << file;
    }
    EXPECT_EQ(report(), "");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder / "photos"), {}), std::ssize(files));
}

TEST_F(RemovalsTest, ValuesOfAHostileFileAreShownAndDoNothing) {
    const fs::path file = makePhoto("a.jpg");
    const std::string title = "x\" -if \"system('touch owned')\" \" >owned [IFD0] Make: y";
    support::ExifTool({"-q", "-overwrite_original", "-XMP-dc:Title=" + title, file.string()});
    QString shown;
    for (const HeldTag& tag : readHeldTagsOfGroup(parts, file, "XMP-dc")) {
        EXPECT_EQ(tag.address.group, "XMP-dc");
        if (tag.address.name == "Title") shown = tag.value;
    }
    EXPECT_EQ(shown.toStdString(), title);
    remove({{"XMP-dc", "Title"}}, {file});
    EXPECT_EQ(valueOf(file, "XMP-dc:Title"), "");
    EXPECT_THAT(readHeldTagsOfGroup(parts, file, "all -b \"x"), IsEmpty());
    EXPECT_FALSE(fs::exists(folder / "photos/owned"));
}

TEST_F(RemovalsTest, AGroupIsReadInEitherFormAndUnderTheCataloguesSpelling) {
    const fs::path file = makePhoto("a.jpg");
    for (const bool corrected : {false, true}) {
        context.settings.exifTool.correctedCommands = corrected;
        std::vector<std::string> names;
        for (const HeldTag& tag : readHeldTagsOfGroup(parts, file, "IPTC")) names.push_back(tag.address.name);
        EXPECT_THAT(names, testing::IsSupersetOf({"City", "Keywords"}));
        // ExifTool calls it XMP-lr.
        EXPECT_EQ(readHeldTagsOfGroup(parts, file, "XMP_lr").size(), corrected ? 1u : 0u);
    }
}

TEST_F(RemovalsTest, TagsAreCopiedAndAMissingTargetIsInTheReport) {
    const fs::path source = makePhoto("source.jpg");
    const fs::path target = folder / "photos/target.jpg";
    support::writeJpeg(target);
    const fs::path gone = folder / "photos/gone.jpg";
    const FileRuns runs = copyTags(parts, QStringLiteral("Copy"), {.exif = false, .iptc = true, .xmp = true},
                                   source, {gone, target});
    EXPECT_EQ(runs.begun, 2u);
    EXPECT_EQ(valueOf(target, "IPTC:City") + valueOf(target, "XMP-dc:Title"), "TownA title");
    EXPECT_EQ(valueOf(target, "EXIF:All"), "");
    EXPECT_THAT(report(), HasSubstr("gone.jpg"));
    EXPECT_THAT(progress.titles, ElementsAre("Copy/2"));
    EXPECT_EQ(copyTags(parts, {}, {}, source, {target}).begun, 0u);
}

TEST_F(RemovalsTest, WhatIsAskedTellsWhatOfHowManyFiles) {
    ASSERT_TRUE(language.valid());
    for (const int commandId : {10044, 10066, 10067, 10068, 10069, 10071, 10072}) {
        const auto question = familyRemovalQuestion(language, commandId, 12);
        ASSERT_TRUE(question);
        EXPECT_THAT(question->toStdString(), HasSubstr("from 12 files?\n\n")) << commandId;
        EXPECT_THAT(familyRemovalTitle(language, commandId, 1).toStdString(),
                    testing::EndsWith("from 1 file"));
    }
    EXPECT_FALSE(familyRemovalQuestion(language, 10070, 12));
    EXPECT_EQ(typesRemovedText(language, true, false, 2),
              QStringLiteral("The groups were removed from 2 files."));
    EXPECT_NE(typesRemovedText(language, true, true, 2), typesRemovedText(language, false, true, 2));
    EXPECT_EQ(copyRefusal(false, true), text::kNoSuchSource);
    EXPECT_EQ(copyRefusal(true, false), text::kChooseFamilies);
    EXPECT_EQ(copyRefusal(true, true), 0);
}
