#include "payload/Payload.h"
#include "payload/PayloadCommandText.h"

#include "platform/CommandInterpreter.h"
#include "platform/MappedFile.h"
#include "support/SmallFiles.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace payload;
using app::CommandForm;

namespace {

namespace fs = std::filesystem;

app::AppContext makeContext() {
    app::AppContext context;
    context.exifToolPath = "/opt/my tools/exiftool";
    context.reportFile = "/install/cache/reports/day.txt";
    return context;
}

const fs::path kFile = "/photos/\"best\" 100%.jpg";
const std::string kTool = "\"/opt/my tools/exiftool\" ";
const std::string kFileWord = "\"/photos/\"best\" 100%.jpg\"";
const std::string kReport = " 2>>\"/install/cache/reports/day.txt\"";

std::span<const unsigned char> bytesOf(const std::string& text) {
    return {reinterpret_cast<const unsigned char*>(text.data()), text.size()};
}

}  // namespace

TEST(PayloadCommandText, FetchingAValue) {
    struct {
        QString group;
        QString tag;
        std::string words;  ///< empty: no line at all
    } const cases[] = {
        {"IFD1", "ThumbnailImage", "-IFD1:ThumbnailImage"},
        {"ICC_Profile", "RedTRC", "-ICC_Profile:RedTRC"},
        {"XMP-xmpGImg", "Exif_0x1234", "-XMP-xmpGImg:Exif_0x1234"},
        {"System", "FileName", "-FileName"},
        {"SYSTEM", "FileName", "-FileName"},
        {"", "PreviewImage", "-PreviewImage"},
        // What would be an option, a write or a second argument is refused.
        {"IFD0", "Artist=owned", ""},
        {"IFD0", "Artist<Make", ""},
        {"IFD0=", "Artist", ""},
        {"IFD0", "x -if", ""},
        {"IFD0", "x\" >owned", ""},
        {"IFD0", "gr\u00FCn", ""},
        {"IFD0", "", ""},
    };
    for (const auto& row : cases) {
        const std::string line =
            fetchPayloadCommand(makeContext(), row.group, row.tag, kFile, "/t/out.bin").text();
        const std::string expected =
            row.words.empty() ? "" : kTool + row.words + " -u -b " + kFileWord + " >\"/t/out.bin\"";
        EXPECT_EQ(line, expected);
    }
}

TEST(PayloadCommandText, Thumbnails) {
    const app::AppContext context = makeContext();
    const fs::path picture = "/new pictures/small \"1\".jpg";
    const std::string replaced =
        kTool + "\"-ThumbnailImage<=/new pictures/small \"1\".jpg\" -overwrite_original " + kFileWord;
    EXPECT_EQ(replaceThumbnailCommand(context, CommandForm::Designed, picture, kFile).text(), replaced);
    EXPECT_EQ(replaceThumbnailCommand(context, CommandForm::Corrected, picture, kFile).text(),
              replaced + kReport);
    EXPECT_EQ(addThumbnailCommand(context, CommandForm::Designed, picture, kFile).text(),
              replaced + " 2>\"/install/cache/reports/day.txt\"");
    EXPECT_EQ(addThumbnailCommand(context, CommandForm::Corrected, picture, kFile).text(),
              replaced + kReport);
    const std::string deleted = kTool + "-ThumbnailImage= -overwrite_original " + kFileWord;
    EXPECT_EQ(deleteThumbnailCommand(context, CommandForm::Designed, kFile).text(), deleted);
    EXPECT_EQ(deleteThumbnailCommand(context, CommandForm::Corrected, kFile).text(), deleted + kReport);
}

TEST(PayloadCommandText, Exports) {
    struct {
        int box;
        const char* argument;
        const char* suffix;
    } const cases[] = {
        {1008, "-PhotoshopThumbnail -b ", "_PhotoshopThumbnail.jpg"},
        {1009, "-JPGFromRaw -b ", "_JPGFromRaw.jpg"},
        {1011, "-ThumbnailTIFF -b ", "_ThumbnailTIFF.tif"},
        {1069, "-PreviewImage -b ", "_PreviewImage.jpg"},
        {1079, "-CoverArt -b ", "_CoverArt.jpg"},
        {1081, "-ThumbnailImage -b ", "_ThumbnailImage.jpg"},
        {1089, "-OtherImage -b ", "_OtherImage.jpg"},
        {1678, "-Picture -b ", "_Picture.jpg"},
    };
    ASSERT_EQ(thumbnailExports().size(), std::size(cases));
    for (std::size_t at = 0; at < std::size(cases); ++at) {
        const PayloadExport& payload = thumbnailExports()[at];
        EXPECT_EQ(payload.box, cases[at].box);
        EXPECT_EQ(payload.suffix, cases[at].suffix);
        const std::string line = kTool + cases[at].argument + kFileWord + " >\"/to/x\"";
        EXPECT_EQ(exportPayloadCommand(makeContext(), CommandForm::Designed, payload, kFile, "/to/x").text(),
                  line);
        EXPECT_EQ(exportPayloadCommand(makeContext(), CommandForm::Corrected, payload, kFile, "/to/x").text(),
                  line + kReport);
    }
    EXPECT_EQ(iccExport().suffix, ".icc");
    EXPECT_EQ(
        exportPayloadCommand(makeContext(), CommandForm::Designed, iccExport(), kFile, "/to/a.icc").text(),
        kTool + "-icc_profile -b " + kFileWord + " >\"/to/a.icc\"");
}

