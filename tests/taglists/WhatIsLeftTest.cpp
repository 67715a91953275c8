#include "taglists/WhatIsLeft.h"

#include "jobs/OperationJob.h"
#include "taglists/RemovalParts.h"
#include "taglists/Removals.h"

#include <gmock/gmock.h>

#include <array>

// What a removal says of files in which ExifTool leaves what it was told to remove.

using namespace taglists;
using enum exiftool::OutcomeKind;
using exiftool::Outcome;
using exiftool::OutcomeKind;
using testing::HasSubstr;
using testing::Not;

namespace fs = std::filesystem;

namespace {

/// A grey picture of 8 by 8 pixels, uncompressed.
std::string tiff() {
    struct Entry {
        std::uint16_t tag;
        std::uint16_t type;
        std::uint32_t count;
        std::uint32_t value;
    };
    constexpr std::uint32_t kPixels = 8 + 2 + 9 * 12 + 4;
    constexpr std::array<Entry, 9> kEntries{{{256, 4, 1, 8},
                                             {257, 4, 1, 8},
                                             {258, 4, 1, 8},
                                             {259, 4, 1, 1},
                                             {262, 4, 1, 1},
                                             {273, 4, 1, kPixels},
                                             {277, 4, 1, 1},
                                             {278, 4, 1, 8},
                                             {279, 4, 1, 64}}};
    static_assert(sizeof(Entry) == 12);
    std::string bytes("II*\0\x08\0\0\0\x09\0", 10);
    bytes.append(reinterpret_cast<const char*>(kEntries.data()), sizeof kEntries).append(4, '\0');
    return bytes.append(64, '\x40');
}

/// One empty page with a title and an author.
std::string pdf() {
    std::string bytes = "%PDF-1.4\n";
    std::string table = "xref\n0 5\n0000000000 65535 f \n";
    int number = 0;
    for (const char* object :
         {"<< /Type /Catalog /Pages 2 0 R >>", "<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
          "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 72 72] >>", "<< /Title (Secret) /Author (Ada) >>"}) {
        const std::string offset = std::to_string(bytes.size());
        table += std::string(10 - offset.size(), '0') + offset + " 00000 n \n";
        bytes += std::to_string(++number) + " 0 obj\n" + object + "\nendobj\n";
    }
    const std::string start = std::to_string(bytes.size());
    return bytes + table + "trailer\n<< /Size 5 /Root 1 0 R /Info 4 0 R >>\nstartxref\n" + start +
           "\n%%EOF\n";
}

class WhatIsLeft : public testing::Test, public RemovalParts {
 protected:
    fs::path described(const std::string& name) {
        const fs::path file = folder / "photos" / fs::path(name);
        if (file.extension() == ".pdf") {
            support::writeBytes(file, pdf());
            return file;
        }
        if (file.extension() == ".ppm") {
            support::writeBytes(file, "P6\n# by Ada\n8 8\n255\n" + std::string(192, '\x40'));
            return file;
        }
        if (file.extension() == ".jpg") {
            support::writeJpeg(file);
        } else {
            support::writeBytes(file, tiff());
        }
        if (file.extension() == ".dng")
            support::ExifTool({"-q", "-overwrite_original", "-DNGVersion=1 4 0 0", file.string()});
        support::ExifTool({"-q", "-overwrite_original", "-IFD0:Artist=Ada", "-ExifIFD:UserComment=c",
                           "-XMP-dc:Title=x", "-IPTC:City=K", "-GPS:GPSLatitude=1", "-GPS:GPSLatitudeRef=N",
                           file.string()});
        return file;
    }
};

}  // namespace

