#include "jobs/OperationJob.h"

#include "exiftool/LineParts.h"
#include "jobs/JobRunner.h"
#include "jobs/JobSource.h"
#include "platform/Text.h"
#include "support/EditingContext.h"
#include "support/RunHere.h"
#include "support/SmallFiles.h"
#include "support/TemporaryFolder.h"
#include "support/ToolStandIns.h"

#include <gmock/gmock.h>

#include <array>

using app::CommandForm;
using exiftool::Outcome;
using enum exiftool::OutcomeKind;
using jobs::Composed;
using jobs::Composing;
using jobs::FieldKind;
using jobs::FilledForm;
using jobs::NothingTicked;
using jobs::Operation;
using jobs::OperationBox;
using jobs::OperationField;
using support::kindsOf;
using support::readBytes;
using testing::ElementsAre;
using testing::HasSubstr;

namespace fs = std::filesystem;

namespace {

// Operations of every shape that dialogs over files have, under numbers of their own.

enum Control {
    kText = 1,
    kFile = 2,
    kFolder = 9,
    kFromFile = 3,
    kSameName = 4,
    kRows = 5,
    kDays = 6,
    kBack = 7,
    kFirst = 10,
    kSecond = 11
};

constexpr auto kComment = std::to_array<OperationField>({
    {.control = kText,
     .kind = FieldKind::Text,
     .designed = {jobs::DesignedText::Encoding::Western, 8},
     .mustBeFilled = true,
     .missing = {.literal = "Enter it.", .icon = jobs::OperationMessage::Icon::Error}},
});

constexpr auto kCommentBoxes = std::to_array<OperationBox>({
    {kFirst,
     {" -File:comment=\"", " -File:comment=\"", "\""},
     {"-File:Comment=", "-File:Comment=", " "},
     kText},
    {kSecond,
     {" -XMP-dc:Title=\"", " -XMP-dc:Title=\"", "\""},
     {"-XMP-dc:Title=", "-XMP-dc:Title=", " "},
     kText},
});

constexpr Operation kAddComment{.id = 900,
                                .fields = kComment,
                                .boxes = kCommentBoxes,
                                .nothingTicked = NothingTicked::IsTold,
                                .noneTicked = {.literal = "Tick one."}};

constexpr auto kRemovalBoxes = std::to_array<OperationBox>({
    {kFirst, {"-A=", "-A=", ""}, {"-A= ", "-A= ", ""}},
    {kSecond, {"-B=", " -B=", ""}, {"-B= ", "-B= ", ""}},
});

constexpr Operation kRemoval{.id = 901, .boxes = kRemovalBoxes, .nothingTicked = NothingTicked::Cancels};

bool isReadable(const fs::path& path) {
    return fs::exists(path);
}

constexpr auto kFromFileFields = std::to_array<OperationField>({
    {.control = kFromFile, .kind = FieldKind::Box},
    {.control = kFile, .kind = FieldKind::File, .mustBeFilled = true, .neededWith = kFromFile},
});

/// A text file beside each photo, or one for all; a photo without one is passed over.
Composed fromFile(const Composing& composing) {
    fs::path text = composing.filled.path(kFile);
    if (!composing.filled.isTicked(kFromFile)) text = fs::path(composing.file).replace_extension(".txt");
    if (!isReadable(text)) return {Unchanged, "No text beside it"};
    platform::CommandText arguments("-overwrite_original \"-XMP-dc:Title<=");
    return arguments.outside(text.string()).literal("\"");
}

constexpr Operation kTitleFromFile{.id = 902, .fields = kFromFileFields, .compose = fromFile};

constexpr auto kSourceField = std::to_array<OperationField>({{.control = kFile, .kind = FieldKind::File}});

Composed titleOf(const Composing& composing) {
    platform::CommandText arguments("-TagsFromFile \"");
    return arguments.outside(composing.filled.path(kFile).string()).literal("\" -XMP-dc:Title");
}

/// ExifTool puts the old file away before the new one is there.
constexpr Operation kTitleOf{
    .id = 905, .fields = kSourceField, .compose = titleOf, .makesSafetyCopies = jobs::never};

constexpr auto kDateRows =
    std::to_array<jobs::OperationListRow>({{1608, "DateTimeOriginal"}, {1108, "ModifyDate"}});

constexpr auto kDateFields = std::to_array<OperationField>({
    {.control = kRows, .kind = FieldKind::Rows, .rows = kDateRows},
    {.control = kDays, .kind = FieldKind::Number},
    {.control = kBack, .kind = FieldKind::Box},
});

Composed shifted(const Composing& composing) {
    platform::CommandText line = exiftool::toolStart(composing.context).literal("-overwrite_original ");
    for (const int id : composing.filled.rows(kRows)) {
        const std::optional<tags::TagRecord> tag = composing.dictionary.FindTagById(std::uint32_t(id));
        if (!tag) continue;
        line.literal("\"-" + platform::wide(tag->group).toStdString() + ':' +
                     platform::wide(tag->name).toStdString());
        line.literal(composing.filled.isTicked(kBack) ? "-=" : "+=");
        line.literal("0:0:" + std::to_string(composing.filled.number(kDays)) + " 0:0:0\" ");
    }
    return line.literal("\"").outside(composing.file.string()).literal("\"");
}

constexpr Operation kShift{.id = 903,
                           .fields = kDateFields,
                           .nothingTicked = NothingTicked::IsTold,
                           .noneTicked = {.literal = "Tick one."},
                           .composedAs = jobs::ComposedAs::Line,
                           .compose = shifted,
                           .makesSafetyCopies = jobs::never};

Composed titleOfAll(const Composing& composing) {
    platform::CommandText line = exiftool::toolStart(composing.context);
    line.literal("-overwrite_original -XMP-dc:Title=all -@ \"");
    return line.outside(composing.file.string()).literal("\"");
}

constexpr Operation kOfAll{.id = 904, .composedAs = jobs::ComposedAs::LineOfAll, .compose = titleOfAll};

fs::path listingOf(const Composing& composing, const fs::path& file) {
    return composing.filled.path(kFolder) / (file.stem().string() + ".txt");
}

/// The title of a file, where it meets the condition, in a text file of its own.
Composed titleListed(const Composing& composing) {
    platform::CommandText line = exiftool::toolStart(composing.context);
    line.literal("-q -s3 -if \"").outside(composing.filled.text(kText).toStdString());
    line.literal("\" -XMP-dc:Title \"").outside(composing.file.string()).literal("\" >\"");
    return line.outside(listingOf(composing, composing.file).string()).literal("\"");
}

/// What was read gets a star in front; what is already there with one is a fault.
void addStar(const Composing& composing, std::span<Outcome> outcomes) {
    const fs::path listing = listingOf(composing, composing.file);
    const std::string title = readBytes(listing);
    if (title.starts_with('*')) outcomes.front() = {composing.file, Failed, "Has its star"};
    support::writeBytes(listing, "*" + title);
}

constexpr Operation kListTitles{
    .id = 906, .composedAs = jobs::ComposedAs::ReadLine, .compose = titleListed, .afterRun = addStar};

Composed allTitles(const Composing& composing) {
    platform::CommandText line = exiftool::toolStart(composing.context);
    line.literal(composing.filled.isTicked(kSecond) ? "-T -XMP-dc:Title \"" : "-T -XMP-dc:Title -@ \"");
    line.outside(composing.file.string()).literal("\"");
    if (composing.filled.isTicked(kFirst))
        line.literal(" >\"").outside(composing.context.reportFile.string()).literal("\"");
    return line;
}

jobs::ComposedAs roadOfTitles(CommandForm, const FilledForm& filled) {
    return filled.isTicked(kSecond) ? jobs::ComposedAs::ReadLine : jobs::ComposedAs::ReadLineOfAll;
}

constexpr Operation kShowTitles{
    .id = 907, .chooseRoad = roadOfTitles, .compose = allTitles, .atEnd = jobs::openReport};

class OperationJobTest : public testing::Test {
 protected:
    OperationJobTest() { context_ = support::editingContext(folder_.path()); }

