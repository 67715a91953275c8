#include "DrivenProgram.h"
#include "PictureFolder.h"

#include <set>

using endtoend::DrivenProgram;

namespace {

/// Commands of all subjects whose state depends on something.
const std::vector<int> kWatched = {22,   23,   157,   177,   246,   1821,  1824,  5033,  5034, 5035,
                                   8056, 5052, 10004, 10034, 10066, 10075, 40011, 40012, 40074};

class CommandStatesTest : public endtoend::PictureFolder {
 protected:
    void SetUp() override {
        photo("a.jpg", {"-IFD0:Artist=https://example.org", "-XMP-dc:Title=first"});
        subfolder("sub/empty");
    }
};

std::set<int> enabled(DrivenProgram& program) {
    std::set<int> ids;
    for (const int id : kWatched)
        if (program.tell("state", {QString::number(id)})["enabled"].toBool()) ids.insert(id);
    return ids;
}

bool isOn(DrivenProgram& program, int id) {
    return program.tell("state", {QString::number(id)})["checked"].toBool();
}

/// The entry of the open menu, also within its menus; empty when there is none.
QJsonObject entryOf(const QJsonArray& entries, int id) {
    for (const QJsonValue& value : entries) {
        const QJsonObject entry = value.toObject();
        if (entry["id"].toInt() == id) return entry;
        const QJsonObject inner = entryOf(entry["entries"].toArray(), id);
        if (!inner.isEmpty()) return inner;
    }
    return {};
}

bool isEntryEnabled(DrivenProgram& program, int id) {
    const QJsonObject entry = entryOf(program.tell("menu")["entries"].toArray(), id);
    EXPECT_FALSE(entry.isEmpty()) << "the menu has no entry " << id;
    return entry["enabled"].toBool();
}

}  // namespace

TEST_F(CommandStatesTest, WhatCannotRunNowIsGreyAndComesBackWhenItCan) {
    DrivenProgram program;
    program.tell("open", {path()});
    // What asks for a folder can always run.
    const std::set<int> always = {23, 157, 177};
    const auto with = [&](std::set<int> more) {
        more.insert(always.begin(), always.end());
        return more;
    };
    const std::set<int> selected = {22, 246, 5033, 5035, 5052, 10066, 40012, 40074};
    const auto withSelected = [&](std::set<int> more) {
        more.insert(selected.begin(), selected.end());
        return with(more);
    };
    const struct {
        const char* why;
        const char* verb;
        QStringList words;
        std::set<int> enabled;
    } steps[] = {
        {"an empty folder with a history", "open", {path("sub/empty")}, with({5033, 5035})},
        {"a folder in which nothing is selected", "open", {path()}, with({5033, 5035, 5052, 40074})},
        {"a folder is selected", "select", {"sub"}, withSelected({})},
        {"a file is selected and its tags are shown",
         "select",
         {"a.jpg"},
         withSelected({8056, 10004, 10034})},
        {"a row is current that can be deleted and holds an address",
         "row",
         {"IFD0", "Artist", "Tag"},
         withSelected({1821, 1824, 8056, 10004, 10034, 10075, 40011})},
        {"a row is current that cannot be deleted",
         "row",
         {"Composite", "ImageSize", "Tag"},
         withSelected({1824, 8056, 10004, 10034})},
        {"nothing is selected any more", "command", {"246"}, with({5033, 5035, 5052, 40074})},
        {"the history was gone back", "key", {"Alt+Left"}, with({5033, 5034, 5035})},
    };
    for (const auto& step : steps) {
        program.tell(step.verb, step.words);
        EXPECT_EQ(enabled(program), step.enabled) << step.why;
    }
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(CommandStatesTest, TheRibbonShowsWhatCanRun) {
    DrivenProgram program;
    program.tell("open", {path()});
    EXPECT_FALSE(program.tell("area", {"command-40012"})["enabled"].toBool());
    program.tell("select", {"a.jpg"});
    EXPECT_TRUE(program.tell("area", {"command-40012"})["enabled"].toBool());
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(CommandStatesTest, TheMenusOfThePanelAreAboutTheRowAndTheGroupTheyStandAt) {
    DrivenProgram program;
    program.tell("open", {path()});
    program.tell("click", {"a.jpg"});
    const struct {
        const char* verb;
        QStringList words;
        int entry;
        bool enabled;
    } steps[] = {
        {"row", {"IFD0", "Artist", "Value", "right"}, 10075, true},
        {"row", {"Composite", "ImageSize", "Value", "right"}, 10075, false},
        {"row", {"Composite", "ImageSize", "Value", "right"}, 10077, false},
        {"header", {"IFD0"}, 1821, true},
        {"header", {"Composite"}, 1821, false},
        {"header", {"XMP-dc"}, 1821, true},
    };
    for (const auto& step : steps) {
        program.tell(step.verb, step.words);
        EXPECT_EQ(isEntryEnabled(program, step.entry), step.enabled) << step.words.join(u' ').toStdString();
        program.tell("key", {"Escape"});
    }
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(CommandStatesTest, WhatIsOnFollowsTheCommandThatTurnsItOnAndOff) {
    DrivenProgram program;
    program.tell("open", {path()});
    for (const int toggle : {8, 9, 17, 5040, 40106}) {
        const bool before = isOn(program, toggle);
        program.tell("command", {QString::number(toggle)});
        EXPECT_EQ(isOn(program, toggle), !before) << toggle;
    }
    program.tell("command", {"50003"});
    EXPECT_TRUE(isOn(program, 50003));
    program.tell("command", {"50001"});
    EXPECT_FALSE(isOn(program, 50003));
    EXPECT_TRUE(isOn(program, 50001));
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(CommandStatesTest, ACommandSentByNumberTellsWhyItCannotRun) {
    DrivenProgram program;
    program.tell("open", {path()});
    EXPECT_FALSE(program.tell("state", {"22"})["enabled"].toBool());
    program.tell("command", {"22"});
    EXPECT_FALSE(program.takeMessage().isEmpty());
    EXPECT_EQ(program.refuse("state", {"13"}), program.refuse("command", {"13"}));
    EXPECT_EQ(program.quit(), 0);
}
