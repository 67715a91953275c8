#include "taglists/Removals.h"

#include "jobs/OperationJob.h"
#include "taglists/DeleteTags.h"
#include "taglists/RemovalParts.h"
#include "taglists/RemovalTexts.h"

#include <gmock/gmock.h>

using namespace taglists;
using exiftool::Outcome;
using exiftool::OutcomeKind;
using exiftool::Outcomes;
using enum exiftool::OutcomeKind;
using support::kindsOf;
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

    Outcomes remove(const std::vector<TagAddress>& tags, const std::vector<fs::path>& files) {
        return carryOut(removeTagsJob(QStringLiteral("Remove"), tags, files));
    }
    Outcomes deleteAll(const std::vector<int>& ticked, const std::vector<fs::path>& files) {
        jobs::FilledForm filled;
        for (const int box : ticked) filled.set(box, true);
        return carryOut(
            jobs::jobOf(operationOf(176), {}, app::commandFormOf(context), filled, files, dictionary));
    }
    jobs::Job copying(const std::vector<int>& families, const fs::path& source,
                      const std::vector<fs::path>& files) const {
        jobs::FilledForm filled;
        filled.set(1321, source);
        for (const int box : families) filled.set(box, true);
        return jobs::jobOf(operationOf(10062), QStringLiteral("Copy"), app::commandFormOf(context), filled,
                           files, dictionary);
    }
    std::vector<OutcomeKind> removeGroups(const std::vector<std::string>& groups,
                                          const std::vector<fs::path>& files) {
        return kindsOf(carryOut(removeTypesJob({}, groups, files)));
    }
};

enum Box {
    kExif = 1008,
    kIptc = 1009,
    kXmp = 1011,
    kSafetyCopy = 1089,
    kKeepDate = 1678,
    kEverything = 1930
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
    EXPECT_THAT(remove({{"XMP-dc", "Title"}}, {file}), ElementsAre(Outcome{file, Done, {}}));
    EXPECT_EQ(tagsOf(file), without(tagsBefore, {"[XMP-dc] Title:"}));
    EXPECT_EQ(copyOf(file), before);
    EXPECT_FALSE(fs::exists(file.string() + "_original"));
    EXPECT_EQ(report(), "");
}

TEST_F(RemovalsTest, SeveralTagsOfSeveralGroupsGoInOneRunOfEachFile) {
    const std::vector<fs::path> files = {makePhoto("a.jpg"), makePhoto("b.jpg")};
    const std::string before = readBytes(files[0]);
    const std::string tagsBefore = tagsOf(files[0]);
    const Outcomes outcomes = remove(
        {{"IFD0", "Make"}, {"IPTC", "Keywords"}, {"XMP-lr", "HierarchicalSubject"}, {"File", "Comment"}},
        files);
    EXPECT_THAT(outcomes, ElementsAre(Outcome{files[0], Done, {}}, Outcome{files[1], Done, {}}));
    for (const fs::path& file : files) {
        EXPECT_EQ(tagsOf(file), without(tagsBefore, {"[IFD0] Make:", "[IPTC] Keywords:",
                                                     "[XMP-lr] HierarchicalSubject:", "[File] Comment:"}));
        EXPECT_EQ(copyOf(file), before);
    }
}