    fs::path photo(const std::string& name, const std::string& assignment = "-XMP-dc:Title=old") const {
        const fs::path file = folder_ / "photos" / name;
        support::writeJpeg(file);
        support::ExifTool({"-q", "-overwrite_original", assignment, file.string()});
        return file;
    }
    static std::string valueOf(const fs::path& file, const std::string& tag) {
        std::string value = support::ExifTool({"-s3", "-b", tag, file.string()});
        return value;
    }
    exiftool::Outcomes run(const Operation& operation, const FilledForm& filled,
                           const std::vector<fs::path>& files) {
        return support::runHere(
            jobs::jobOf(operation, {}, app::commandFormOf(context_), filled, files, dictionary_), context_,
            runner_);
    }
    /// As the window has it carried out, with sessions where they can be used.
    exiftool::Outcomes runAsInWindow(const Operation& operation, const FilledForm& filled,
                                     const std::vector<fs::path>& files) {
        support::useTool(context_, folder_ / "tool",
                         "echo >>'" + (folder_ / "starts").string() + "'\nexec exiftool \"$@\"\n");
        std::error_code ignored;
        fs::remove(folder_ / "starts", ignored);
        jobs::JobRunner runner(context_);
        EXPECT_TRUE(
            runner.begin(jobs::jobOf(operation, {}, app::commandFormOf(context_), filled, files, dictionary_),
                         [&](const jobs::JobResult& result) { result_ = result; }));
        runner.waitForEnd();
        return result_.outcomes;
    }
    /// Of runAsInWindow().
    std::size_t startsOfTool() const {
        return fs::exists(folder_ / "starts") ? readBytes(folder_ / "starts").size() : 0;
    }
    bool hasSafetyCopy(const fs::path& file) const {
        return fs::exists(exiftool::safetyCopyPath(file, context_.cachePath, {}, QDateTime()));
    }

