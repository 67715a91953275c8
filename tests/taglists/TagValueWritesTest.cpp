#include "taglists/TagValueWrites.h"

#include "exiftool/SafetyCopy.h"
#include "jobs/JobSource.h"
#include "support/EditedFile.h"
#include "support/RunHere.h"
#include "support/ToolStandIns.h"
#include "taglists/AddTagsGroups.h"

#include <gmock/gmock.h>
#include <unistd.h>

using namespace taglists;
using enum exiftool::OutcomeKind;
using exiftool::Outcome;
using exiftool::OutcomeKind;
using exiftool::Outcomes;
using support::kindsOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
namespace fs = std::filesystem;

namespace {

class TagValueWrites : public EditedFile {
 protected:
    TagRows rowsOf(int mode, const fs::path& file) {
        TagRows rows = rowsOfMode(dictionary, mode);
        EXPECT_TRUE(readValues(parts, form(), rows, valuesOutput(context, file), [&](const fs::path& output) {
            return reads.ReadCategory(file, output, readCategoryOfMode(form(), mode));
        }));
        return rows;
    }
    static TagRow& rowOf(TagRows& rows, const char* group, const char* name) {
        for (TagRow& row : rows)
            if (row.group.compare(group, Qt::CaseInsensitive) == 0 && row.name == name) return row;
        ADD_FAILURE() << group << ':' << name;
        return rows.front();
    }
    static void set(TagRows& rows, const char* group, const char* name, const std::string& value) {
        setRowValue(rowOf(rows, group, name), {.value = QString::fromStdString(value)});
    }
    /// Everything but what the file system says.
    static std::string tagsOf(const fs::path& file) {
        return support::ExifTool({"-a", "-G1", "-s", "-x", "System:All", "-x", "ExifTool:All", "-x",
                                  "Composite:All", "-x", "File:CurrentIPTCDigest", file.string()});
    }
    Outcomes carryOut(const jobs::Job& job) { return support::runHere(job, context, runner); }
    Outcomes write(const std::vector<fs::path>& files, const TagRows& rows) {
        return carryOut(modifyFilesJob(parts, form(), "Title", 1, rows, files));
    }
    std::vector<OutcomeKind> addTags(const TagRows& rows, const QString& group, const fs::path& file) {
        return kindsOf(carryOut(addTagsJob(parts, form(), {}, rows, group, {file})));
    }
    std::string copyOf(const fs::path& file) const {
        return support::readBytes(exiftool::safetyCopyPath(file, context.cachePath, {}, QDateTime()));
    }
};

}  // namespace

TEST_F(TagValueWrites, RowsHoldWhatTheFileHolds) {
    const fs::path file = photo({"-IFD0:Make=Acme", "-IFD0:XResolution=300", "-IFD1:Make=Thumb",
                                 "-ExifIFD:ISO=200", "-IPTC:Keywords=one", "-IPTC:Keywords=two",
                                 "-XMP-xmp:Rating=3", "-XMP-lr:HierarchicalSubject=a|b"});
    TagRows exif = rowsOf(1, file);
    EXPECT_EQ(rowOf(exif, "IFD0", "Make").value, "Acme");
    EXPECT_EQ(rowOf(exif, "IFD0", "XResolution").value, "300");
    EXPECT_EQ(rowOf(exif, "IFD1", "Make").value, "Thumb");
    EXPECT_EQ(rowOf(exif, "ExifIFD", "ISO").value, "200");
    EXPECT_EQ(changedCount(exif), 0U);
    TagRows iptc = rowsOf(2, file);
    EXPECT_EQ(rowOf(iptc, "IPTC", "Keywords").value, "one\ntwo");
    TagRows xmp = rowsOf(7, file);
    EXPECT_EQ(rowOf(xmp, "XMP-xmp", "Rating").value, "3");
    EXPECT_EQ(rowOf(xmp, "XMP-lr", "HierarchicalSubject").value, "a|b");
    EXPECT_TRUE(fs::is_empty(context.tempPath) || !fs::exists(valuesOutput(context, file)));
}