TEST_F(RemovalsTest, TheShownFileLosesItsTagsByItsOwnLine) {
    for (const bool corrected : {false, true}) {
        context.settings.exifTool.correctedCommands = corrected;
        const fs::path file = makePhoto(corrected ? "a.jpg" : "b.jpg");
        const std::string before = readBytes(file);
        EXPECT_THAT(
            kindsOf(carryOut(removeTagsFromShownFileJob({}, {{"IFD0", "Artist"}, {"IFD0", "Make"}}, file))),
            ElementsAre(Done));
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
    const Outcomes outcomes = remove({{"XMP-dc", "Title"}}, {first, locked, last});
    EXPECT_THAT(kindsOf(outcomes), ElementsAre(Done, Failed, Done));
    EXPECT_THAT(outcomes[1].words, HasSubstr("locked.jpg"));
    EXPECT_EQ(readBytes(locked), before);
    EXPECT_EQ(valueOf(first, "XMP-dc:Title") + valueOf(last, "XMP-dc:Title"), "");
    EXPECT_THAT(report(), HasSubstr("locked.jpg"));

    fs::remove(context.reportFile);
    EXPECT_THAT(removeGroups({"IPTC"}, {first, locked, last}), ElementsAre(Done, Failed, Done));
    EXPECT_EQ(readBytes(locked), before);
    EXPECT_EQ(valueOf(first, "IPTC:All") + valueOf(last, "IPTC:All"), "");
    EXPECT_THAT(report(), HasSubstr("locked.jpg"));
}

TEST_F(RemovalsTest, AFileOfNoKnownKindIsToldAndLeftAsItIs) {
    const fs::path photo = makePhoto("a.jpg");
    const fs::path other = makePhoto("b.nokind");
    const std::string before = readBytes(other);
    EXPECT_THAT(remove({{"XMP-dc", "Title"}}, {other, photo}),
                ElementsAre(Outcome{photo, Done, {}},
                            Outcome{other, Failed, other.string() + " cannot be modified"}));
    EXPECT_EQ(readBytes(other), before);
    EXPECT_EQ(valueOf(photo, "XMP-dc:Title"), "");
}

TEST_F(RemovalsTest, AWholeGroupGoesFromAllFilesInOneRun) {
    std::vector<fs::path> files = {makePhoto("a.jpg"), makePhoto("b.jpg")};
    const std::string before = readBytes(files[0]);
    const std::string tagsBefore = tagsOf(files[0]);
    EXPECT_THAT(removeGroups({"XMP-dc", "GPS"}, files), ElementsAre(Done, Done));
    for (const fs::path& file : files) {
        EXPECT_EQ(tagsOf(file), without(tagsBefore, {"[XMP-dc]", "[GPS]"}));
        EXPECT_EQ(copyOf(file), before);
    }
    EXPECT_EQ(report(), "");
    EXPECT_THAT(removeGroups({}, files), IsEmpty());
    EXPECT_THAT(removeGroups({"EXIF"}, {}), IsEmpty());
}

TEST_F(RemovalsTest, TheDesignedTermsInOnePairOfQuotesChangeNothing) {
    context.settings.exifTool.correctedCommands = false;
    const fs::path file = makePhoto("a.jpg");
    const std::string before = readBytes(file);
    EXPECT_NE(removeGroups({"EXIF", "IPTC"}, {file}).at(0), Done);
    EXPECT_EQ(readBytes(file), before);
}

TEST_F(RemovalsTest, EveryGroupThatIsOfferedCanBeRemoved) {
    const fs::path file = makePhoto("a.jpg");
    EXPECT_THAT(removeGroups({removableGroups().begin(), removableGroups().end()}, {file}),
                ElementsAre(testing::AnyOf(Done, Warned)));
    EXPECT_THAT(report(), Not(HasSubstr("Not a deletable group")));
    EXPECT_THAT(report(), Not(HasSubstr("not defined")));
    EXPECT_EQ(valueOf(file, "EXIF:All") + valueOf(file, "XMP:All") + valueOf(file, "IPTC:All"), "");
}

TEST_F(RemovalsTest, EverythingOrChosenFamiliesAreDeleted) {
    const char* const kTags[] = {"EXIF:Artist", "IPTC:City", "XMP-dc:Title", "File:Comment"};
    struct {
        std::vector<int> ticked;
        std::vector<bool> left;
    } const cases[] = {
        {{kEverything, kSafetyCopy, kExif}, {false, false, false, false}},
        {{kExif, kSafetyCopy}, {false, true, true, true}},
        {{kIptc, kSafetyCopy}, {true, false, true, true}},
        {{kIptc, kXmp, kSafetyCopy}, {true, false, false, true}},
    };
    int number = 0;
    for (const auto& row : cases) {
        const fs::path file = makePhoto("everything" + std::to_string(++number) + ".jpg");
        const std::string before = readBytes(file);
        EXPECT_THAT(kindsOf(deleteAll(row.ticked, {file})), ElementsAre(Done));
        for (std::size_t at = 0; at < row.left.size(); ++at)
            EXPECT_EQ(!valueOf(file, kTags[at]).empty(), row.left[at]) << number << kTags[at];
        EXPECT_EQ(copyOf(file), before);
    }
    EXPECT_EQ(report(), "");
}

TEST_F(RemovalsTest, DeletingCanKeepTheDateAndDoWithoutSafetyCopies) {
    const fs::path file = makePhoto("a.jpg");
    const auto long_ago = fs::last_write_time(file) - std::chrono::hours(1000);
    fs::last_write_time(file, long_ago);
    EXPECT_THAT(kindsOf(deleteAll({kEverything, kKeepDate}, {file})), ElementsAre(Done));
    // ExifTool sets whole seconds.
    EXPECT_LT(fs::last_write_time(file) - long_ago, std::chrono::seconds(2));
    EXPECT_EQ(valueOf(file, "XMP-dc:Title"), "");
    EXPECT_FALSE(fs::exists(context.cachePath / "sav"));
    EXPECT_EQ(runner.safetyCopies().SafetyCopyEnabled, 1);
}

TEST_F(RemovalsTest, FamiliesGoFileAfterFile) {
    const std::vector<fs::path> files = {makePhoto("a.jpg"), makePhoto("b.jpg")};
    const std::string before = readBytes(files[0]);
    const jobs::Job job = removeFamilyJob(QStringLiteral("Family"), 10067, files);
    EXPECT_EQ(job.title, QStringLiteral("Family"));
    EXPECT_EQ(readBytes(files[0]), before) << "nothing is written before the job is carried out";
    EXPECT_THAT(carryOut(job), ElementsAre(Outcome{files[0], Done, {}}, Outcome{files[1], Done, {}}));
    for (const fs::path& file : files) {
        EXPECT_EQ(valueOf(file, "IPTC:All"), "");
        EXPECT_EQ(copyOf(file), before);
    }
    EXPECT_THAT(kindsOf(carryOut(job)), ElementsAre(Unchanged, Unchanged)) << "nothing is left to remove";
}

TEST_F(RemovalsTest, NoJobTellsASuccessThatIsNone) {
    const std::vector<fs::path> files = {makePhoto("a.jpg"), makePhoto("b.jpg")};
    const fs::path source = folder / "source.jpg";
    fs::copy_file(files[0], source);
    const std::vector<TagAddress> tags = {{"XMP-dc", "Title"}, {"IPTC", "City"}};
    const std::vector<support::NamedWork> works = {
        // Its line keeps ExifTool from counting.
        {"tags", [&] { return remove(tags, files); }, Unchanged},
        {"tags of the shown file", [&] { return carryOut(removeTagsFromShownFileJob({}, tags, files[0])); }},
        {"one tag of the panel", [&] { return carryOut(deleteTagsJob(form(), {}, tags, files[0])); }},
        {"groups", [&] { return carryOut(removeTypesJob({}, {"EXIF"}, files)); }},
        {"everything",
         [&] {
             return deleteAll({kEverything, kSafetyCopy}, files);
         }},
        {"a family", [&] { return carryOut(removeFamilyJob({}, 10067, files)); }},
        {"copying",
         [&] {
             return carryOut(copying({kExif, kIptc, kXmp}, source, files));
         }},
    };
    support::expectTruthOfStandIns(context, runner, folder.path(), folder / "photos", works);
}

TEST_F(RemovalsTest, WhatWasCutWhileItWasReadIsNoEmptyList) {
    const fs::path file = makePhoto("a.jpg");
    for (const support::ToolStandIn& standIn : support::kToolStandIns) {
        support::useTool(context, folder / "tool", standIn.script);
        runner.setKeepWaiting([&](std::chrono::milliseconds) { return !standIn.hangs; });
        for (const bool corrected : {false, true}) {
            context.settings.exifTool.correctedCommands = corrected;
            const HeldTagsRead all = readHeldTags(parts, form(), {file});
            EXPECT_THAT(all.tags, IsEmpty());
            EXPECT_NE(all.fault, QString()) << standIn.what;
            // A group that the file does not hold gives nothing either.
            if (standIn.isMute && !corrected) continue;
            const HeldTagsRead ofGroup = readHeldTagsOfGroup(parts, form(), file, "IPTC");
            EXPECT_THAT(ofGroup.tags, IsEmpty());
            EXPECT_NE(ofGroup.fault, QString()) << standIn.what;
        }
    }
    runner.setKeepWaiting({});
    context.settings.exifTool.correctedCommands = true;
    support::useTool(context, folder / "tool", "echo '[IPTC] City: Town'; kill -KILL $$\n");
    const HeldTagsRead part = readHeldTags(parts, form(), {file});
    EXPECT_EQ(part.tags.size(), 1u);
    EXPECT_THAT(part.fault.toStdString(), HasSubstr("signal 9"));
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
    EXPECT_THAT(kindsOf(remove({{"XMP-dc", "Title"}}, {file})), ElementsAre(Stopped));
    EXPECT_EQ(readBytes(file), before);
    EXPECT_FALSE(fs::exists(file.string() + "_exiftool_tmp"));
}

TEST_F(RemovalsTest, HostileNamesAreReadAndTheirTagsRemoved) {
    std::vector<fs::path> files;
    for (const std::string& name : support::hostileNames()) files.push_back(makePhoto(name));
    const std::string before = readBytes(files[0]);
    std::size_t holders = 0;
    for (const HeldTag& tag : readHeldTags(parts, form(), files).tags) {
        if (tag.address == TagAddress{"XMP-dc", "Title"}) holders = tag.files;
    }
    EXPECT_EQ(holders, files.size());
    EXPECT_EQ(report(), "") << "a name that cannot stand in a list is read all the same";
    EXPECT_FALSE(fs::exists(context.cachePath / "sav")) << "reading copies nothing";

    EXPECT_TRUE(exiftool::isEveryFileDone(remove({{"XMP-dc", "Title"}}, files)));
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
    for (const HeldTag& tag : readHeldTagsOfGroup(parts, form(), file, "XMP-dc").tags) {
        EXPECT_EQ(tag.address.group, "XMP-dc");
        if (tag.address.name == "Title") shown = tag.value;
    }
    EXPECT_EQ(shown.toStdString(), title);
    EXPECT_THAT(kindsOf(remove({{"XMP-dc", "Title"}}, {file})), ElementsAre(Done));
    EXPECT_EQ(valueOf(file, "XMP-dc:Title"), "");
    EXPECT_THAT(readHeldTagsOfGroup(parts, form(), file, "all -b \"x").tags, IsEmpty());
    EXPECT_FALSE(fs::exists(folder / "photos/owned"));
}

TEST_F(RemovalsTest, AGroupIsReadInEitherFormAndUnderTheCataloguesSpelling) {
    const fs::path file = makePhoto("a.jpg");
    for (const bool corrected : {false, true}) {
        context.settings.exifTool.correctedCommands = corrected;
        std::vector<std::string> names;
        for (const HeldTag& tag : readHeldTagsOfGroup(parts, form(), file, "IPTC").tags)
            names.push_back(tag.address.name);
        EXPECT_THAT(names, testing::IsSupersetOf({"City", "Keywords"}));
        // ExifTool calls it XMP-lr.
        EXPECT_EQ(readHeldTagsOfGroup(parts, form(), file, "XMP_lr").tags.size(), corrected ? 1u : 0u);
    }
}

TEST_F(RemovalsTest, TagsAreCopiedAndAMissingTargetIsInTheReport) {
    const fs::path source = makePhoto("source.jpg");
    const fs::path target = folder / "photos/target.jpg";
    support::writeJpeg(target);
    const fs::path gone = folder / "photos/gone.jpg";
    const jobs::Job job = copying({kIptc, kXmp}, source, {gone, target});
    EXPECT_EQ(job.title, QStringLiteral("Copy"));
    EXPECT_THAT(kindsOf(carryOut(job)), ElementsAre(Failed, Done));
    EXPECT_EQ(valueOf(target, "IPTC:City") + valueOf(target, "XMP-dc:Title"), "TownA title");
    EXPECT_EQ(valueOf(target, "EXIF:All"), "");
    EXPECT_THAT(report(), HasSubstr("gone.jpg"));
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
    const Outcome done{"a.jpg", Done, {}};
    const QString success = QStringLiteral("The groups were removed from 2 files.");
    EXPECT_EQ(typesRemovedText(language, Outcomes{done, done}, {}), success);
    for (const OutcomeKind kind : {Warned, Failed, Killed, Stopped, NotStarted, NotBegun})
        EXPECT_NE(typesRemovedText(language, Outcomes{done, {"b.jpg", kind, {}}}, {}), success);
    const Outcome unchanged{"b.jpg", Unchanged, {}};
    EXPECT_EQ(typesRemovedText(language, Outcomes{done, unchanged}, {}),
              QStringLiteral("The groups were removed from 1 file."));
    EXPECT_EQ(typesRemovedText(language, Outcomes{unchanged}, {}),
              QStringLiteral("The files held none of these groups."));
    EXPECT_EQ(typesRemovedText(language, Outcomes{done, done}, std::vector<std::string>{"a remark"}),
              success + QStringLiteral("\na remark"));
    EXPECT_NE(typesRemovedText(language, Outcomes{done, {"b.jpg", Failed, {}}}, {}),
              typesRemovedText(language, Outcomes{{"b.jpg", Failed, {}}}, {}));
}