    support::TemporaryFolder folder_;
    app::AppContext context_;
    exiftool::ToolRunner runner_{context_};
    const app::LanguageFile language_;
    const tags::TagDictionary dictionary_;
    jobs::JobResult result_;
    const fs::path list_;
};

FilledForm filledWith(const QString& text, const std::vector<int>& ticked) {
    FilledForm filled;
    filled.set(kText, text);
    for (const int box : ticked) filled.set(box, true);
    return filled;
}

}  // namespace

TEST_F(OperationJobTest, TermsOfTickedBoxesReadAsEachFormJoinsThem) {
    struct {
        const Operation& operation;
        QString text;
        std::vector<int> ticked;
        const char* designed;
        const char* corrected;
    } const cases[] = {
        {kAddComment, "one", {kFirst}, " -File:comment=\"one\"", "-File:Comment=\"one\" "},
        {kAddComment,
         "one",
         {kFirst, kSecond},
         " -File:comment=\"one\" -XMP-dc:Title=\"one\"",
         "-File:Comment=\"one\" -XMP-dc:Title=\"one\" "},
        {kAddComment,
         QStringLiteral(u"\u00FC\u65E5 and more"),
         {kFirst},
         " -File:comment=\"\xFC? and m\"",
         "-File:Comment=\"\u00FC\u65E5 and more\" "},
        {kRemoval, "", {kFirst}, "-A=", "-A= "},
        {kRemoval, "", {kSecond}, "-B=", "-B= "},
        {kRemoval, "", {kFirst, kSecond}, "-A= -B=", "-A= -B= "},
        {kRemoval, "", {}, "", ""},
    };
    for (const auto& row : cases) {
        const FilledForm filled = filledWith(row.text, row.ticked);
        EXPECT_EQ(
            boxTerms(row.operation, {context_, CommandForm::Designed, filled, dictionary_, list_, {}}).text(),
            row.designed);
        EXPECT_EQ(boxTerms(row.operation, {context_, CommandForm::Corrected, filled, dictionary_, list_, {}})
                      .text(),
                  row.corrected);
    }
}