TEST_F(TagValueWrites, OneOfSeveralIsChangedAndNothingElse) {
    const fs::path file = photo({"-IFD0:Make=Acme", "-IFD0:Model=One", "-ExifIFD:FNumber=2.8",
                                 "-IFD0:Orientation#=6", "-XMP-dc:Title=kept", "-IPTC:City=kept"});
    const std::string before = support::readBytes(file);
    const std::string others = otherTags(file, "IFD0:Model");
    TagRows rows = rowsOf(1, file);
    set(rows, "IFD0", "Model", "Two");
    EXPECT_THAT(write({file}, rows), ElementsAre(Outcome{file, Done, {}}));
    EXPECT_EQ(valueOf(file, "IFD0:Model"), "Two");
    EXPECT_EQ(otherTags(file, "IFD0:Model"), others);
    EXPECT_EQ(copyOf(file), before);
    EXPECT_FALSE(fs::exists(file.string() + "_original"));
    EXPECT_EQ(report(), "");
}

TEST_F(TagValueWrites, AnEmptiedRowIsRemovedAndAnUntouchedOneStays) {
    const fs::path file = photo({"-IFD0:Make=Acme", "-IFD0:Model=One", "-IFD1:Make=Thumb"});
    TagRows rows = rowsOf(1, file);
    emptyRow(rowOf(rows, "IFD0", "Make"), false);
    EXPECT_THAT(kindsOf(write({file}, rows)), ElementsAre(Done));
    EXPECT_EQ(valueOf(file, "IFD0:Make"), "");
    EXPECT_EQ(valueOf(file, "IFD1:Make"), "Thumb");
    EXPECT_EQ(valueOf(file, "IFD0:Model"), "One");
}

TEST_F(TagValueWrites, NothingChangedRunsNothing) {
    const fs::path file = photo({"-IFD0:Make=Acme"});
    const std::string before = support::readBytes(file);
    const TagRows rows = rowsOf(1, file);
    EXPECT_FALSE(hasSomethingToWrite(form(), rows));
    EXPECT_THAT(modifyFilesJob(parts, form(), {}, 1, rows, {file}).files, IsEmpty());
    EXPECT_EQ(support::readBytes(file), before);
    context.settings.exifTool.correctedCommands = false;
    EXPECT_TRUE(hasSomethingToWrite(form(), rows));
}

TEST_F(TagValueWrites, TagsAreAddedToAFileThatLacksTheGroup) {
    struct {
        int command;
        const char* group;
        const char* name;
        const char* value;
    } const cases[] = {
        {23, "IFD0", "Artist", "Somebody"},
        {30, "ExifIFD", "LensModel", "50mm"},
        {32, "IPTC", "City", "Town"},
        {75, "XMP-dc", "Source", "Here"},
        {106, "XMP-lr", "WeightedFlatSubject", "x"},
        {62, "XMP-apple-fi", "AngleInfoYaw", "12"},
        {142, "GPS", "GPSSatellites", "4"},
    };
    for (const auto& row : cases) {
        const fs::path file = photo({}, std::to_string(row.command) + ".jpg");
        const AddTagsGroup& group = addTagsGroupOf(row.command);
        TagRows rows = rowsOfCategory(dictionary, group.categoryId);
        EXPECT_TRUE(readValues(parts, form(), rows, valuesOutput(context, file), [&](const fs::path& output) {
            return reads.ReadCategory(file, output, static_cast<int>(group.categoryId));
        }));
        set(rows, row.group, row.name, row.value);
        const QString name = QString::fromUtf8(group.group.data(), group.group.size());
        EXPECT_THAT(addTags(rows, name, file), ElementsAre(Done)) << row.command;
        EXPECT_EQ(valueOf(file, std::string(row.group) + ':' + row.name), row.value)
            << row.command << report();
    }
}

