#include "payload/PayloadExporter.h"
#include "payload/PayloadFetch.h"
#include "payload/PayloadFile.h"
#include "payload/ThumbnailWrite.h"

#include <gmock/gmock.h>

using namespace payload;
using support::readBytes;
using support::writeBytes;
using tags::TagEditContext;
using testing::HasSubstr;
using testing::UnorderedElementsAre;

namespace fs = std::filesystem;

namespace {

using Outcome = PayloadExporter::Outcome;

class PayloadExportTest : public PayloadFile {
 protected:
    PayloadExportTest() { fs::create_directory(target); }

    std::vector<std::string> targets() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(target)) names.push_back(entry.path().filename());
        return names;
    }
    PayloadExporter exporter(std::vector<fs::path> files) {
        return PayloadExporter(context, runner, target, std::move(files));
    }
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
        EXPECT_EQ(run.Export(kind("ThumbnailImage"), file), Outcome::Written) << name;
        EXPECT_EQ(readBytes(run.targetOf(kind("ThumbnailImage"), file)), readBytes(folder / "first.jpg"));
    }
    EXPECT_EQ(targets().size(), support::hostileNames().size());
    EXPECT_FALSE(fs::exists("owned"));

    const fs::path file = folder / "photos/plain.jpg";
    EXPECT_EQ(exporter({file}).Export(iccExport(), file), Outcome::Written);
    const std::string profile = readBytes(target / "plain.icc");
    EXPECT_EQ(profile, support::ExifTool({"-b", "-icc_profile", file.string()}));
    EXPECT_EQ(profile.substr(36, 4), "acsp");
    EXPECT_EQ(report(), "");
}

TEST_F(PayloadExportTest, WhereThereAreNoData) {
    const fs::path file = photo({});
    EXPECT_EQ(exporter({file}).Export(kind("PreviewImage"), file), Outcome::NoData);
    EXPECT_EQ(exporter({file}).Export(iccExport(), file), Outcome::NoData);
    EXPECT_TRUE(targets().empty());
    context.settings.exifTool.correctedCommands = false;
    EXPECT_EQ(exporter({file}).Export(kind("PreviewImage"), file), Outcome::Written);
    EXPECT_EQ(readBytes(target / "a_PreviewImage.jpg"), "");
}

TEST_F(PayloadExportTest, AFileThatCannotBeReadIsInTheReport) {
    const fs::path missing = folder / "photos/missing.jpg";
    EXPECT_EQ(exporter({missing}).Export(iccExport(), missing), Outcome::Failed);
    EXPECT_THAT(report(), HasSubstr("missing.jpg"));
    context.exifToolPath = folder / "no such tool";
    const fs::path file = photo({});
    EXPECT_EQ(exporter({file}).Export(iccExport(), file), Outcome::Failed);
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
        run.Export(kind("ThumbnailImage"), first);
        run.Export(kind("ThumbnailImage"), second);
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
    run.Export(kind("ThumbnailImage"), file);
    EXPECT_EQ(readBytes(there), "mine");
    EXPECT_THAT(targets(), UnorderedElementsAre("a_ThumbnailImage.jpg", "a_ThumbnailImage (2).jpg"));
    PayloadExporter replacing = exporter({file});
    replacing.setReplaceExisting(true);
    replacing.Export(kind("ThumbnailImage"), file);
    EXPECT_EQ(readBytes(there), readBytes(folder / "first.jpg"));
}

TEST_F(PayloadExportTest, NoFileOfTheSelectionIsWrittenOver) {
    const fs::path source = photoWithThumbnail("plain.jpg", true);
    const fs::path profile = target / "own.icc";
    writeBytes(profile, support::ExifTool({"-b", "-icc_profile", source.string()}));
    const std::string before = readBytes(profile);
    context.settings.exifTool.correctedCommands = false;
    EXPECT_EQ(exporter({profile}).Export(iccExport(), profile), Outcome::Failed);
    EXPECT_EQ(readBytes(profile), before);
    EXPECT_THAT(report(), HasSubstr("own.icc"));
    context.settings.exifTool.correctedCommands = true;
    PayloadExporter run = exporter({profile});
    run.setReplaceExisting(true);
    EXPECT_EQ(run.firstExisting({&iccExport(), 1}), fs::path());
    EXPECT_EQ(run.Export(iccExport(), profile), Outcome::Written);
    EXPECT_EQ(readBytes(profile), before);
    EXPECT_EQ(readBytes(target / "own (2).icc"), before);
}

TEST_F(PayloadExportTest, FetchedBytesAreThoseInTheFile) {
    for (const std::string& name : support::hostileNames()) {
        const fs::path file = photoWithThumbnail(name);
        const PayloadPlaces places(context.tempPath, u"ThumbnailImage");
        EXPECT_TRUE(fetchPayload(context, runner, thumbnailRow(file), places)) << name;
        EXPECT_EQ(readBytes(places.fetched), readBytes(folder / "first.jpg")) << name;
    }
}

TEST_F(PayloadExportTest, AValueOfTextIsFetchedAsThePanelHoldsIt) {
    TagEditContext row = thumbnailRow(photo({}));
    row.value = QString::fromUtf8("gr\xC3\xBC\xC3\x9F\x65\" -if \"1\n");
    const PayloadPlaces places(context.tempPath, row.title);
    EXPECT_TRUE(fetchPayload(context, runner, row, places));
    EXPECT_EQ(readBytes(places.fetched), row.value.toStdString());
    // A name that is no tag's fetches nothing, and leaves nothing of the last.
    row.value = "(Binary data 5 bytes";
    row.title = "Artist=owned";
    writeBytes(PayloadPlaces(context.tempPath, row.title).fetched, "old");
    EXPECT_FALSE(fetchPayload(context, runner, row, PayloadPlaces(context.tempPath, row.title)));
    EXPECT_FALSE(fs::exists(PayloadPlaces(context.tempPath, row.title).fetched));
}

TEST_F(PayloadExportTest, AThumbnailIsReplacedAndDeletedAndNothingElse) {
    for (const std::string& name : support::hostileNames()) {
        const fs::path file = photoWithThumbnail(name);
        const std::string before = readBytes(file);
        const std::string tags = otherTags(file, "IFD1:All");
        const fs::path picture = smallJpeg("new " + name, Qt::green);
        const fs::path usable = usablePicture(context, picture);
        ThumbnailWritten written =
            writeThumbnail(context, runner, file, replaceThumbnailCommand(context, usable, file));
        EXPECT_TRUE(written.hasChanged) << name << written.complaints.toStdString();
        EXPECT_EQ(thumbnailOf(file), readBytes(picture)) << name;
        EXPECT_EQ(copyOf(file), before);
        written = writeThumbnail(context, runner, file, deleteThumbnailCommand(context, file));
        EXPECT_TRUE(written.hasChanged);
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
    const ThumbnailWritten written =
        writeThumbnail(context, runner, file, replaceThumbnailCommand(context, picture, file));
    EXPECT_FALSE(written.hasChanged);
    EXPECT_THAT(written.complaints.toStdString(), HasSubstr("Error"));
    EXPECT_EQ(readBytes(file), "no picture at all");
    EXPECT_TRUE(isJpegFile(picture));
    EXPECT_FALSE(isJpegFile(file));
    EXPECT_FALSE(isJpegFile(folder / "missing"));
}
