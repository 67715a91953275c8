#include "DrivenProgram.h"
#include "PictureFolder.h"
#include "platform/Text.h"

#include <unistd.h>

#include <set>

using endtoend::DrivenProgram;

namespace {

class PanelTest : public endtoend::PictureFolder {
 protected:
    /// One tag of each family that a setting can hide.
    void photoOfAllFamilies() {
        photo("all.jpg", {"-IFD0:Artist=artist", "-GPS:GPSAltitude=12", "-IPTC:Headline=headline",
                          "-XMP-dc:Title=title", "-ICC_Profile<=" + profile()});
    }

 private:
    std::string profile() {
        const std::string file = (folder / "profile.icc").string();
        // A header, a table of one entry, and a copyright.
        std::string bytes(154, '\0');
        bytes[3] = static_cast<char>(bytes.size());
        bytes[8] = 2;
        bytes.replace(12, 12, "mntrRGB XYZ ");
        bytes.replace(36, 4, "acsp");
        bytes[131] = 1;
        bytes.replace(132, 4, "cprt");
        bytes[139] = static_cast<char>(144);
        bytes[143] = 10;
        bytes.replace(144, 4, "text");
        bytes[152] = 'x';
        support::writeBytes(file, bytes);
        return file;
    }
};

std::set<std::string> groupsOf(DrivenProgram& program) {
    std::set<std::string> groups;
    for (const QJsonValue& row : program.rows()) groups.insert(row["group"].toString().toStdString());
    return groups;
}

QJsonObject rowOf(DrivenProgram& program, const char* group, const char* tag) {
    for (const QJsonValue& row : program.rows())
        if (row["group"].toString() == group && row["tag"].toString() == tag) return row.toObject();
    return {};
}

}  // namespace

TEST_F(PanelTest, EachFamilyIsHiddenByItsKeyAlone) {
    photoOfAllFamilies();
    const std::map<std::string, std::string> groupOfKey = {
        {"ShowExif", "IFD0"},           {"ShowGps", "GPS"},       {"ShowIptc", "IPTC"}, {"ShowXmp", "XMP-dc"},
        {"ShowComposite", "Composite"}, {"ShowIcc", "ICC-header"}};
    for (const auto& [hiddenKey, hiddenGroup] : groupOfKey) {
        DrivenProgram::Options options;
        options.moreSettings = QByteArray("\n[MetadataList]\n") + hiddenKey.c_str() + "=0\n";
        DrivenProgram program(options);
        program.tell("open", {path()});
        program.tell("click", {"all.jpg"});
        const std::set<std::string> groups = groupsOf(program);
        for (const auto& [key, group] : groupOfKey)
            EXPECT_EQ(groups.contains(group), key != hiddenKey) << group << " with " << hiddenKey << "=0";
        EXPECT_TRUE(groups.contains("File"));
        EXPECT_EQ(program.quit(), 0);
    }
}