TEST_F(TagValueWrites, AnAddedTagLeavesTheRestOfItsGroup) {
    const fs::path file = photo({"-XMP-dc:Title=kept", "-XMP-dc:Subject=one"});
    TagRows rows = rowsOfGroup(dictionary, "XMP-dc");
    set(rows, "XMP-dc", "Source", "new");
    EXPECT_THAT(carryOut(addATagJob(parts, form(), {}, rows, "XMP-dc", file)),
                ElementsAre(Outcome{file, Done, {}}));
    EXPECT_EQ(valueOf(file, "XMP-dc:Title"), "kept");
    EXPECT_EQ(valueOf(file, "XMP-dc:Subject"), "one");
    EXPECT_EQ(valueOf(file, "XMP-dc:Source"), "new");
}

TEST_F(TagValueWrites, TheDesignedFormLosesRowsWithoutAValueAndLeavesACopy) {
    const fs::path file = photo({"-IPTC:City=kept", "-IPTC:Source=lost"});
    context.settings.exifTool.correctedCommands = false;
    TagRows rows = rowsOfGroup(dictionary, "IPTC");
    set(rows, "IPTC", "City", "new");
    EXPECT_THAT(addTags(rows, "IPTC", file), ElementsAre(Done));
    EXPECT_EQ(valueOf(file, "IPTC:City"), "new");
    EXPECT_EQ(valueOf(file, "IPTC:Source"), "");
    EXPECT_TRUE(fs::exists(file.string() + "_original"));
}

TEST_F(TagValueWrites, TheDesignedModifyEmptiesTheGroupOfTheFirstRow) {
    const fs::path file = photo({"-IPTC:City=Town", "-IPTC:Source=lost", "-XMP-dc:Title=stays"});
    context.settings.exifTool.correctedCommands = false;
    TagRows rows = rowsOfGroup(dictionary, "IPTC");
    set(rows, "IPTC", "City", "New");
    EXPECT_THAT(kindsOf(carryOut(modifyFilesJob(parts, form(), {}, 22, rows, {file}))), ElementsAre(Done));
    EXPECT_EQ(valueOf(file, "IPTC:City"), "New");
    EXPECT_EQ(valueOf(file, "IPTC:Source"), "");
    EXPECT_EQ(valueOf(file, "XMP-dc:Title"), "stays");
    EXPECT_TRUE(fs::exists(file.string() + "_original"));
}

TEST_F(TagValueWrites, SeveralFilesWithAReadOnlyOneAndAStranger) {
    const fs::path first = photo({"-IFD0:Make=Acme"}, "first.jpg");
    const fs::path locked = photo({"-IFD0:Make=Acme"}, "locked.jpg");
    const fs::path stranger = folder / "photos/notes.unknown";
    support::writeBytes(stranger, "text");
    const fs::path last = photo({"-IFD0:Make=Acme"}, "last.jpg");
    fs::create_directory(folder / "photos/closed");
    const fs::path inClosed = folder / "photos/closed/locked.jpg";
    fs::rename(locked, inClosed);
    const std::string before = support::readBytes(inClosed);
    fs::permissions(folder / "photos/closed", fs::perms::owner_read | fs::perms::owner_exec);
    fs::permissions(inClosed, fs::perms::owner_read);
    TagRows rows = rowsOfMode(dictionary, 1);
    set(rows, "IFD0", "Software", "for all");
    const fs::path broken = folder / "photos/broken.jpg";
    support::writeBytes(broken, "no picture");
    const Outcomes outcomes = write({first, inClosed, stranger, broken, last}, rows);
    ASSERT_EQ(outcomes.size(), 5U);
    EXPECT_EQ(outcomes[0], (Outcome{first, Done, {}}));
    EXPECT_EQ(outcomes[2].kind, Failed);
    EXPECT_THAT(outcomes[2].words, HasSubstr("broken.jpg"));
    EXPECT_EQ(outcomes[3], (Outcome{last, Done, {}}));
    EXPECT_EQ(outcomes[4], (Outcome{stranger, Failed, stranger.string() + " cannot be modified"}));
    EXPECT_EQ(valueOf(first, "IFD0:Software"), "for all");
    EXPECT_EQ(valueOf(first, "IFD0:Make"), "Acme");
    EXPECT_EQ(valueOf(last, "IFD0:Software"), "for all");
    EXPECT_EQ(support::readBytes(broken), "no picture");
    EXPECT_NE(report().find("broken.jpg"), std::string::npos) << report();
    if (geteuid() != 0) {  // nothing is closed to the superuser
        EXPECT_EQ(outcomes[1].kind, Failed);
        EXPECT_EQ(support::readBytes(inClosed), before);
        EXPECT_NE(report().find("locked.jpg"), std::string::npos) << report();
    }
}

