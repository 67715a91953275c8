#include "batch/BatchDispatch.h"
#include "batch/BatchOperations.h"
#include "jobs/JobSource.h"
#include "support/EditingContext.h"
#include "support/RunHere.h"
#include "support/SmallFiles.h"
#include "support/TemporaryFolder.h"
#include "support/ToolStandIns.h"

#include <gmock/gmock.h>

namespace {

namespace fs = std::filesystem;
using app::CommandId;
using enum exiftool::OutcomeKind;
using exiftool::Outcome;
using exiftool::OutcomeKind;
using exiftool::Outcomes;
using support::ExifTool;
using support::kindsOf;
using support::readBytes;
using support::writeBytes;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::UnorderedElementsAre;

class BatchOperationsTest : public testing::Test {
 protected:
    BatchOperationsTest() {
        context_ = support::editingContext(folder_.path());
        support::writeJpeg(master_);
        ExifTool({"-q", "-overwrite_original", "-EXIF:Make=Maker/s", "-EXIF:Model=Model 1",
                  "-DateTimeOriginal=2001:02:03 04:05:06", "-XMP-dc:Title=A title",
                  "-FileModifyDate=2020:01:02 03:04:05", master_.string()});
    }

    fs::path make(const std::string& name) {
        const fs::path file = folder_ / "photos" / name;
        fs::copy_file(master_, file);
        fs::last_write_time(file, fs::last_write_time(master_));
        return file;
    }
    static void set(const fs::path& file, const std::string& assignment) {
        ExifTool({"-q", "-m", "-P", "-overwrite_original", assignment, file.string()});
    }
    static std::string valueOf(const fs::path& file, const std::string& tag) {
        std::string value = ExifTool({"-s3", tag, file.string()});
        if (value.ends_with('\n')) value.pop_back();
        return value;
    }
    static const jobs::Operation* operationOf(CommandId id) {
        for (const jobs::Operation& operation : batch::operations())
            if (operation.id == id) return &operation;
        return nullptr;
    }
    jobs::Job jobOf(CommandId id, const std::vector<fs::path>& files) {
        std::optional<jobs::Job> job = batch::BatchDispatcher({context_, language_, dictionary_}, {})
                                           .BatchDispatch(id, operationOf(id), files);
        EXPECT_TRUE(job) << id;
        return job.value_or(jobs::Job());
    }
    std::vector<OutcomeKind> run(CommandId id, const std::vector<fs::path>& files) {
        outcomes_ = support::runHere(jobOf(id, files), context_, runner_);
        for (std::size_t at = 0; at < outcomes_.size(); ++at) EXPECT_EQ(outcomes_[at].file, files.at(at));
        return kindsOf(outcomes_);
    }
    std::string report() const {
        return fs::exists(context_.reportFile) ? readBytes(context_.reportFile) : "";
    }
    std::vector<std::string> names() const {
        std::vector<std::string> all;
        for (const auto& entry : fs::directory_iterator(folder_ / "photos"))
            all.push_back(entry.path().filename().string());
        return all;
    }
    void useTool(const std::string& script) { support::useTool(context_, folder_ / "tool", script); }

    /// Counts are read only where cameras write them; here they are a tag of a namespace of our own.
    void useToolThatWritesCounts() {
        writeBytes(
            folder_ / "config",
            "%Image::ExifTool::UserDefined = ('Image::ExifTool::XMP::Main' => { test => { SubDirectory "
            "=> { TagTable => 'Image::ExifTool::UserDefined::test' } } });\n"
            "%Image::ExifTool::UserDefined::test = (GROUPS => { 0 => 'XMP', 1 => 'XMP-test', 2 => "
            "'Other' }, NAMESPACE => { 'test' => 'http://test.example/1.0/' }, WRITABLE => 'string', "
            "ShutterCount => { });\n1;\n");
        useTool("exec exiftool -config '" + (folder_ / "config").string() + "' \"$@\"\n");
    }

