#include "jobs/JobSource.h"
#include "jobs/OperationJob.h"
#include "payload/PayloadExporter.h"
#include "payload/PayloadFetch.h"
#include "payload/PayloadFile.h"
#include "payload/ThumbnailOperations.h"
#include "payload/ThumbnailWrite.h"
#include "support/RunHere.h"
#include "support/ToolStandIns.h"

#include <gmock/gmock.h>

using namespace payload;
using exiftool::Outcome;
using exiftool::OutcomeKind;
using enum exiftool::OutcomeKind;
using support::kindsOf;
using support::readBytes;
using support::writeBytes;
using tags::TagEditContext;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace fs = std::filesystem;

namespace {

class PayloadExportTest : public PayloadFile {
 protected:
    PayloadExportTest() { fs::create_directory(target); }

    std::vector<std::string> targets() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(target)) names.push_back(entry.path().filename());
        return names;
    }
    PayloadExporter exporter(std::vector<fs::path> files) const {
        return PayloadExporter(target, std::move(files));
    }
    Outcome exportBy(PayloadExporter& run, const PayloadExport& payload, const fs::path& file) {
        jobs::JobWork work{context, app::commandFormOf(context), runner, {}, {}, {}};
        return run.Export(work, payload, file);
    }
    Outcome exportOne(const PayloadExport& payload, const fs::path& file) {
        PayloadExporter run = exporter({file});
        return exportBy(run, payload, file);
    }
    exiftool::Outcomes carryOut(const jobs::Job& job) { return support::runHere(job, context, runner); }
    jobs::Job embeddingJob(const fs::path& picture, const std::vector<fs::path>& files) const {
        jobs::FilledForm filled;
        filled.set(1321, picture);
        return jobs::jobOf(payload::operations().front(), {}, app::commandFormOf(context), filled, files,
                           tags::TagDictionary());
    }
    void useTool(const std::string& script) { support::useTool(context, folder / "tool", script); }
    static const PayloadExport& kind(std::string_view tag) {
        for (const PayloadExport& payload : thumbnailExports())
            if (payload.tag == tag) return payload;
        return iccExport();
    }

    const fs::path target = folder / "to \"here\" >x";
};

}  // namespace

TEST_F(PayloadExportTest, ThumbnailAndProfileOfFilesWithOddNames) {
    for (const std::string& name : support::hostileNames()) {
        const fs::path file = photoWithThumbnail(name, true);
        PayloadExporter run = exporter({file});
        EXPECT_EQ(exportBy(run, kind("ThumbnailImage"), file), (Outcome{file, Done, {}})) << name;
        EXPECT_EQ(readBytes(run.targetOf(kind("ThumbnailImage"), file)), readBytes(folder / "first.jpg"));
    }
    EXPECT_EQ(targets().size(), support::hostileNames().size());
    EXPECT_FALSE(fs::exists("owned"));

    const fs::path file = folder / "photos/plain.jpg";
    EXPECT_EQ(exportOne(iccExport(), file).kind, Done);
    const std::string profile = readBytes(target / "plain.icc");
    EXPECT_EQ(profile, support::ExifTool({"-b", "-icc_profile", file.string()}));
    EXPECT_EQ(profile.substr(36, 4), "acsp");
    EXPECT_EQ(report(), "");
}

TEST_F(PayloadExportTest, WhereThereAreNoData) {
    const fs::path file = photo({});
    const Outcome none = exportOne(kind("PreviewImage"), file);
    EXPECT_EQ(none, (Outcome{file, Unchanged, "Holds no PreviewImage"}));
    EXPECT_EQ(exportOne(iccExport(), file).kind, Unchanged);
    EXPECT_TRUE(targets().empty());
    context.settings.exifTool.correctedCommands = false;
    EXPECT_EQ(exportOne(kind("PreviewImage"), file), none);
    EXPECT_EQ(readBytes(target / "a_PreviewImage.jpg"), "");
}

TEST_F(PayloadExportTest, AFileThatCannotBeReadIsInTheReport) {
    const fs::path missing = folder / "photos/missing.jpg";
    const Outcome failed = exportOne(iccExport(), missing);
    EXPECT_EQ(failed.kind, Failed);
    EXPECT_THAT(failed.words, HasSubstr("missing.jpg"));
    EXPECT_THAT(report(), HasSubstr("missing.jpg"));
    context.exifToolPath = folder / "no such tool";
    const fs::path file = photo({});
    const Outcome notStarted = exportOne(iccExport(), file);
    EXPECT_EQ(notStarted.kind, NotStarted);
    EXPECT_NE(notStarted.words, "");
    EXPECT_TRUE(targets().empty());
}