TEST_F(TagValueWrites, ARowTheToolRefusesIsNoSuccess) {
    const fs::path file = photo({"-ExifIFD:ExposureTime=1/30"});
    const std::string before = support::readBytes(file);
    TagRows rows = rowsOf(1, file);
    set(rows, "ExifIFD", "ExposureTime", "abc");
    const Outcomes refused = write({file}, rows);
    EXPECT_TRUE(refused.front().kind == Failed || refused.front().kind == Unchanged);
    EXPECT_THAT(refused.front().words, HasSubstr("ExposureTime"));
    EXPECT_EQ(support::readBytes(file), before);
    set(rows, "IFD0", "Make", "Acme");
    const Outcomes partly = write({file}, rows);
    EXPECT_THAT(kindsOf(partly), ElementsAre(Warned));
    EXPECT_THAT(partly.front().words, HasSubstr("ExposureTime"));
    EXPECT_EQ(valueOf(file, "IFD0:Make"), "Acme");
}

TEST_F(TagValueWrites, NoJobTellsASuccessThatIsNone) {
    const std::vector<fs::path> files = {photo({"-IPTC:City=Town"}, "a.jpg"),
                                         photo({"-IPTC:City=Town"}, "b.jpg")};
    TagRows rows = rowsOfGroup(dictionary, "IPTC");
    set(rows, "IPTC", "City", "New");
    const std::vector<support::NamedWork> works = {
        {"modify", [&] { return carryOut(modifyFilesJob(parts, form(), {}, 2, rows, files)); }},
        {"modify the position", [&] { return carryOut(modifyFilesJob(parts, form(), {}, 10, rows, files)); }},
        {"add to all", [&] { return carryOut(addTagsJob(parts, form(), {}, rows, "IPTC", files)); }},
        {"add to one", [&] { return carryOut(addATagJob(parts, form(), {}, rows, "IPTC", files[0])); }},
    };
    support::expectTruthOfStandIns(context, runner, folder.path(), folder / "photos", works);
}

TEST_F(TagValueWrites, TheSecondLineOfAFileDoesNotHideWhatBecameOfTheFirst) {
    const fs::path file = photo({"-IPTC:City=Town"});
    context.settings.exifTool.correctedCommands = false;
    TagRows rows = rowsOfGroup(dictionary, "IPTC");
    set(rows, "IPTC", "City", "New");
    const fs::path first = folder / "first";
    support::useTool(context, folder / "tool",
                     "if [ ! -e '" + first.string() + "' ]; then : >'" + first.string() +
                         "'; kill -KILL $$; fi\nexec exiftool \"$@\"\n");
    EXPECT_THAT(addTags(rows, "IPTC", file), ElementsAre(Killed));
    fs::remove(first);
    EXPECT_THAT(kindsOf(carryOut(modifyFilesJob(parts, form(), {}, 22, rows, {file}))), ElementsAre(Killed));
}