TEST_F(PanelTest, MissingKeysShowTheBuiltInFamilies) {
    photoOfAllFamilies();
    DrivenProgram::Options options;
    options.settings =
        "[Main]\nViewMode=1\n[Lists]\nShowMetadataWindow=1\n[ExifTool]\nCorrectedCommands=1\n"
        "IgnoreComposite=0\nIgnoreFILE=0\n[MainWindow-Position]\nLeft=20\nTop=20\nRight=1300\nBottom=820\n";
    DrivenProgram program(options);
    program.tell("open", {path()});
    program.tell("click", {"all.jpg"});
    const std::set<std::string> groups = groupsOf(program);
    EXPECT_TRUE(groups.contains("IFD0"));
    EXPECT_TRUE(groups.contains("File"));
    for (const char* hidden : {"GPS", "IPTC", "XMP-dc", "Composite", "ICC-header"})
        EXPECT_FALSE(groups.contains(hidden)) << hidden;
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(PanelTest, UnknownTagsAndGroupsAreShownOnWish) {
    // A stand-in prints what no file of today has.
    const std::string tool = (folder / "tool").string();
    support::writeBytes(tool,
                        "#!/bin/sh\ncase \"$*\" in *stay_open*) exec sleep 60;; esac\n"
                        "echo '[IFD0] 0x010f Make: known'\necho '[IFD0] 0xfedc NeverHeardOf: unknown'\n"
                        "echo '[XMP-ours] - Thing: of another group'\necho '[GPS] 0x010f Make: elsewhere'\n");
    std::filesystem::permissions(tool, std::filesystem::perms::owner_all);
    photo("a.jpg");
    for (const char* shown : {"0", "1"}) {
        DrivenProgram::Options options;
        options.exifTool = tool;
        options.moreSettings = QByteArray("\n[MetadataList]\nShowUnknown=") + shown + "\n";
        DrivenProgram program(options);
        program.tell("open", {path()});
        program.tell("click", {"a.jpg"});
        EXPECT_EQ(program.value("IFD0", "Make"), "known");
        const bool wanted = *shown == '1';
        EXPECT_EQ(program.value("IFD0", "NeverHeardOf").has_value(), wanted);
        EXPECT_EQ(program.value("XMP-ours", "Thing").has_value(), wanted);
        EXPECT_EQ(program.value("GPS", "Make").has_value(), wanted) << "known in another group only";
        EXPECT_EQ(program.rows().size(), wanted ? 4 : 1);
        if (wanted) {
            EXPECT_EQ(program.rows().last()["group"].toString(), "XMP-ours") << "below the others";
        }
        EXPECT_EQ(program.quit(), 0);
    }
}

TEST_F(PanelTest, RatingsAreStarsAndTheirRowsHaveNoText) {
    photo("rated.jpg", {"-XMP-xmp:Rating=4", "-IFD0:Rating=2", "-XMP-microsoft:RatingPercent=75"});
    DrivenProgram program;
    program.tell("open", {path()});
    program.tell("click", {"rated.jpg"});
    EXPECT_EQ(rowOf(program, "XMP-xmp", "Rating")["image"].toInt(), 4);
    EXPECT_EQ(rowOf(program, "XMP-xmp", "Rating")["value"].toString(), "");
    EXPECT_EQ(rowOf(program, "IFD0", "Rating")["image"].toInt(), 2);
    EXPECT_TRUE(rowOf(program, "XMP-microsoft", "RatingPercent")["image"].isNull());
    program.tell("row", {"XMP-xmp", "Rating", "Value"});
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(PanelTest, RowsOfAGroupStandTogetherInTheOrderOfExifTool) {
    photoOfAllFamilies();
    DrivenProgram program;
    program.tell("open", {path()});
    program.tell("click", {"all.jpg"});
    QStringList order;
    for (const QJsonValue& row : program.rows())
        if (order.isEmpty() || order.last() != row["group"].toString()) order.append(row["group"].toString());
    EXPECT_EQ(order.size(), QSet<QString>(order.begin(), order.end()).size())
        << order.join(" ").toStdString();
    EXPECT_EQ(rowOf(program, "IFD0", "Artist")["id"].toString(), "013b");
    EXPECT_EQ(rowOf(program, "XMP-dc", "Title")["id"].toString(), "-");
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(PanelTest, ACellIsCopiedByKeyAndMenu) {
    photo("a.jpg", {"-XMP-dc:Title=copied title", "-IFD0:Artist=copied artist"});
    DrivenProgram program;
    program.tell("open", {path()});
    const struct {
        QStringList row;
        bool byMenu;
        const char* text;
    } cases[] = {
        {{"XMP-dc", "Title", "Value"}, false, "copied title"},
        {{"XMP-dc", "Title", "Tag"}, false, "Title"},
        {{"IFD0", "Artist", "Id"}, false, "013b"},
        {{"IFD0", "Artist", "Value"}, true, "copied artist"},
    };
    for (const auto& [row, byMenu, text] : cases) {
        program.tell("click", {"a.jpg"});
        program.tell("row", byMenu ? row + QStringList("right") : row);
        if (byMenu) {
            program.tell("choose", {"40063"});
        } else {
            // But for the name a click has opened the editor; the cell is still the one that is copied.
            if (row.last() != QStringLiteral("Tag")) program.tell("key", {"Escape"});
            program.tell("key", {"Ctrl+C"});
        }
        program.tell("focus", {"Address"});
        program.tell("key", {"Ctrl+A"});
        program.tell("key", {"Ctrl+V"});
        EXPECT_EQ(program.tell("area", {"Address"})["text"].toString(), text);
        program.tell("key", {"Escape"});
    }
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(PanelTest, ValuesThatLookLikeOptionsOrCommandsAreOnlyShown) {
    const std::string values[] = {"-execute",      "; touch owned", "$(touch owned)",
                                  "`touch owned`", ">owned",        "\" -o owned \"",
                                  "%TEMP%",        "<b>bold</b>",   "[IFD0] 0x010f Make: forged"};
    std::vector<std::string> arguments;
    photo("a.jpg");
    DrivenProgram program;
    program.tell("open", {path()});
    for (const std::string& value : values) {
        photo("a.jpg", {"-XMP-dc:Title=" + value});
        program.tell("click", {"a.jpg"});
        EXPECT_EQ(program.value("XMP-dc", "Title"), QString::fromStdString(value));
        EXPECT_FALSE(program.value("IFD0", "Make").has_value()) << value;
    }
    photo("a.jpg", {"-XMP-dc:Title=file:///bin/sh"});
    program.tell("click", {"a.jpg"});
    program.tell("row", {"XMP-dc", "Title", "Value", "right"});
    for (const QJsonValue& entry : program.tell("menu")["entries"].toArray())
        EXPECT_NE(entry["id"].toInt(), 40011) << "no local file is offered to be opened";
    program.tell("key", {"Escape"});
    for (const auto& where :
         {folder.path(), program.install(), program.temp(), std::filesystem::current_path()})
        EXPECT_FALSE(std::filesystem::exists(where / "owned")) << where;
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(PanelTest, FilesOfHostileNamesAreReadLikeAnyOther) {
    photo("seed.jpg", {"-XMP-dc:Title=seed"});
    int number = 0;
    std::map<QString, QString> titles;
    for (const std::string& name : support::hostileNames()) {
        const std::string title = "number " + std::to_string(number++);
        photo("seed.jpg", {"-XMP-dc:Title=" + title});
        std::filesystem::rename(folder / "seed.jpg", folder / name);
        titles[platform::display(std::filesystem::path(name))] = QString::fromStdString(title);
    }
    DrivenProgram program;
    program.tell("open", {path()});
    const QStringList shown = program.fileNames();
    EXPECT_EQ(static_cast<std::size_t>(shown.size()), titles.size());
    for (const QString& name : shown) {
        program.tell("click", {name});
        ASSERT_TRUE(titles.contains(name)) << name.toStdString();
        EXPECT_EQ(program.value("XMP-dc", "Title"), titles[name]) << name.toStdString();
        EXPECT_EQ(program.status(), "Ready") << name.toStdString();
    }
    for (const auto& where :
         {folder.path(), program.install(), program.temp(), std::filesystem::current_path()})
        EXPECT_FALSE(std::filesystem::exists(where / "owned")) << where;
    EXPECT_EQ(program.quit(), 0);
}