TEST_F(WhatIsLeft, IsNamedAndTheFileIsNoSuccess) {
    const struct {
        const char* name;
        int command;  ///< 176: everything, by its dialog
        OutcomeKind kind;
        const char* said;
    } cases[] = {
        {"a.jpg", 10066, Done, ""},
        {"a.jpg", 10072, Done, ""},
        {"a.jpg", 176, Done, ""},
        {"a.tif", 10066, Warned, "IFD0 (Artist)"},
        {"a.tif", 10067, Done, ""},
        {"a.tif", 10068, Done, ""},
        {"a.tif", 10069, Unchanged, ""},
        {"a.tif", 10071, Done, ""},
        {"a.tif", 10072, Warned, "IFD0 (Artist)"},
        {"a.tif", 176, Warned, "IFD0 (Artist)"},
        {"a.dng", 10066, Warned, "IFD0 (Artist"},
        {"a.dng", 10072, Warned, "IFD0 (Artist"},
        {"a.dng", 176, Warned, "IFD0 (Artist"},
        {"a.pdf", 10072, Warned, "can be recovered"},
        {"a.pdf", 176, Warned, "may be recovered"},
        {"a.ppm", 10072, Failed, "File (Comment)"},
        {"line\nfeed.tif", 10066, Warned, "IFD0 (Artist)"},
    };
    for (const bool isOneOfTwo : {false, true}) {
        for (const auto& row : cases) {
            SCOPED_TRACE(row.name + (' ' + std::to_string(row.command)));
            std::vector<fs::path> files{described(row.name)};
            if (isOneOfTwo) files.push_back(described("beside.jpg"));
            jobs::FilledForm filled;
            filled.set(1930, true);
            const jobs::Job job = row.command == 176
                                      ? jobs::jobOf(operationOf(176), {}, form(), filled, files, dictionary)
                                      : removeFamilyJob({}, row.command, files);
            const exiftool::Outcomes outcomes = carryOut(job);
            EXPECT_EQ(outcomes[0].kind, row.kind) << outcomes[0].words;
            EXPECT_THAT(outcomes[0].words, HasSubstr(row.said));
            EXPECT_EQ(outcomes[0].words.empty(), *row.said == 0) << outcomes[0].words;
            if (isOneOfTwo) {
                EXPECT_EQ(outcomes[1].words, "");
            }
            if (*row.said != 0) {
                EXPECT_THAT(report(), HasSubstr(row.said));
            }
            for (const auto& entry : fs::directory_iterator(folder / "photos")) fs::remove(entry.path());
        }
    }
}

TEST_F(WhatIsLeft, MakesAFileInWhichNothingWasChangedAFailure) {
    const fs::path file = folder / "photos/a.tif";
    support::writeBytes(file, tiff());
    support::ExifTool({"-q", "-overwrite_original", "-IFD0:Artist=Ada", file.string()});
    const Outcome outcome = carryOut(removeTypesJob({}, {"IFD0"}, {file})).front();
    EXPECT_EQ(valueOf(file, "IFD0:Artist"), "Ada");
    EXPECT_FALSE(outcome.kind == Done || outcome.kind == Unchanged);
    EXPECT_THAT(outcome.words, HasSubstr("IFD0 (Artist)"));
    context.settings.exifTool.correctedCommands = false;
    EXPECT_THAT(carryOut(removeFamilyJob({}, 10066, {file})).front().words, Not(HasSubstr("still in")))
        << "the designed form does not look";
}

TEST_F(WhatIsLeft, AGroupThatNoFileHeldIsNotRemoved) {
    const std::vector<fs::path> files{described("a.jpg"), described("b.jpg")};
    support::ExifTool({"-q", "-overwrite_original", "-XMP-lr:HierarchicalSubject=a|b", files[1].string()});
    jobs::JobWork work{
        .context = context, .form = form(), .runner = runner, .stop = {}, .fileBegun = {}, .fileEnded = {}};
    EXPECT_THAT(groupsOfNone(work, {"XMP-dc", "XMP-lr", "XMP-aux", "IPTC", "Photoshop", "IFD1"}, files),
                testing::ElementsAre("XMP-aux", "IFD1"));
    jobs::Job job = removeTypesJob({}, {"XMP-dc", "XMP-aux"}, files);
    work.fileBegun = [](const fs::path&) {};
    work.fileEnded = [](const Outcome&) {};
    EXPECT_TRUE(exiftool::isEveryFileDone(jobs::carryOut(job, work)));
    EXPECT_THAT(work.remarks, testing::ElementsAre(HasSubstr("XMP-aux")));
}
