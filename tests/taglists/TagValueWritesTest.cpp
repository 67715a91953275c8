#include "taglists/TagValueWrites.h"

#include "exiftool/SafetyCopy.h"
#include "support/EditedFile.h"
#include "taglists/AddTagsGroups.h"

#include <unistd.h>

using namespace taglists;
namespace fs = std::filesystem;

namespace {

/// Notes what it is told, and wants to close before the file of this number.
class NotedProgress : public jobs::FileProgress {
 public:
    void begin(const QString& title, std::size_t count) override {
        told << QStringLiteral("%1/%2").arg(title).arg(count);
    }
    bool showFile(const fs::path& file, std::size_t number) override {
        told << QString::fromStdString(file.filename().string());
        return number != closesAt;
    }
    void End() override { told << QStringLiteral("end"); }

    QStringList told;
    std::size_t closesAt = 0;
};

class TagValueWrites : public EditedFile {
 protected:
    TagRows rowsOf(int mode, const fs::path& file) {
        TagRows rows = rowsOfMode(dictionary, mode);
        EXPECT_TRUE(readValues(parts, rows, valuesOutput(context, file), [&](const fs::path& output) {
            return reads.ReadCategory(file, output, readCategoryOfMode(context, mode));
        }));
        return rows;
    }
    static TagRow& rowOf(TagRows& rows, const char* group, const char* name) {
        for (TagRow& row : rows)
            if (row.group.compare(group, Qt::CaseInsensitive) == 0 && row.name == name) return row;
        ADD_FAILURE() << group << ':' << name;
        return rows.front();
    }
    static void set(TagRows& rows, const char* group, const char* name, const char* value) {
        setRowValue(rowOf(rows, group, name), {.value = QString::fromUtf8(value)});
    }
    /// Everything but what the file system says.
    static std::string tagsOf(const fs::path& file) {
        return support::ExifTool({"-a", "-G1", "-s", "-x", "System:All", "-x", "ExifTool:All", "-x",
                                  "Composite:All", "-x", "File:CurrentIPTCDigest", file.string()});
    }
    FileRuns write(const std::vector<fs::path>& files, const TagRows& rows) {
        return writeFiles(
            parts, "Title", files, [&](const QString& message) { messages << message; },
            [&](const fs::path& file) { return ModifyGroupInFile(parts, rows, file); });
    }
    std::string copyOf(const fs::path& file) const {
        return support::readBytes(exiftool::safetyCopyPath(file, context.cachePath, {}, QDateTime()));
    }

    NotedProgress noted;
    jobs::OperationParts parts{context, language, dictionary, labels, memory, log, runner, reads, noted};
    QStringList messages;
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
    EXPECT_EQ(rowOf(iptc, "IPTC", "Keywords").value, "one, two");
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
    const FileRuns runs = write({file}, rows);
    EXPECT_EQ(runs.begun, 1U);
    EXPECT_TRUE(runs.lastWasRun);
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
    write({file}, rows);
    EXPECT_EQ(valueOf(file, "IFD0:Make"), "");
    EXPECT_EQ(valueOf(file, "IFD1:Make"), "Thumb");
    EXPECT_EQ(valueOf(file, "IFD0:Model"), "One");
}

TEST_F(TagValueWrites, NothingChangedRunsNothing) {
    const fs::path file = photo({"-IFD0:Make=Acme"});
    const std::string before = support::readBytes(file);
    const TagRows rows = rowsOf(1, file);
    EXPECT_FALSE(hasSomethingToWrite(parts, rows));
    EXPECT_EQ(ModifyGroupInFile(parts, rows, file), 1);
    EXPECT_EQ(support::readBytes(file), before);
    context.settings.exifTool.correctedCommands = false;
    EXPECT_TRUE(hasSomethingToWrite(parts, rows));
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
        EXPECT_TRUE(readValues(parts, rows, valuesOutput(context, file), [&](const fs::path& output) {
            return reads.ReadCategory(file, output, static_cast<int>(group.categoryId));
        }));
        set(rows, row.group, row.name, row.value);
        EXPECT_EQ(AddTagsToFile(parts, rows, QString::fromUtf8(group.group.data(), group.group.size()), file),
                  1);
        EXPECT_EQ(valueOf(file, std::string(row.group) + ':' + row.name), row.value)
            << row.command << report();
    }
}

TEST_F(TagValueWrites, AnAddedTagLeavesTheRestOfItsGroup) {
    const fs::path file = photo({"-XMP-dc:Title=kept", "-XMP-dc:Subject=one"});
    TagRows rows = rowsOfGroup(dictionary, "XMP-dc");
    set(rows, "XMP-dc", "Source", "new");
    EXPECT_EQ(AddATagToFile(parts, rows, u"XMP-dc", file), 1);
    EXPECT_EQ(valueOf(file, "XMP-dc:Title"), "kept");
    EXPECT_EQ(valueOf(file, "XMP-dc:Subject"), "one");
    EXPECT_EQ(valueOf(file, "XMP-dc:Source"), "new");
}