TEST_F(TagValueWrites, ValuesThatCouldNotBeReadAreNotEmptyOnes) {
    const fs::path file = photo({"-IFD0:Make=Acme"});
    for (const support::ToolStandIn& standIn : support::kToolStandIns) {
        // A file without a tag of the family gives nothing either.
        if (standIn.isMute) continue;
        support::useTool(context, folder / "tool", standIn.script);
        runner.setKeepWaiting([&](std::chrono::milliseconds) { return !standIn.hangs; });
        TagRows rows = rowsOfMode(dictionary, 1);
        EXPECT_FALSE(
            readValues(parts, form(), rows, valuesOutput(context, file),
                       [&](const fs::path& output) { return reads.ReadCategory(file, output, 1413); }))
            << standIn.what;
    }
}

TEST_F(TagValueWrites, AnyTextReachesTheFileAsTyped) {
    const std::string owned = folder / "owned";
    const std::string values[] = {
        "a \"quoted\" text",
        "$(touch owned) `id` 100% 100%% >x 2>y | & ;",
        "-ver",
        "  padded  ",
        "\xC3\xA4\xC3\xB6 \xE6\x97\xA5\xE6\x9C\xAC \xF0\x9F\x93\xB7 \xD7\xA9\xD7\x9C",
        "line\nfeed",
        "x\" -if \"system('touch " + owned + "')\" \"",
        "<a>&amp;"};
    const fs::path file = photo({});
    for (const std::string& value : values) {
        TagRows xmp = rowsOf(7, file);
        set(xmp, "XMP-dc", "Description", value);
        set(xmp, "XMP-photoshop", "Headline", "beside");
        EXPECT_THAT(kindsOf(write({file}, xmp)), ElementsAre(Done)) << value;
        EXPECT_EQ(valueOf(file, "XMP-dc:Description"), value);
        TagRows iptc = rowsOf(2, file);
        set(iptc, "IPTC", "Caption-Abstract", value);
        set(iptc, "IPTC", "Source", "beside");
        EXPECT_THAT(kindsOf(write({file}, iptc)), ElementsAre(Done)) << value;
        EXPECT_EQ(valueOf(file, "IPTC:Caption-Abstract"), value);
    }
    EXPECT_EQ(valueOf(file, "IPTC:Source"), "beside");
    EXPECT_FALSE(fs::exists(owned));
}

TEST_F(TagValueWrites, HostileNamesAreReadAndWritten) {
    for (const std::string& name : support::hostileNames()) {
        const fs::path file = folder / "photos" / fs::path(name);
        support::writeJpeg(file);
        TagRows rows = rowsOf(1, file);
        set(rows, "IFD0", "Make", "Acme");
        EXPECT_THAT(kindsOf(write({file}, rows)), ElementsAre(Done)) << name;
        TagRows again = rowsOf(1, file);
        EXPECT_EQ(rowOf(again, "IFD0", "Make").value, "Acme") << name << report();
    }
}

TEST_F(TagValueWrites, AHostileValueIsReadAndWrittenBackByBothForms) {
    const std::string hostile = "x\" -if \"system('touch " + (folder / "owned").string() + "')\" >" +
                                (folder / "owned").string() + " \"";
    const fs::path file = photo({"-XMP-dc:Title=" + hostile, "-XMP-dc:Source=a"});
    const std::size_t files =
        static_cast<std::size_t>(std::distance(fs::directory_iterator(folder / "photos"), {}));
    for (const bool corrected : {true, false}) {
        context.settings.exifTool.correctedCommands = true;
        TagRows rows = rowsOf(7, file);
        EXPECT_EQ(rowOf(rows, "XMP-dc", "Title").value, QString::fromStdString(hostile));
        set(rows, "XMP-dc", "Source", corrected ? "b" : "c");
        context.settings.exifTool.correctedCommands = corrected;
        TagRows ofGroup;
        for (const TagRow& row : rows)
            if (row.group == u"XMP-dc") ofGroup.push_back(row);
        // As designed, ExifTool has to complain of the line that empties a group that it does not know.
        EXPECT_THAT(addTags(ofGroup, "XMP-dc", file),
                    ElementsAre(corrected ? Done : exiftool::OutcomeKind::Warned));
        EXPECT_EQ(valueOf(file, "XMP-dc:Title"), hostile);
        EXPECT_EQ(valueOf(file, "XMP-dc:Source"), corrected ? "b" : "c");
    }
    EXPECT_FALSE(fs::exists(folder / "owned"));
    EXPECT_LE(static_cast<std::size_t>(std::distance(fs::directory_iterator(folder / "photos"), {})),
              files + 1);
}