TEST_F(OperationJobTest, WhatIsMissingIsToldInTheOrderOfTheForm) {
    const auto refusal = [&](const Operation& operation, const FilledForm& filled) {
        return jobs::refusalOf(operation, filled, language_);
    };
    const auto empty = refusal(kAddComment, filledWith("", {}));
    ASSERT_TRUE(empty);
    EXPECT_EQ(empty->text, QStringLiteral("Enter it."));
    EXPECT_EQ(empty->control, kText);
    EXPECT_EQ(empty->icon, jobs::OperationMessage::Icon::Error);
    const auto none = refusal(kAddComment, filledWith("x", {}));
    ASSERT_TRUE(none);
    EXPECT_EQ(none->text, QStringLiteral("Tick one."));
    EXPECT_EQ(none->icon, jobs::OperationMessage::Icon::Warning);
    EXPECT_FALSE(refusal(kAddComment, filledWith("x", {kSecond})));

    EXPECT_TRUE(refusal(kRemoval, {})->cancels);
    EXPECT_FALSE(refusal(kRemoval, filledWith("", {kFirst})));

    const auto needsFile = refusal(kTitleFromFile, filledWith("", {kFromFile}));
    ASSERT_TRUE(needsFile);
    EXPECT_EQ(needsFile->text, QString());
    EXPECT_EQ(needsFile->control, kFile);
    EXPECT_FALSE(refusal(kTitleFromFile, {})) << "nobody needs the file then";

    FilledForm rows;
    EXPECT_TRUE(refusal(kShift, rows));
    rows.set(kRows, std::vector<int>{1108});
    EXPECT_FALSE(refusal(kShift, rows));
}

TEST_F(OperationJobTest, ATypedTextStaysInItsArgument) {
    for (const QString& text : {QStringLiteral("-overwrite_original"), QStringLiteral("a\" -All= \"b"),
                                QStringLiteral("$(touch owned) `touch owned`"), QStringLiteral("two\nlines"),
                                QStringLiteral(u"\u65E5\u672C")}) {
        const fs::path one = photo("a.jpg");
        const fs::path two = photo("b.jpg");
        const std::string before = readBytes(one);
        EXPECT_THAT(kindsOf(run(kAddComment, filledWith(text, {kFirst, kSecond}), {one, two})),
                    ElementsAre(Done, Done));
        for (const fs::path& file : {one, two}) {
            EXPECT_EQ(valueOf(file, "-File:Comment"), text.toStdString());
            EXPECT_EQ(valueOf(file, "-XMP-dc:Title"), text.toStdString());
        }
        EXPECT_EQ(readBytes(exiftool::safetyCopyPath(one, context_.cachePath, {}, QDateTime())), before);
        fs::remove_all(context_.cachePath / "sav");
    }
    EXPECT_FALSE(fs::exists("owned"));
}

TEST_F(OperationJobTest, AFileIsPassedOverWithItsReason) {
    const fs::path with = photo("with.jpg");
    const fs::path without = photo("without.jpg");
    support::writeBytes(folder_ / "photos/with.txt", "beside");
    const exiftool::Outcomes beside = run(kTitleFromFile, {}, {with, without});
    EXPECT_THAT(kindsOf(beside), ElementsAre(Done, Unchanged));
    EXPECT_EQ(beside[1].words, "No text beside it");
    EXPECT_EQ(valueOf(with, "-XMP-dc:Title") + valueOf(without, "-XMP-dc:Title"), "besideold");
    FilledForm forAll = filledWith("", {kFromFile});
    forAll.set(kFile, folder_ / "photos/with.txt");
    EXPECT_THAT(kindsOf(run(kTitleFromFile, forAll, {without})), ElementsAre(Done));
    EXPECT_EQ(valueOf(without, "-XMP-dc:Title"), "beside");
}