TEST_F(TagValueWrites, TheDesignedFormLosesRowsWithoutAValueAndLeavesACopy) {
    const fs::path file = photo({"-IPTC:City=kept", "-IPTC:Source=lost"});
    context.settings.exifTool.correctedCommands = false;
    TagRows rows = rowsOfGroup(dictionary, "IPTC");
    set(rows, "IPTC", "City", "new");
    EXPECT_EQ(AddTagsToFile(parts, rows, u"IPTC", file), 1);
    EXPECT_EQ(valueOf(file, "IPTC:City"), "new");
    EXPECT_EQ(valueOf(file, "IPTC:Source"), "");
    EXPECT_TRUE(fs::exists(file.string() + "_original"));
}

TEST_F(TagValueWrites, TheDesignedModifyEmptiesTheGroupOfTheFirstRow) {
    const fs::path file = photo({"-IPTC:City=Town", "-IPTC:Source=lost", "-XMP-dc:Title=stays"});
    context.settings.exifTool.correctedCommands = false;
    TagRows rows = rowsOfGroup(dictionary, "IPTC");
    set(rows, "IPTC", "City", "New");
    EXPECT_EQ(modifyFile(parts, 22, rows, file), 1);
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
    const FileRuns runs = write({first, inClosed, stranger, broken, last}, rows);
    EXPECT_EQ(runs.begun, 4U);
    EXPECT_TRUE(runs.lastWasRun);
    EXPECT_FALSE(runs.wasStopped);
    EXPECT_EQ(messages, QStringList(QString::fromStdString(stranger.string()) + " cannot be modified"));
    EXPECT_EQ(valueOf(first, "IFD0:Software"), "for all");
    EXPECT_EQ(valueOf(first, "IFD0:Make"), "Acme");
    EXPECT_EQ(valueOf(last, "IFD0:Software"), "for all");
    EXPECT_EQ(noted.told,
              QStringList({"Title/5", "first.jpg", "locked.jpg", "broken.jpg", "last.jpg", "end"}));
    EXPECT_EQ(support::readBytes(broken), "no picture");
    EXPECT_NE(report().find("broken.jpg"), std::string::npos) << report();
    if (geteuid() != 0) {  // nothing is closed to the superuser
        EXPECT_EQ(support::readBytes(inClosed), before);
        EXPECT_NE(report().find("locked.jpg"), std::string::npos) << report();
    }
}

TEST_F(TagValueWrites, AWindowThatClosesBeginsNoOtherFile) {
    const fs::path first = photo({}, "first.jpg");
    const fs::path second = photo({}, "second.jpg");
    noted.closesAt = 2;
    TagRows rows = rowsOfMode(dictionary, 1);
    set(rows, "IFD0", "Make", "Acme");
    const FileRuns runs = write({first, second}, rows);
    EXPECT_TRUE(runs.wasStopped);
    EXPECT_EQ(valueOf(first, "IFD0:Make"), "Acme");
    EXPECT_EQ(valueOf(second, "IFD0:Make"), "");
    EXPECT_EQ(noted.told.last(), "end");
}

TEST_F(TagValueWrites, AnyTextReachesTheFileAsTyped) {
    const char* const values[] = {
        "a \"quoted\" text",
        "$(touch owned) `id` 100% 100%% >x 2>y | & ;",
        "-ver",
        "  padded  ",
        "\xC3\xA4\xC3\xB6 \xE6\x97\xA5\xE6\x9C\xAC \xF0\x9F\x93\xB7 \xD7\xA9\xD7\x9C",
        "line\nfeed",
        "x\" -if \"system('touch /tmp/owned')\" \"",
        "<a>&amp;"};
    const fs::path file = photo({});
    for (const char* value : values) {
        TagRows xmp = rowsOf(7, file);
        set(xmp, "XMP-dc", "Description", value);
        set(xmp, "XMP-photoshop", "Headline", "beside");
        write({file}, xmp);
        EXPECT_EQ(valueOf(file, "XMP-dc:Description"), value);
        TagRows iptc = rowsOf(2, file);
        set(iptc, "IPTC", "Caption-Abstract", value);
        set(iptc, "IPTC", "Source", "beside");
        write({file}, iptc);
        EXPECT_EQ(valueOf(file, "IPTC:Caption-Abstract"), value);
    }
    EXPECT_EQ(valueOf(file, "IPTC:Source"), "beside");
    EXPECT_FALSE(fs::exists("/tmp/owned"));
}

TEST_F(TagValueWrites, HostileNamesAreReadAndWritten) {
    for (const std::string& name : support::hostileNames()) {
        const fs::path file = folder / "photos" / fs::path(name);
        support::writeJpeg(file);
        TagRows rows = rowsOf(1, file);
        set(rows, "IFD0", "Make", "Acme");
        EXPECT_EQ(ModifyGroupInFile(parts, rows, file), 1);
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
        EXPECT_EQ(AddTagsToFile(parts, ofGroup, u"XMP-dc", file), 1);
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
    write({file}, rows);
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
    write({file}, rows);
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
    EXPECT_FALSE(readValues(parts, rows, valuesOutput(context, file),
                            [&](const fs::path& output) { return reads.ReadCategory(file, output, 1413); }));
    EXPECT_EQ(ModifyGroupInFile(parts, rows, file), 0);
    EXPECT_EQ(valueOf(file, "IFD0:Make"), "Acme");
}