TEST_F(PayloadExportTest, FilesOfOneBaseNameKeepTheirTargetsApart) {
    const fs::path first = photoWithThumbnail("a.jpg");
    const fs::path second = photoWithThumbnail("a.jpeg");
    support::ExifTool({"-q", "-overwrite_original",
                       "-ThumbnailImage<=" + smallJpeg("second.jpg", Qt::green).string(), second.string()});
    for (const bool replaces : {false, true}) {
        PayloadExporter run = exporter({first, second});
        run.setReplaceExisting(replaces);
        for (const fs::path& file : {first, second})
            EXPECT_EQ(exportBy(run, kind("ThumbnailImage"), file).kind, Done);
        EXPECT_EQ(readBytes(target / "a_ThumbnailImage.jpg"), readBytes(folder / "first.jpg"));
        EXPECT_EQ(readBytes(target / "a_ThumbnailImage (2).jpg"), readBytes(folder / "second.jpg"));
        for (const std::string& name : targets()) fs::remove(target / name);
    }
}

TEST_F(PayloadExportTest, WhatIsThereIsReplacedOnlyWhenThatWasSaid) {
    const fs::path file = photoWithThumbnail("a.jpg");
    const fs::path there = target / "a_ThumbnailImage.jpg";
    EXPECT_EQ(exporter({file}).firstExisting(thumbnailExports()), fs::path());
    writeBytes(there, "mine");
    PayloadExporter run = exporter({file});
    EXPECT_EQ(run.firstExisting(thumbnailExports()), there);
    EXPECT_EQ(exportBy(run, kind("ThumbnailImage"), file).kind, Done);
    EXPECT_EQ(readBytes(there), "mine");
    EXPECT_THAT(targets(), UnorderedElementsAre("a_ThumbnailImage.jpg", "a_ThumbnailImage (2).jpg"));
    PayloadExporter replacing = exporter({file});
    replacing.setReplaceExisting(true);
    EXPECT_EQ(exportBy(replacing, kind("ThumbnailImage"), file).kind, Done);
    EXPECT_EQ(readBytes(there), readBytes(folder / "first.jpg"));
}

TEST_F(PayloadExportTest, NoFileOfTheSelectionIsWrittenOver) {
    const fs::path source = photoWithThumbnail("plain.jpg", true);
    const fs::path profile = target / "own.icc";
    writeBytes(profile, support::ExifTool({"-b", "-icc_profile", source.string()}));
    const std::string before = readBytes(profile);
    context.settings.exifTool.correctedCommands = false;
    const Outcome refused = exportOne(iccExport(), profile);
    EXPECT_EQ(refused.kind, Failed);
    EXPECT_THAT(refused.words, HasSubstr("own.icc"));
    EXPECT_EQ(readBytes(profile), before);
    EXPECT_THAT(report(), HasSubstr("own.icc"));
    context.settings.exifTool.correctedCommands = true;
    PayloadExporter run = exporter({profile});
    run.setReplaceExisting(true);
    EXPECT_EQ(run.firstExisting({&iccExport(), 1}), fs::path());
    EXPECT_EQ(exportBy(run, iccExport(), profile).kind, Done);
    EXPECT_EQ(readBytes(profile), before);
    EXPECT_EQ(readBytes(target / "own (2).icc"), before);
}

TEST_F(PayloadExportTest, FetchedBytesAreThoseInTheFile) {
    for (const std::string& name : support::hostileNames()) {
        const fs::path file = photoWithThumbnail(name);
        const PayloadPlaces places(context.tempPath, u"ThumbnailImage");
        EXPECT_EQ(fetchPayload(context, runner, thumbnailRow(file), places), "") << name;
        EXPECT_EQ(readBytes(places.fetched), readBytes(folder / "first.jpg")) << name;
    }
}

TEST_F(PayloadExportTest, AValueOfTextIsFetchedAsThePanelHoldsIt) {
    TagEditContext row = thumbnailRow(photo({}));
    row.value = QString::fromUtf8("gr\xC3\xBC\xC3\x9F\x65\" -if \"1\n");
    const PayloadPlaces places(context.tempPath, row.title);
    EXPECT_EQ(fetchPayload(context, runner, row, places), "");
    EXPECT_EQ(readBytes(places.fetched), row.value.toStdString());
    // A name that is no tag's fetches nothing, and leaves nothing of the last.
    row.value = "(Binary data 5 bytes";
    row.title = "Artist=owned";
    writeBytes(PayloadPlaces(context.tempPath, row.title).fetched, "old");
    EXPECT_NE(fetchPayload(context, runner, row, PayloadPlaces(context.tempPath, row.title)), "");
    EXPECT_FALSE(fs::exists(PayloadPlaces(context.tempPath, row.title).fetched));
}