TEST_F(TagValueWrites, IptcBeyondLatinKeepsTheOtherValues) {
    const fs::path file =
        photo({"-IPTC:City=K\xC3\xB6ln", "-IPTC:Keywords=one", "-IPTC:Keywords=two", "-IPTC:Source=old"});
    TagRows rows = rowsOf(2, file);
    set(rows, "IPTC", "Headline", "\xE6\x9D\xB1\xE4\xBA\xAC");
    set(rows, "IPTC", "Source", "\xD0\xAF");
    emptyRow(rowOf(rows, "IPTC", "Keywords"), false);
    EXPECT_THAT(kindsOf(write({file}, rows)), ElementsAre(Done));
    EXPECT_EQ(valueOf(file, "IPTC:Headline"), "\xE6\x9D\xB1\xE4\xBA\xAC");
    EXPECT_EQ(valueOf(file, "IPTC:Source"), "\xD0\xAF");
    EXPECT_EQ(valueOf(file, "IPTC:City"), "K\xC3\xB6ln");
    EXPECT_EQ(valueOf(file, "IPTC:Keywords"), "");
}

TEST_F(TagValueWrites, EveryEntryOfEveryListTagOfExifIsAccepted) {
    const fs::path file = photo({});
    TagRows rows = rowsOfMode(dictionary, 1);
    std::size_t lists = 0;
    for (TagRow& row : rows) {
        if (row.group != u"IFD0" || row.kind != tags::ValueKind::List) continue;
        QString label;
        QString code;
        if (!labels.GetLibelleCombo(row.tagId, label, code, labels.GetItemNumberFromCombo(row.tagId) - 1))
            continue;
        setRowValue(row, {.value = label, .code = code});
        ++lists;
    }
    EXPECT_GT(lists, 5U);
    EXPECT_THAT(write({file}, rows), ElementsAre(Outcome{file, Done, {}}));
    EXPECT_EQ(report().find("Warning"), std::string::npos) << report();
}

TEST_F(TagValueWrites, ATooLongNameStillHasAPlaceForItsValues) {
    const fs::path file = fs::path("/photos") / (std::string(251, 'n') + ".jpg");
    EXPECT_EQ(valuesOutput(context, file), context.tempPath / "Metadata.txt");
    EXPECT_EQ(valuesOutput(context, "/photos/a.jpg"), context.tempPath / "a.jpg.txt");
}

TEST_F(TagValueWrites, WithoutAToolNothingIsReadOrWritten) {
    const fs::path file = photo({"-IFD0:Make=Acme"});
    context.exifToolPath = folder / "no tool";
    TagRows rows = rowsOfMode(dictionary, 1);
    set(rows, "IFD0", "Make", "New");
    EXPECT_FALSE(readValues(parts, form(), rows, valuesOutput(context, file),
                            [&](const fs::path& output) { return reads.ReadCategory(file, output, 1413); }));
    EXPECT_THAT(kindsOf(write({file}, rows)), ElementsAre(NotStarted));
    EXPECT_EQ(valueOf(file, "IFD0:Make"), "Acme");
}