    support::TemporaryFolder folder_;
    fs::path master_ = folder_ / "master.jpg";
    app::AppContext context_;
    const app::LanguageFile language_{TAGWRIGHT_BIN_DIR, 9};
    const tags::TagDictionary dictionary_;
    exiftool::ToolRunner runner_{context_};
    Outcomes outcomes_;
};

TEST_F(BatchOperationsTest, TheFileDateBecomesThatOfThePhoto) {
    const fs::path photo = make("a.jpg");
    const fs::path dateless = make("b.jpg");
    set(dateless, "-DateTimeOriginal=");
    const std::string before = readBytes(photo);
    EXPECT_THAT(run(157, {photo, dateless}), ElementsAre(Done, Unchanged));
    EXPECT_THAT(valueOf(photo, "-FileModifyDate"), HasSubstr("2001:02:03 04:05:06"));
    EXPECT_THAT(valueOf(dateless, "-FileModifyDate"), HasSubstr("2020:01:02 03:04:05"));
    EXPECT_EQ(readBytes(photo), before);
    EXPECT_EQ(outcomes_[0].words, "");
    EXPECT_THAT(outcomes_[1].words, HasSubstr("b.jpg"));
    EXPECT_THAT(report(), HasSubstr("b.jpg"));
    EXPECT_THAT(report(), Not(HasSubstr("a.jpg")));
    EXPECT_TRUE(fs::exists(
        exiftool::safetyCopyPath(photo, context_.cachePath, exiftool::SafetyCopies(), QDateTime())));
}

TEST_F(BatchOperationsTest, FilesAreNamedAfterTheShutterCountAndNoneIsReplaced) {
    useToolThatWritesCounts();
    const auto makeWith = [&](const std::string& name, const std::string& count) {
        const fs::path file = make(name);
        ExifTool({"-config", (folder_ / "config").string(), "-q", "-overwrite_original",
                  "-XMP-test:ShutterCount=" + count, file.string()});
        return file;
    };
    const fs::path one = makeWith("a.jpg", "1234");
    const fs::path same = makeWith("b.jpg", "1234");
    const fs::path odd = makeWith("c.jpg", "../5 6%d");
    const fs::path wordless = makeWith("wordless.jpg", "unknown");
    const fs::path countless = make("countless.jpg");
    EXPECT_THAT(run(172, {one, same, odd, wordless, countless}),
                ElementsAre(Done, Done, Done, Unchanged, Unchanged));
    const auto expected =
        UnorderedElementsAre("1234.jpg", "1234-1.jpg", "56.jpg", "wordless.jpg", "countless.jpg");
    EXPECT_THAT(names(), expected);
    EXPECT_THAT(report(), HasSubstr("'ShutterCount' not defined - " + countless.string()));
    EXPECT_THAT(report(), HasSubstr(wordless.string()));
    EXPECT_THAT(run(172, {folder_ / "photos/1234.jpg", folder_ / "photos/1234-1.jpg"}),
                ElementsAre(Unchanged, Unchanged));
    EXPECT_THAT(names(), expected) << "who has the name keeps it";
}

TEST_F(BatchOperationsTest, FilesAreNamedAfterDateAndCamera) {
    const fs::path photo = make("a.jpg");
    EXPECT_THAT(run(173, {photo}), ElementsAre(Done));
    EXPECT_THAT(names(), ElementsAre("2001-02-03 04-05-06 - Makers-a.jpg"));
    EXPECT_THAT(run(174, {folder_ / "photos/2001-02-03 04-05-06 - Makers-a.jpg"}), ElementsAre(Done));
    EXPECT_THAT(names(), ElementsAre("2001-02-03 04-05-06 - Model 1-2001-02-03 04-05-06 - Makers-a.jpg"));
    EXPECT_EQ(report(), "");
    EXPECT_EQ(readBytes(folder_ / "photos" / names().front()), readBytes(master_));
}

TEST_F(BatchOperationsTest, NoFileTakesTheNameOfAnother) {
    const fs::path photo = make("a.jpg");
    const fs::path other = folder_ / "photos/2001-02-03 04-05-06 - Makers-a.jpg";
    writeBytes(other, "somebody else's");
    EXPECT_THAT(run(173, {photo}), ElementsAre(Done));
    EXPECT_THAT(names(), UnorderedElementsAre("2001-02-03 04-05-06 - Makers-a.jpg",
                                              "2001-02-03 04-05-06 - Makers-a-1.jpg"));
    EXPECT_EQ(readBytes(other), "somebody else's");
}

TEST_F(BatchOperationsTest, AFileWithoutTheTagKeepsItsName) {
    const fs::path without = make("without.jpg");
    set(without, "-Make=");
    const fs::path blank = make("blank.jpg");
    set(blank, "-Make=   ");
    const fs::path slashes = make("slashes.jpg");
    set(slashes, "-Make=///");
    EXPECT_THAT(run(173, {without, blank, slashes}), ElementsAre(Unchanged, Unchanged, Unchanged));
    EXPECT_THAT(names(), UnorderedElementsAre("without.jpg", "blank.jpg", "slashes.jpg"));
    for (const char* name : {"without.jpg", "blank.jpg", "slashes.jpg"})
        EXPECT_THAT(report(), HasSubstr(name));
}

TEST_F(BatchOperationsTest, WhatStandsInATagLeadsToNoOtherFolderAndRunsNothing) {
    struct {
        const char* make;
        const char* expected;
    } const cases[] = {
        {"../../owned", "....owned"},
        {"%d%f%e", "dfe"},
        {"x\" -if \"system('touch owned')\" \"", "x -if system('touch owned')"},
        {"$(touch owned)`touch owned`", "$(touch owned)`touch owned`"},
        {"${Title} $Title", "${Title} $Title"},
        {">owned 2>>owned", "owned 2owned"},
        {"line\nfeed", "linefeed"},
        {"-x", "-x"},
        {"\xE6\x97\xA5\xE6\x9C\xAC \xF0\x9F\x93\xB7", "\xE6\x97\xA5\xE6\x9C\xAC \xF0\x9F\x93\xB7"},
    };
    for (const auto& row : cases) {
        const fs::path photo = make("a.jpg");
        set(photo, std::string("-XMP-tiff:Make=") + row.make);
        set(photo, "-EXIF:Make=");
        EXPECT_THAT(run(173, {photo}), ElementsAre(Done)) << row.make;
        const std::string expected = std::string("2001-02-03 04-05-06 - ") + row.expected + "-a.jpg";
        EXPECT_THAT(names(), ElementsAre(expected)) << row.make << '\n' << report();
        fs::remove(folder_ / "photos" / names().front());
    }
    EXPECT_FALSE(fs::exists("owned"));
    EXPECT_FALSE(fs::exists(folder_ / "owned"));
}

TEST_F(BatchOperationsTest, HostileNamesAreKeptBehindTheDate) {
    for (const std::string& name : support::hostileNames()) {
        const fs::path photo = make(name);
        EXPECT_THAT(run(174, {photo}), ElementsAre(Done)) << name;
        EXPECT_THAT(names(), ElementsAre("2001-02-03 04-05-06 - Model 1-" + name)) << report();
        fs::remove(folder_ / "photos" / names().front());
    }
    EXPECT_EQ(report(), "");
}

TEST_F(BatchOperationsTest, ThumbnailsGoAndNothingElseDoes) {
    const fs::path photo = make("a.jpg");
    ExifTool({"-q", "-overwrite_original", "-ThumbnailImage<=" + master_.string(), photo.string()});
    ASSERT_NE(valueOf(photo, "-ThumbnailImage"), "");
    const fs::path without = make("b.jpg");
    EXPECT_THAT(run(185, {photo, without}), ElementsAre(Done, Unchanged));
    EXPECT_EQ(valueOf(photo, "-ThumbnailImage"), "");
    EXPECT_EQ(valueOf(photo, "-Title"), "A title");
    EXPECT_EQ(valueOf(photo, "-EXIF:Make"), "Maker/s");
    EXPECT_EQ(readBytes(without), readBytes(master_));
    EXPECT_EQ(report(), "");
    EXPECT_THAT(names(), UnorderedElementsAre("a.jpg", "b.jpg"));
}

TEST_F(BatchOperationsTest, TheDesignedFormsLoseNoFile) {
    context_.settings.exifTool.correctedCommands = false;
    const fs::path one = make("a.jpg");
    const fs::path two = make("b.jpg");
    for (const CommandId id : {172, 173, 174, 185}) {
        for (const OutcomeKind kind : run(id, {one, two}))
            EXPECT_TRUE(kind == Unchanged || kind == Failed) << id;
        EXPECT_EQ(outcomes_.size(), 2u);
    }
    EXPECT_THAT(names(), UnorderedElementsAre("a.jpg", "b.jpg"));
    EXPECT_EQ(readBytes(one), readBytes(master_));
    EXPECT_EQ(readBytes(two), readBytes(master_));
    EXPECT_NE(report(), "");
}

TEST_F(BatchOperationsTest, TheDesignedThumbnailLineNamesTheFilesUpToItsOwn) {
    context_.settings.exifTool.correctedCommands = false;
    useTool("for last; do :; done\nprintf '%s\\n' \"$3\" >>\"${last%/*}/../seen\"\n");
    const std::vector<fs::path> files = {make("a.jpg"), make("b.jpg"), make("c.jpg")};
    const jobs::Job job = jobOf(185, files);
    EXPECT_EQ(job.title, QStringLiteral("Removing thumbnails"));
    for (int round = 0; round < 2; ++round) {
        fs::remove(folder_ / "seen");
        static_cast<void>(support::runHere(job, context_, runner_));
        std::string seen;
        std::string line;
        for (const fs::path& file : files) seen += (line += "-ThumbnailImage=" + file.string()) + '\n';
        EXPECT_EQ(readBytes(folder_ / "seen"), seen) << "a job begins anew each time";
    }
}

TEST_F(BatchOperationsTest, TheLineForAllFilesIsTheLineOfEach) {
    const fs::path photo = make("a.jpg");
    useTool("for word; do printf '[%s]' \"$word\"; done >>'" + (folder_ / "seen").string() + "'\n");
    for (const CommandId id : {157, 172, 173, 174, 185}) {
        const jobs::Job job = jobOf(id, {photo});
        std::string seen[2];
        for (const bool asOne : {true, false}) {
            if (asOne) {
                EXPECT_EQ(runner_.RunToolLine(job.lineOf(context_, app::commandFormOf(context_), photo).text),
                          1);
            } else {
                static_cast<void>(support::runHere(job, context_, runner_));
            }
            seen[asOne ? 0 : 1] = readBytes(folder_ / "seen");
            fs::remove(folder_ / "seen");
        }
        EXPECT_NE(seen[0], "") << id;
        EXPECT_EQ(seen[0], seen[1]) << id;
        EXPECT_EQ(job.makesSafetyCopies, id != 172) << id;
    }
}

TEST_F(BatchOperationsTest, NothingIsWrittenBeforeTheJobIsCarriedOut) {
    const fs::path photo = make("a.jpg");
    for (const CommandId id : {157, 172, 173, 174, 185}) {
        const jobs::Job job = jobOf(id, {photo});
        EXPECT_THAT(job.files, ElementsAre(photo));
        EXPECT_FALSE(job.title.isEmpty()) << id;
    }
    EXPECT_THAT(names(), ElementsAre("a.jpg"));
    EXPECT_EQ(readBytes(photo), readBytes(master_));
    EXPECT_FALSE(fs::exists(context_.cachePath / "sav"));
}

TEST_F(BatchOperationsTest, OneBadFileDoesNotKeepTheOthersFromTheirTurn) {
    const fs::path good = make("good.jpg");
    const fs::path barred = make("barred.jpg");
    // Bars a write also for those whom permissions do not.
    fs::create_directory(folder_ / "photos/barred.jpg_exiftool_tmp");
    const fs::path vanished = folder_ / "photos/vanished.jpg";
    const fs::path noPicture = folder_ / "photos/text.jpg";
    writeBytes(noPicture, "no picture");
    const fs::path last = make("last.jpg");
    for (const fs::path& file : {good, barred, last})
        ExifTool(
            {"-q", "-o", file.string() + ".with.jpg", "-ThumbnailImage<=" + master_.string(), file.string()});
    for (const fs::path& file : {good, barred, last}) fs::rename(file.string() + ".with.jpg", file);
    const std::string before = readBytes(barred);
    EXPECT_THAT(run(185, {good, barred, vanished, noPicture, last}),
                ElementsAre(Done, Failed, Failed, Failed, Done));
    EXPECT_EQ(valueOf(good, "-ThumbnailImage"), "");
    EXPECT_EQ(valueOf(last, "-ThumbnailImage"), "");
    EXPECT_EQ(readBytes(barred), before);
    for (const char* name : {"barred.jpg", "vanished.jpg", "text.jpg"})
        EXPECT_THAT(report(), HasSubstr(name));
    for (const char* name : {"good.jpg", "last.jpg"}) EXPECT_THAT(report(), Not(HasSubstr(name)));
    for (const std::size_t at : {1U, 2U, 3U})
        EXPECT_THAT(outcomes_[at].words, HasSubstr(outcomes_[at].file.filename().string()));
}

TEST_F(BatchOperationsTest, AToolThatIsKilledIsInTheReportAndTheRestGoesOn) {
    useTool("for last; do :; done\ncase \"$last\" in *a.jpg) kill -9 $$;; esac\nexec exiftool \"$@\"\n");
    const fs::path one = make("a.jpg");
    const fs::path two = make("b.jpg");
    EXPECT_THAT(run(173, {one, two}), ElementsAre(Killed, Done));
    EXPECT_THAT(outcomes_[0].words, HasSubstr("signal 9"));
    EXPECT_THAT(report(), HasSubstr("signal 9"));
    EXPECT_TRUE(fs::exists(one));
    EXPECT_FALSE(fs::exists(two));
}

TEST_F(BatchOperationsTest, ADiskThatIsFullLeavesTheFileWhole) {
    const fs::path photo = make("a.jpg");
    ExifTool({"-q", "-overwrite_original", "-ThumbnailImage<=" + master_.string(),
              "-XMP-dc:Description=" + std::string(20'000, 'x'), photo.string()});
    const std::string before = readBytes(photo);
    for (const char* onTooBig : {"trap '' XFSZ\n", ""}) {
        useTool(std::string(onTooBig) + "ulimit -f 4\nexec exiftool \"$@\"\n");
        fs::remove(context_.reportFile);
        EXPECT_THAT(run(185, {photo}), ElementsAre(*onTooBig == '\0' ? Killed : Failed));
        EXPECT_EQ(readBytes(photo), before);
        EXPECT_NE(outcomes_[0].words, "");
        EXPECT_THAT(names(), ElementsAre("a.jpg")) << "nothing half written is left";
    }
}

TEST_F(BatchOperationsTest, AToolThatIsMissingIsNotStarted) {
    context_.exifToolPath = folder_ / "gone";
    EXPECT_THAT(run(185, {make("a.jpg")}), ElementsAre(NotStarted));
    EXPECT_THAT(outcomes_[0].words, HasSubstr("not started"));
    EXPECT_NE(report(), "");
}

TEST_F(BatchOperationsTest, ARunThatHasNoPlaceToWriteToIsNotDone) {
    const fs::path photo = make("a.jpg");
    ExifTool({"-q", "-overwrite_original", "-ThumbnailImage<=" + master_.string(), photo.string()});
    const std::string before = readBytes(photo);
    context_.reportFile = folder_ / "no/folder/report.txt";
    EXPECT_THAT(run(185, {photo}), ElementsAre(NotStarted));
    EXPECT_NE(outcomes_[0].words, "");
    context_.reportFile = folder_ / "cache/report.txt";
    context_.tempPath = folder_ / "no";
    EXPECT_THAT(run(185, {photo}), ElementsAre(NotStarted));
    EXPECT_THAT(outcomes_[0].words, HasSubstr("could not be written"));
    EXPECT_EQ(readBytes(photo), before);
}

TEST_F(BatchOperationsTest, NoOperationTellsASuccessThatIsNone) {
    const std::vector<fs::path> files = {make("a.jpg"), make("b.jpg")};
    std::vector<support::NamedWork> works;
    for (const CommandId id : {157, 172, 173, 174, 185})
        works.push_back({std::to_string(id), [=, this] {
                             run(id, files);
                             return outcomes_;
                         }});
    support::expectTruthOfStandIns(context_, runner_, folder_.path(), folder_ / "photos", works);
}

TEST_F(BatchOperationsTest, NothingIsDispatchedThatIsNoBatchCommand) {
    const fs::path photo = make("a.jpg");
    int opened = 0;
    batch::BatchDispatcher dispatcher({context_, language_, dictionary_},
                                      [&](const jobs::Operation&, batch::BatchOptions&) {
                                          ++opened;
                                          return jobs::Job();
                                      });
    for (const CommandId id : {0, 12, 145, 149, 170, 206, 210, 229})
        EXPECT_FALSE(dispatcher.BatchDispatch(id, operationOf(173), {photo})) << id;
    EXPECT_FALSE(dispatcher.BatchDispatch(173, operationOf(173), {}));
    EXPECT_FALSE(dispatcher.BatchDispatch(146, nullptr, {photo})) << "not built";
    EXPECT_EQ(opened, 0);
    EXPECT_THAT(names(), ElementsAre("a.jpg"));
}

TEST_F(BatchOperationsTest, WhatADialogLeavesIsHandedBack) {
    const fs::path photo = make("a.jpg");
    const jobs::Operation asking{.id = 183, .templateNumber = 157};
    bool isCancelled = false;
    batch::BatchDispatcher dispatcher(
        {context_, language_, dictionary_},
        [&](const jobs::Operation& operation, const batch::BatchOptions& options) {
            EXPECT_EQ(operation.id, options.command);
            return isCancelled ? std::nullopt
                               : std::optional(jobs::Job{.title = "Asked", .files = options.files});
        });
    const std::optional<jobs::Job> job = dispatcher.BatchDispatch(183, &asking, {photo});
    ASSERT_TRUE(job);
    EXPECT_EQ(job->title, QStringLiteral("Asked"));
    EXPECT_THAT(job->files, ElementsAre(photo));
    isCancelled = true;
    EXPECT_FALSE(dispatcher.BatchDispatch(183, &asking, {photo}));
}

TEST_F(BatchOperationsTest, TheOptionsOfTheLastOperationAreCleared) {
    const fs::path photo = make("a.jpg");
    batch::BatchDispatcher dispatcher({context_, language_, dictionary_}, {});
    EXPECT_TRUE(dispatcher.BatchDispatch(185, operationOf(185), {photo}));
    EXPECT_EQ(dispatcher.options().command, 185);
    EXPECT_THAT(dispatcher.options().files, ElementsAre(photo));
    EXPECT_FALSE(dispatcher.BatchDispatch(145, operationOf(185), {photo}));
    EXPECT_EQ(dispatcher.options().command, 0);
    EXPECT_THAT(dispatcher.options().files, IsEmpty());
}

}  // namespace