TEST_F(PayloadExportTest, AThumbnailIsReplacedAndDeletedAndNothingElse) {
    for (const std::string& name : support::hostileNames()) {
        const fs::path file = photoWithThumbnail(name);
        const std::string before = readBytes(file);
        const std::string tags = otherTags(file, "IFD1:All");
        const fs::path picture = smallJpeg("new " + name, Qt::green);
        EXPECT_THAT(carryOut(replaceThumbnailJob({}, picture, file)), ElementsAre(Outcome{file, Done, {}}));
        EXPECT_EQ(thumbnailOf(file), readBytes(picture)) << name;
        EXPECT_EQ(copyOf(file), before);
        EXPECT_THAT(carryOut(deleteThumbnailJob({}, file)), ElementsAre(Outcome{file, Done, {}}));
        EXPECT_EQ(thumbnailOf(file), "");
        EXPECT_EQ(otherTags(file, "IFD1:All"), tags);
        EXPECT_EQ(valueOf(file, "Artist"), "Somebody");
    }
    EXPECT_FALSE(fs::exists("owned"));
}

TEST_F(PayloadExportTest, AFileThatCannotBeWrittenStaysAndSaysWhy) {
    const fs::path file = folder / "photos/text.jpg";
    writeBytes(file, "no picture at all");
    const fs::path picture = smallJpeg("new.jpg", Qt::green);
    const exiftool::Outcomes outcomes = carryOut(replaceThumbnailJob({}, picture, file));
    EXPECT_THAT(kindsOf(outcomes), ElementsAre(Failed));
    EXPECT_THAT(outcomes.front().words, HasSubstr("Error"));
    EXPECT_EQ(readBytes(file), "no picture at all");
    EXPECT_TRUE(isJpegFile(picture));
    EXPECT_FALSE(isJpegFile(file));
    EXPECT_FALSE(isJpegFile(folder / "missing"));
}

TEST_F(PayloadExportTest, AFileThatHasNoThumbnailToLoseIsUnchanged) {
    const fs::path file = photo({});
    const std::string before = readBytes(file);
    EXPECT_THAT(kindsOf(carryOut(deleteThumbnailJob({}, file))), ElementsAre(Unchanged));
    EXPECT_EQ(readBytes(file), before);
}

TEST_F(PayloadExportTest, AComplaintBesideTheWriteIsAWarning) {
    const fs::path file = photoWithThumbnail("a.jpg");
    useTool("echo 'Warning: something odd' >&2\nexec exiftool \"$@\"\n");
    const exiftool::Outcomes outcomes = carryOut(deleteThumbnailJob({}, file));
    EXPECT_THAT(kindsOf(outcomes), ElementsAre(Warned));
    EXPECT_THAT(outcomes.front().words, HasSubstr("something odd"));
    EXPECT_EQ(thumbnailOf(file), "");
    const fs::path other = photoWithThumbnail("b.jpg");
    const Outcome exported = exportOne(kind("ThumbnailImage"), other);
    EXPECT_EQ(exported, (Outcome{other, Warned, "Warning: something odd"}));
    EXPECT_EQ(readBytes(target / "b_ThumbnailImage.jpg"), readBytes(folder / "first.jpg"));
}

TEST_F(PayloadExportTest, TheDesignedJobTellsOfEachFileWhatItsRunSaid) {
    context.settings.exifTool.correctedCommands = false;
    const fs::path text = folder / "photos/text.jpg";
    writeBytes(text, "no picture at all");
    const std::vector<fs::path> files = {folder / "photos/missing with a long name.jpg", text};
    const exiftool::Outcomes outcomes = carryOut(embeddingJob(smallJpeg("new.jpg", Qt::green), files));
    EXPECT_THAT(kindsOf(outcomes), ElementsAre(Failed, Failed));
    EXPECT_THAT(outcomes[0].words, HasSubstr("long name.jpg"));
    EXPECT_THAT(outcomes[1].words, HasSubstr("text.jpg"));
    EXPECT_THAT(report(), testing::Not(HasSubstr("long name.jpg"))) << "the last file's report replaces it";
}

TEST_F(PayloadExportTest, TheLineForAllFilesEmbedsThePictureUnderANameThatIsNoPattern) {
    const fs::path file = photoWithThumbnail("a.jpg");
    const fs::path picture = smallJpeg("new 100%f.jpg", Qt::green);
    const jobs::Job job = embeddingJob(picture, {file});
    EXPECT_EQ(runner.runWriteLine(file, job.lineOf(context, app::commandFormOf(context), file).text),
              (Outcome{file, Done, {}}));
    EXPECT_EQ(thumbnailOf(file), readBytes(picture));
    fs::remove(picture);
    const jobs::Composed gone = job.lineOf(context, app::commandFormOf(context), file);
    EXPECT_EQ(gone.instead, NotStarted);
    EXPECT_EQ(gone.words, "Cannot be copied - " + picture.string());
}