TEST(PayloadCommandText, NamesFromOutsideStayInTheirArgument) {
    const platform::CommandText lines[] = {
        fetchPayloadCommand(makeContext(), u"IFD1", u"ThumbnailImage", kFile, "/t/\"o\" >x"),
        addThumbnailCommand(makeContext(), CommandForm::Designed, "/p\" -if \"1\" >owned", kFile),
        exportPayloadCommand(makeContext(), CommandForm::Corrected, iccExport(), kFile, "/t/\" >owned"),
    };
    for (const platform::CommandText& line : lines) {
        for (const platform::CommandText::Piece& piece : line.pieces()) {
            const std::string text = line.text().substr(piece.begin, piece.end - piece.begin);
            const bool isForeign =
                text.find("owned") != std::string::npos || text.find("best") != std::string::npos;
            EXPECT_TRUE(!isForeign || piece.origin == platform::CommandText::Origin::Outside) << text;
        }
    }
}

TEST(PayloadCommandText, NamesThatMayBePatterns) {
    EXPECT_FALSE(isNamePattern("/a/b c.jpg"));
    EXPECT_TRUE(isNamePattern("/a/100%f.jpg"));
    EXPECT_TRUE(isNamePattern("/a/100%.jpg"));
}

TEST(Payload, KindByTheFirstBytes) {
    struct {
        std::string bytes;
        PayloadKind kind;
    } const cases[] = {
        {"\xFF\xD8\xFF\xE0", PayloadKind::Jpeg},
        {"\xFF\xD9", PayloadKind::Other},
        {std::string("II*\0", 4), PayloadKind::Tiff},
        {std::string("MM\0*", 4), PayloadKind::Tiff},
        {"IM", PayloadKind::Other},
        {"\x89PNG", PayloadKind::Png},
        {"\x31\x02 header", PayloadKind::JpegBehindHeader},
        {"12", PayloadKind::Other},
        {"\xFF", PayloadKind::Other},
        {"\x89", PayloadKind::Other},
        {"", PayloadKind::Other},
    };
    for (const auto& row : cases) EXPECT_EQ(kindOfPayload(bytesOf(row.bytes)), row.kind) << row.bytes;
}

TEST(Payload, WhatStandsForBinaryData) {
    EXPECT_TRUE(standsForBinaryData(u"(Binary data 2511 bytes, use -b option to extract)"));
    EXPECT_TRUE(standsForBinaryData(u"(BINARY DATA"));
    EXPECT_FALSE(standsForBinaryData(u"(Binary dat"));
    EXPECT_FALSE(standsForBinaryData(u" (Binary data"));
    EXPECT_FALSE(standsForBinaryData(u""));
}

TEST(Payload, PlacesStayInTheTempFolder) {
    struct {
        QString tag;
        const char* name;
    } const cases[] = {{"ThumbnailImage", "ThumbnailImage"},
                       {"../../etc/x y", "______etc_x_y"},
                       {"\u00FCber\"$(x)", "_ber___x_"},
                       {"", "value"}};
    for (const auto& row : cases) {
        const PayloadPlaces places("/t", row.tag);
        const std::string name = std::string("/t/") + row.name;
        EXPECT_EQ(places.fetched, name + ".bin");
        EXPECT_EQ(places.picture(PayloadKind::Jpeg), name + ".jpg");
        EXPECT_EQ(places.picture(PayloadKind::JpegBehindHeader), name + ".jpg");
        EXPECT_EQ(places.picture(PayloadKind::Tiff), name + ".tif");
        EXPECT_EQ(places.picture(PayloadKind::Png), name + ".png");
        EXPECT_EQ(places.behindHeader(), std::string("/t/prov_") + row.name + ".jpg");
    }
    EXPECT_LT(PayloadPlaces("/t", QString(5000, u'x')).fetched.filename().string().size(), 200u);
}