TEST_F(OperationJobTest, EachFileGetsItsOwnValueAndSessionsCarryWhatAllShare) {
    std::vector<fs::path> files;
    for (const char* name : {"a", "b", "c", "d"}) {
        files.push_back(photo(std::string(name) + ".jpg"));
        if (*name != 'c') support::writeBytes(folder_ / "photos" / (std::string(name) + ".txt"), name);
    }
    EXPECT_THAT(runAsInWindow(kTitleFromFile, {}, files),
                ElementsAre(Outcome{files[0], Done, {}}, Outcome{files[1], Done, {}},
                            Outcome{files[2], Unchanged, "No text beside it"}, Outcome{files[3], Done, {}}));
    std::string titles;
    for (const fs::path& file : files) titles += valueOf(file, "-XMP-dc:Title");
    EXPECT_EQ(titles, "aboldd");
    EXPECT_EQ(startsOfTool(), 3u);

    FilledForm forAll = filledWith("", {kFromFile});
    forAll.set(kFile, folder_ / "photos/b.txt");
    EXPECT_THAT(kindsOf(runAsInWindow(kTitleFromFile, forAll, files)), ElementsAre(Done, Done, Done, Done));
    for (const fs::path& file : files) EXPECT_EQ(valueOf(file, "-XMP-dc:Title"), "b");
    EXPECT_EQ(startsOfTool(), 1u);

    fs::remove(folder_ / "photos/a.txt");
    EXPECT_THAT(kindsOf(runAsInWindow(kTitleFromFile, {}, {files[0], files[2]})),
                ElementsAre(Unchanged, Unchanged));
    EXPECT_EQ(startsOfTool(), 0u);
    EXPECT_THAT(readBytes(context_.reportFile), HasSubstr("No text beside it"));
}

TEST_F(OperationJobTest, AFileThatTheOthersAreReadFromIsNotWrittenBesideThem) {
    const std::vector<fs::path> files = {photo("a.jpg"), photo("b.jpg"), photo("c.jpg")};
    const fs::path elsewhere = photo("../source.jpg", "-XMP-dc:Title=new");
    fs::create_symlink(files[2], folder_ / "link.jpg");
    struct {
        fs::path source;
        std::size_t starts;
    } const cases[] = {{elsewhere, 1}, {files[1], 3}, {folder_ / "link.jpg", 3}};
    for (const auto& [source, starts] : cases) {
        FilledForm filled;
        filled.set(kFile, source);
        EXPECT_THAT(kindsOf(runAsInWindow(kTitleOf, filled, files)), ElementsAre(Done, Done, Done));
        EXPECT_EQ(startsOfTool(), starts) << source;
        for (const fs::path& file : files) EXPECT_EQ(valueOf(file, "-XMP-dc:Title"), "new");
    }
}

TEST_F(OperationJobTest, RowsAndNumbersMakeALineOfTheirOwn) {
    FilledForm filled;
    filled.set(kRows, std::vector<int>{1608});
    filled.set(kDays, 3);
    filled.set(kBack, true);
    for (const bool corrected : {true, false}) {
        context_.settings.exifTool.correctedCommands = corrected;
        const fs::path one = photo("a.jpg", "-ExifIFD:DateTimeOriginal=2020:05:10 01:02:03");
        const fs::path two = photo("b.jpg", "-IFD0:ModifyDate=2020:05:10 01:02:03");
        EXPECT_THAT(kindsOf(run(kShift, filled, {one, two})), ElementsAre(Done, Unchanged));
        EXPECT_EQ(valueOf(one, "-ExifIFD:DateTimeOriginal"), "2020:05:07 01:02:03");
        EXPECT_EQ(valueOf(two, "-IFD0:ModifyDate"), "2020:05:10 01:02:03");
        EXPECT_FALSE(hasSafetyCopy(one));
    }
}