TEST_F(PayloadExportTest, APictureThatIsGoneMeanwhileIsToldForEachFile) {
    const fs::path file = photoWithThumbnail("a.jpg");
    const std::string before = readBytes(file);
    for (const char* name : {"gone.jpg", "gone 100%f.jpg"}) {
        const fs::path picture = smallJpeg(name, Qt::green);
        const jobs::Job job = embeddingJob(picture, {file, file});
        fs::remove(picture);
        for (const Outcome& outcome : carryOut(job)) {
            EXPECT_TRUE(outcome.kind == Failed || outcome.kind == NotStarted) << name;
            EXPECT_THAT(outcome.words, HasSubstr("gone"));
        }
    }
    EXPECT_EQ(readBytes(file), before);
}

TEST_F(PayloadExportTest, SeveralKindsOfOneFileEndInOneOutcome) {
    const fs::path both = photoWithThumbnail("both.jpg", true);
    const fs::path one = photoWithThumbnail("one.jpg");
    const fs::path none = photo({}, "none.jpg");
    const fs::path missing = folder / "photos/missing.jpg";
    const exiftool::Outcomes outcomes = carryOut(
        exportPayloadsJob({}, exporter({both, one, none, missing}), {kind("ThumbnailImage"), iccExport()}));
    EXPECT_THAT(kindsOf(outcomes), ElementsAre(Done, Warned, Unchanged, Failed));
    EXPECT_EQ(outcomes[0].words, "");
    EXPECT_EQ(outcomes[1].words, "Holds no ICC_Profile");
    EXPECT_EQ(outcomes[2].words, "Holds no ThumbnailImage\nHolds no ICC_Profile");
    EXPECT_THAT(targets(),
                UnorderedElementsAre("both_ThumbnailImage.jpg", "both.icc", "one_ThumbnailImage.jpg"));
    EXPECT_THAT(exportPayloadsJob({}, exporter({both}), {}).files, IsEmpty());
}

TEST_F(PayloadExportTest, DataThatCameInPartMakeNoTarget) {
    const fs::path file = photoWithThumbnail("a.jpg");
    const struct {
        const char* script;
        OutcomeKind kind;
    } cases[] = {
        {"printf half; kill -KILL $$\n", Killed},
        {"printf half; exec sleep 100\n", Stopped},
    };
    for (const auto& row : cases) {
        useTool(row.script);
        const fs::path fetched = context.tempPath / "Payload.bin";
        std::error_code error;
        if (row.kind == Stopped)
            runner.setKeepWaiting(
                [&](std::chrono::milliseconds) { return fs::file_size(fetched, error) != 4; });
        const Outcome outcome = exportOne(kind("ThumbnailImage"), file);
        EXPECT_EQ(outcome.kind, row.kind);
        EXPECT_THAT(outcome.words, HasSubstr("a_ThumbnailImage.jpg"));
        EXPECT_THAT(targets(), IsEmpty());
    }
}

TEST_F(PayloadExportTest, NoJobTellsASuccessThatIsNone) {
    const std::vector<fs::path> files = {photoWithThumbnail("a.jpg"), photoWithThumbnail("b.jpg")};
    const fs::path picture = smallJpeg("new.jpg", Qt::green);
    const std::vector<support::NamedWork> works = {
        {"replace", [&] { return carryOut(replaceThumbnailJob({}, picture, files[0])); }},
        {"delete", [&] { return carryOut(deleteThumbnailJob({}, files[0])); }},
        {"embed", [&] { return carryOut(embeddingJob(picture, files)); }},
        {"export thumbnails",
         [&] { return carryOut(exportPayloadsJob({}, exporter(files), {kind("ThumbnailImage")})); },
         Unchanged},
        {"export profiles", [&] { return carryOut(exportPayloadsJob({}, exporter(files), {iccExport()})); },
         Unchanged},
    };
    support::expectTruthOfStandIns(context, runner, folder.path(), folder / "photos", works);
}

TEST_F(PayloadExportTest, AValueThatCouldNotBeFetchedIsNoEmptyOne) {
    TagEditContext row = thumbnailRow(photoWithThumbnail("a.jpg"));
    const PayloadPlaces places(context.tempPath, row.title);
    for (const support::ToolStandIn& standIn : support::kToolStandIns) {
        useTool(standIn.script);
        runner.setKeepWaiting([&](std::chrono::milliseconds) { return !standIn.hangs; });
        EXPECT_NE(fetchPayload(context, runner, row, places), "") << standIn.what;
    }
    runner.setKeepWaiting({});
    useTool("printf half; kill -KILL $$\n");
    EXPECT_THAT(fetchPayload(context, runner, row, places), HasSubstr("signal 9"));
    EXPECT_EQ(readBytes(places.fetched), "half");
    useTool("exit 0\n");
    row.value = "(Binary data 0 bytes, use -b option to extract)";
    EXPECT_EQ(fetchPayload(context, runner, row, places), "");
}