TEST(Payload, TheCopyOfAPictureLosesTheHeaderAndNothingElse) {
    const support::TemporaryFolder folder;
    const PayloadPlaces places(folder.path(), u"PreviewImage");
    support::writeJpeg(folder / "small.jpg");
    const std::string jpeg = support::readBytes(folder / "small.jpg");

    support::writeBytes(places.fetched, jpeg);
    EXPECT_EQ(support::readBytes(copyPicture(places, bytesOf(jpeg), PayloadKind::Jpeg)), jpeg);
    const std::string block = "\x31\x02" + std::string(138, 'h') + jpeg;
    support::writeBytes(places.fetched, block);
    const fs::path copy = copyPicture(places, bytesOf(block), PayloadKind::JpegBehindHeader);
    EXPECT_EQ(copy, places.picture(PayloadKind::JpegBehindHeader));
    EXPECT_EQ(support::readBytes(copy), jpeg);
    EXPECT_EQ(support::readBytes(places.behindHeader()), jpeg);
    EXPECT_EQ(support::readBytes(places.fetched), block);
    EXPECT_EQ(copyPicture(places, bytesOf(block.substr(0, 140)), PayloadKind::JpegBehindHeader), fs::path());
    EXPECT_EQ(copyPicture(places, bytesOf(jpeg), PayloadKind::Other), fs::path());
}

TEST(Payload, TypesToSave) {
    const QString all = "All Documents (*)";
    const QString jpeg = "JPEG image (*.jpg)";
    const QString tiff = "TIFF image (*.tif)";
    struct {
        const char* bytes;
        bool pictureShown;
        CommandForm form;
        QStringList types;
        const char* extension;
    } const cases[] = {
        {"\xFF\xD8\xFF", true, CommandForm::Designed, {jpeg, all}, "jpg"},
        {"\xFF\xD8\xFF", false, CommandForm::Corrected, {jpeg, all}, "jpg"},
        {"<x>", false, CommandForm::Designed, {"XML text (*.xml *.jpeg)", all}, "xml"},
        {"II*", true, CommandForm::Corrected, {tiff, all}, "tif"},
        {"II*", false, CommandForm::Corrected, {all}, ""},
        {"\x89PNG", true, CommandForm::Designed, {tiff, all}, "tif"},
        {"\x89PNG", true, CommandForm::Corrected, {"PNG image (*.png)", all}, "png"},
        {"\x31\x02", true, CommandForm::Designed, {tiff, all}, "tif"},
        {"\x31\x02", true, CommandForm::Corrected, {jpeg, all}, "jpg"},
        {"text", false, CommandForm::Designed, {all}, ""},
        {"", false, CommandForm::Corrected, {all}, ""},
    };
    for (const auto& row : cases) {
        const std::string bytes = row.bytes;
        const SaveTypes types =
            typesToSave(bytesOf(bytes), kindOfPayload(bytesOf(bytes)), row.pictureShown, row.form);
        EXPECT_EQ(types.types, row.types) << bytes;
        EXPECT_EQ(types.extension, QString(row.extension)) << bytes;
    }
}

TEST(Payload, TheNameFieldByLanguage) {
    EXPECT_EQ(fileNameLabel(9), "File name:");
    EXPECT_EQ(fileNameLabel(1033), "File name:");
    EXPECT_EQ(fileNameLabel(7), "File name:");
    EXPECT_EQ(fileNameLabel(12), "Nom du fichier:");
    EXPECT_EQ(fileNameLabel(10), "Ingrese el nombre del archivo:");
}

TEST(MappedFile, HoldsTheBytesOfRegularFiles) {
    const support::TemporaryFolder folder;
    support::writeBytes(folder / "a", "abc");
    support::writeBytes(folder / "empty", "");
    const auto mapped = platform::MappedFile::Open(folder / "a");
    ASSERT_NE(mapped, nullptr);
    EXPECT_TRUE(std::ranges::equal(mapped->bytes(), bytesOf("abc")));
    ASSERT_NE(platform::MappedFile::Open(folder / "empty"), nullptr);
    EXPECT_TRUE(platform::MappedFile::Open(folder / "empty")->bytes().empty());
    EXPECT_EQ(platform::MappedFile::Open(folder / "missing"), nullptr);
    EXPECT_EQ(platform::MappedFile::Open(folder.path()), nullptr);
}