TEST_F(OperationJobTest, ReadingIsJudgedByItsAnswerAndChangesNoFile) {
    const std::vector<fs::path> files = {photo("a.jpg"), photo("b.jpg", "-XMP-dc:Title=other"),
                                         photo("c.jpg", "-XMP-dc:Title="), folder_ / "photos/missing.jpg",
                                         photo("e.jpg")};
    fs::create_directory(folder_ / "to");
    FilledForm filled = filledWith("$FileName ne 'b.jpg'", {});
    filled.set(kFolder, folder_ / "to");
    const auto before = support::bytesBelow(folder_ / "photos");
    for (const bool corrected : {true, false}) {
        context_.settings.exifTool.correctedCommands = corrected;
        EXPECT_THAT(kindsOf(runAsInWindow(kListTitles, filled, files)),
                    ElementsAre(Done, Unchanged, Unchanged, Failed, Done));
        EXPECT_EQ(result_.outcomes[1].words, "");
        EXPECT_EQ(result_.outcomes[2].words, "ExifTool had nothing to tell");
        EXPECT_THAT(result_.outcomes[3].words, HasSubstr("missing.jpg"));
        EXPECT_EQ(readBytes(folder_ / "to/a.txt"), "*old\n");
        EXPECT_EQ(readBytes(folder_ / "to/b.txt"), "");
    }
    EXPECT_TRUE(support::bytesBelow(folder_ / "photos") == before);
    EXPECT_FALSE(fs::exists(context_.cachePath / "sav"));
    support::expectTruthOfStandIns(context_, runner_, folder_.path(), folder_ / "photos",
                                   {{"list", [&] { return run(kListTitles, filled, files); }, Unchanged},
                                    {"show", [&] { return run(kShowTitles, {}, files); }, Unchanged}});
}

TEST_F(OperationJobTest, WhatFollowsARunCanEndAFileOtherwise) {
    const fs::path file = photo("a.jpg", "-XMP-dc:Title=*");
    fs::create_directory(folder_ / "to");
    FilledForm filled = filledWith("1", {});
    filled.set(kFolder, folder_ / "to");
    EXPECT_THAT(run(kListTitles, filled, {file}), ElementsAre(Outcome{file, Failed, "Has its star"}));
}

TEST_F(OperationJobTest, OneReadingOfAllFilesTellsOfEachAndBringsItsAnswer) {
    const std::vector<fs::path> files = {photo("a.jpg"), folder_ / "photos/missing.jpg",
                                         photo("c \"d\".jpg", "-XMP-dc:Title=third")};
    EXPECT_THAT(kindsOf(runAsInWindow(kShowTitles, {}, files)), ElementsAre(Done, Failed, Done));
    EXPECT_EQ(startsOfTool(), 1u);
    EXPECT_EQ(result_.printed, "old\nthird\n");
    EXPECT_THAT(result_.outcomes[1].words, HasSubstr("missing.jpg"));
    EXPECT_FALSE(fs::exists(context_.cachePath / "sav"));

    const FilledForm intoReport = filledWith("", {kFirst});
    EXPECT_THAT(runAsInWindow(kShowTitles, intoReport, {files[0], files[2]}),
                ElementsAre(Outcome{files[0], Done, {}}, Outcome{files[2], Done, {}}));
    EXPECT_EQ(readBytes(context_.reportFile), "old\nthird\n");
    EXPECT_EQ(result_.printed, "");
    fs::path opened;
    jobs::jobOf(kShowTitles, {}, CommandForm::Corrected, intoReport, files, dictionary_)
        .atEnd({result_, context_, language_, nullptr, [&](const fs::path& path) { opened = path; }});
    EXPECT_EQ(opened, context_.reportFile);

    EXPECT_THAT(kindsOf(runAsInWindow(kShowTitles, filledWith("", {kSecond}), files)),
                ElementsAre(Done, Failed, Done));
    EXPECT_EQ(startsOfTool(), 3u);
    EXPECT_EQ(result_.printed, "old\nthird\n");
}

TEST_F(OperationJobTest, OneLineForAllFilesHasASafetyCopyOfEach) {
    const std::vector<fs::path> files = {photo("a.jpg"), photo("b \"c\".jpg")};
    EXPECT_THAT(kindsOf(run(kOfAll, {}, files)), ElementsAre(Done, Done));
    for (const fs::path& file : files) {
        EXPECT_EQ(valueOf(file, "-XMP-dc:Title"), "all");
        EXPECT_TRUE(hasSafetyCopy(file)) << file;
    }
    const auto works = std::vector<support::NamedWork>{
        {"list", [&] { return run(kOfAll, {}, files); }},
        {"arguments", [&] { return run(kAddComment, filledWith("x", {kSecond}), files); }}};
    support::expectTruthOfStandIns(context_, runner_, folder_.path(), folder_ / "photos", works);
}
