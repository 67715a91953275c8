#include "DrivenProgram.h"
#include "PictureFolder.h"

#include <sys/stat.h>
#include <unistd.h>

using endtoend::DrivenProgram;
namespace fs = std::filesystem;

namespace {

class BrowseTest : public endtoend::PictureFolder {
 protected:
    void SetUp() override {
        photo("img2.jpg", {"-XMP-dc:Title=second"});
        photo("img10.jpg", {"-XMP-dc:Title=tenth"});
        subfolder("sub/inner");
        subfolder("other");
    }
};

QSize sizeOf(DrivenProgram& program, const char* name) {
    const QJsonObject area = program.tell("area", {name});
    return {area["width"].toInt(), area["height"].toInt()};
}

}  // namespace

TEST_F(BrowseTest, AClickedFileShowsItsTagsAndTheStatusReturnsToReady) {
    DrivenProgram program;
    program.tell("open", {path()});
    EXPECT_EQ(program.fileNames(), QStringList({"other", "sub", "img2.jpg", "img10.jpg"})) << "natural order";
    program.tell("click", {"img10.jpg"});
    EXPECT_EQ(program.value("XMP-dc", "Title"), "tenth");
    EXPECT_EQ(program.status(), "Ready");
    program.tell("key", {"Up"});
    EXPECT_EQ(program.selectedFiles(), QStringList("img2.jpg"));
    EXPECT_EQ(program.value("XMP-dc", "Title"), "second") << "what the keyboard rests on";
    program.tell("click", {"img10.jpg", "FileSize"});
    EXPECT_EQ(program.value("XMP-dc", "Title"), "tenth") << "a click in any column";
    program.tell("click", {"sub"});
    EXPECT_TRUE(program.rows().isEmpty()) << "a click on a folder clears the panel";
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(BrowseTest, FoldersOpenByDoubleClickAndEnterAndAreLeftByKeysAndCommands) {
    DrivenProgram program;
    program.tell("open", {path()});
    const struct {
        const char* verb;
        const char* word;
        std::string folder;
        QStringList selected;
    } steps[] = {
        {"doubleclick", "sub", "sub", {}},     {"key", "Backspace", "", {"sub"}},
        {"key", "Return", "sub", {}},          {"key", "Home", "sub", {"inner"}},
        {"key", "Enter", "sub/inner", {}},     {"command", "5035", "sub", {"inner"}},
        {"key", "Alt+Up", "", {"sub"}},        {"command", "5033", "sub", {}},
        {"command", "5033", "sub/inner", {}},  {"command", "5034", "sub", {}},
        {"key", "Alt+Left", "sub/inner", {}},  {"key", "Alt+Right", "sub", {}},
        {"command", "40115", "sub/inner", {}}, {"command", "40116", "sub", {}},
        {"command", "40117", "", {"sub"}},     {"select", "other", "", {"other"}},
        {"command", "245", "other", {}},
    };
    for (const auto& step : steps) {
        const std::string told = std::string(step.verb) + " " + step.word;
        program.tell(step.verb, {step.word});
        EXPECT_EQ(program.folder(), path(step.folder)) << told;
        EXPECT_EQ(program.selectedFiles(), step.selected) << told;
    }
    program.tell("key", {"Ctrl+Backspace"});
    EXPECT_EQ(program.folder(), QString("/"));
    program.tell("key", {"Backspace"});
    EXPECT_EQ(program.folder(), QString("/")) << "there is nothing above";
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(BrowseTest, AnAddressTypedInTheBarIsOpened) {
    const struct {
        std::string base;
        QString typed;
        std::string folder;
        QString status;
    } cases[] = {
        {"", "sub/inner", "sub/inner", "Ready"},
        {"sub/inner", "..", "sub", "Ready"},
        {"sub", path("other"), "other", "Ready"},
        {"", path("sub") + "//inner/./", "sub/inner", "Ready"},
        {"sub/inner", "../../other/../sub", "sub", "Ready"},
        {"sub", "missing", "sub", "There is no folder \"missing\""},
        {"sub", path("img2.jpg"), "sub", "\"" + path("img2.jpg") + "\" is not a folder"},
    };
    for (const auto& [base, typed, folder, status] : cases) {
        DrivenProgram program;
        program.tell("open", {path(base)});
        program.tell("focus", {"Address"});
        program.tell("key", {"Ctrl+A"});
        program.tell("type", {typed});
        EXPECT_EQ(program.tell("area", {"Address"})["text"].toString(), typed);
        program.tell("key", {"Return"});
        EXPECT_EQ(program.folder(), path(folder)) << typed.toStdString();
        EXPECT_EQ(program.status(), status) << typed.toStdString();
        if (status != "Ready") {
            EXPECT_EQ(program.tell("area", {"Address"})["text"].toString(), typed) << "a wrong text stays";
            program.tell("key", {"Escape"});
            EXPECT_EQ(program.tell("area", {"Address"})["text"].toString(), path(folder));
        }
        EXPECT_EQ(program.quit(), 0);
    }
}

TEST_F(BrowseTest, AnAddressIsTypedByKeyboardAloneAndTheListHasTheKeyboardAfterwards) {
    DrivenProgram program;
    program.tell("open", {path("sub")});
    program.tell("key", {"Alt+D"});
    program.tell("type", {path()});
    program.tell("key", {"Enter"});
    program.tell("key", {"End"});
    EXPECT_EQ(program.selectedFiles(), QStringList("img10.jpg"));
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(BrowseTest, OneAddressAfterTheOtherIsTypedInOneWindow) {
    DrivenProgram program;
    program.tell("open", {path()});
    const struct {
        QString typed;
        std::string folder;
    } steps[] = {
        {"sub/inner", "sub/inner"}, {"..", "sub"}, {path("other"), "other"},
        {path("sub"), "sub"},       {path(), ""},
    };
    for (int round = 0; round < 12; ++round) {
        for (const auto& [typed, folder] : steps) {
            if (round % 2 == 0)
                program.tell("key", {"Alt+D"});
            else
                program.tell("focus", {"Address"});
            program.tell("key", {"Ctrl+A"});
            program.tell("type", {typed});
            ASSERT_EQ(program.tell("area", {"Address"})["text"].toString(), typed) << "round " << round;
            program.tell("key", {"Return"});
            ASSERT_EQ(program.folder(), path(folder)) << typed.toStdString() << ", round " << round;
        }
    }
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(BrowseTest, HiddenFilesAreShownOnCommandAndHiddenAgain) {
    photo(".secret.jpg");
    DrivenProgram program;
    program.tell("open", {path()});
    EXPECT_FALSE(program.fileNames().contains(".secret.jpg"));
    program.tell("command", {"40106"});
    EXPECT_TRUE(program.fileNames().contains(".secret.jpg"));
    program.tell("key", {"Ctrl+H"});
    EXPECT_FALSE(program.fileNames().contains(".secret.jpg"));
    program.tell("command", {"40106"});
    EXPECT_EQ(program.quit(), 0);
    program.restart();
    EXPECT_FALSE(program.fileNames().contains(".secret.jpg")) << "the choice is not kept";
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(BrowseTest, SortCommandsSortAndTheSameAgainReverses) {
    using namespace std::chrono_literals;
    const auto now = std::filesystem::file_time_type::clock::now();
    support::writeBytes(folder / "other/b.txt", "12");
    support::writeBytes(folder / "other/a.jpg", "1234");
    support::writeBytes(folder / "other/c.png", "1");
    std::filesystem::last_write_time(folder / "other/b.txt", now - 3h);
    std::filesystem::last_write_time(folder / "other/c.png", now - 2h);
    std::filesystem::last_write_time(folder / "other/a.jpg", now - 1h);
    DrivenProgram program;
    program.tell("open", {path("other")});
    const struct {
        const char* command;
        QStringList names;
    } steps[] = {
        {"50002", {"b.txt", "c.png", "a.jpg"}}, {"50002", {"a.jpg", "c.png", "b.txt"}},
        {"50003", {"a.jpg", "b.txt", "c.png"}}, {"50003", {"c.png", "b.txt", "a.jpg"}},
        {"50001", {"a.jpg", "b.txt", "c.png"}}, {"50001", {"c.png", "b.txt", "a.jpg"}},
        {"40089", {"a.jpg", "b.txt", "c.png"}}, {"40090", {"c.png", "b.txt", "a.jpg"}},
        {"50004", {"c.png", "b.txt", "a.jpg"}}, {"50004", {"a.jpg", "b.txt", "c.png"}},
    };
    for (const auto& [command, names] : steps) {
        program.tell("command", {command});
        EXPECT_EQ(program.fileNames(), names) << command;
    }
    EXPECT_EQ(program.quit(), 0);
    EXPECT_EQ(program.setting("Main", "SortMode"), "4");
    EXPECT_EQ(program.setting("Main", "SortAscending"), "1");
}

TEST_F(BrowseTest, SelectionCommandsCountersAndCheckBoxesAreOneState) {
    DrivenProgram program;
    program.tell("open", {path()});
    const QStringList all{"other", "sub", "img2.jpg", "img10.jpg"};
    const struct {
        const char* verb;
        const char* word;
        QStringList selected;
        QString counted;
    } steps[] = {
        {"command", "40074", all, "2 folders selected   ·   2 files selected   ·   "},
        {"command", "40076", {}, "Total 4 items"},
        {"key", "Ctrl+A", all, "2 folders selected   ·   2 files selected   ·   "},
        {"command", "246", {}, "Total 4 items"},
        {"select", "sub", {"sub"}, "1 folder selected   ·   Total"},
        {"command",
         "40075",
         {"other", "img2.jpg", "img10.jpg"},
         "1 folder selected   ·   2 files selected   ·   "},
        {"key", "Ctrl+I", {"sub"}, "1 folder selected   ·   Total"},
        {"command",
         "5052",
         {"other", "img2.jpg", "img10.jpg"},
         "1 folder selected   ·   2 files selected   ·   "},
        {"command", "5037", {}, "Total 4 items"},
        {"click", "img2.jpg", {"img2.jpg"}, "1 file selected   ·   "},
    };
    for (const auto& step : steps) {
        program.tell(step.verb, {step.word});
        EXPECT_EQ(program.selectedFiles(), step.selected) << step.verb << " " << step.word;
        EXPECT_TRUE(program.selection().startsWith(step.counted))
            << step.verb << " " << step.word << ": " << program.selection().toStdString();
    }
    program.tell("command", {"5040"});
    for (const QJsonValue& file : program.tell("files")["files"].toArray())
        EXPECT_EQ(file["checked"].toBool(), file["name"].toString() == "img2.jpg");
    program.tell("command", {"40075"});
    for (const QJsonValue& file : program.tell("files")["files"].toArray())
        EXPECT_EQ(file["checked"].toBool(), file["name"].toString() != "img2.jpg");
    program.tell("command", {"5040"});
    for (const QJsonValue& file : program.tell("files")["files"].toArray())
        EXPECT_FALSE(file["checked"].toBool());
    EXPECT_EQ(program.selectedFiles().size(), 3) << "without boxes the selection stays";
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(BrowseTest, ASizeReadsTheSameInColumnAndStatusBar) {
    support::writeBytes(folder / "sub/large.jpg", std::string(1'500'000, 'x'));
    const struct {
        const char* settings;
        QString column, status;
    } cases[] = {
        {"", "1.4 MB", "1.4 MB"},
        {"\n[Main]\nSizeDisplayFormat=1\n", "1.4 MB", "1,500,000 bytes"},
        {"\n[ExifTool]\nCorrectedCommands=0\n", "1.4 MB", "1.430 MB"},
    };
    for (const auto& [settings, column, status] : cases) {
        DrivenProgram program({.moreSettings = QByteArray("\n[Main]\nShowFoldersSizes=1\n") + settings});
        program.tell("open", {path()});
        program.tell("select", {"sub"});
        EXPECT_TRUE(endtoend::waitFor([&] { return program.status() == "Size of the folder: " + column; }))
            << program.status().toStdString();
        program.tell("open", {path("sub")});
        program.tell("select", {"large.jpg"});
        EXPECT_TRUE(program.selection().contains("1 file selected   ·   " + status))
            << program.selection().toStdString();
        const auto hasColumn = [&] {
            for (const QJsonValue& file : program.tell("files")["files"].toArray())
                if (file["name"].toString() == "large.jpg")
                    return file["columns"]["FileSize"].toString() == column;
            return false;
        };
        EXPECT_TRUE(endtoend::waitFor(hasColumn, 10'000));
        EXPECT_EQ(program.quit(), 0);
    }
}

TEST_F(BrowseTest, WhatNoProgramOpensIsNotOffered) {
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    fs::create_symlink(folder / "nowhere", folder / "dead");
    DrivenProgram program;
    program.tell("open", {path()});
    for (const char* command : {"40012", "245"}) {
        for (const auto& [name, opens] : {std::pair{"pipe", false}, std::pair{"dead", false},
                                          std::pair{"sub", true}, std::pair{"img2.jpg", true}}) {
            program.tell("select", {name});
            EXPECT_EQ(program.tell("state", {command})["enabled"].toBool(), opens) << command << name;
        }
        program.tell("select", {"pipe"});
        program.tell("command", {command});
        EXPECT_EQ(program.status(), "pipe: This is no regular file.");
        program.tell("command", {"246"});
        EXPECT_FALSE(program.tell("state", {command})["enabled"].toBool());
    }
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(BrowseTest, PanesAreShownAndHiddenAndTheRestTakesTheRoom) {
    DrivenProgram program;
    program.tell("open", {path()});
    const QSize whole = sizeOf(program, "middle");
    const struct {
        const char* byCommand;
        const char* byKey;
        const char* part;
        bool makesWider;
    } panes[] = {
        {"8", "Ctrl+F2", "HolderLeft", true},
        {"17", "Ctrl+Shift+F4", "RIGHT_HOLDER", true},
        {"9", "Ctrl+F3", "statusBar", false},
    };
    for (const auto& pane : panes) {
        program.tell("command", {pane.byCommand});
        EXPECT_FALSE(program.tell("area", {pane.part})["visible"].toBool()) << pane.part;
        const QSize with = sizeOf(program, "middle");
        EXPECT_EQ(with.width() > whole.width(), pane.makesWider) << pane.part;
        EXPECT_EQ(with.height() > whole.height(), !pane.makesWider) << pane.part;
        program.tell("key", {pane.byKey});
        EXPECT_TRUE(program.tell("area", {pane.part})["visible"].toBool()) << pane.part;
        EXPECT_EQ(sizeOf(program, "middle"), whole) << pane.part;
    }
    program.tell("key", {"Ctrl+D"});
    EXPECT_EQ(program.fileNames().size(), 4);
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(BrowseTest, ThePanelReadsTheSelectedFileWhenItIsShownAgain) {
    DrivenProgram program;
    program.tell("open", {path()});
    program.tell("click", {"img2.jpg"});
    program.tell("command", {"17"});
    program.tell("select", {"img10.jpg"});
    program.tell("click", {"img10.jpg"});
    program.tell("command", {"17"});
    EXPECT_EQ(program.value("XMP-dc", "Title"), "tenth");
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(BrowseTest, AChangedFileIsReadAnew) {
    DrivenProgram program;
    program.tell("open", {path()});
    program.tell("click", {"img2.jpg"});
    photo("img2.jpg", {"-XMP-dc:Title=changed"});
    program.tell("command", {"8056"});
    EXPECT_EQ(program.value("XMP-dc", "Title"), "changed");
    program.tell("command", {"8003"});
    EXPECT_TRUE(program.rows().isEmpty());
    photo("img3.jpg");
    EXPECT_FALSE(program.fileNames().contains("img3.jpg"));
    program.tell("command", {"248"});
    EXPECT_TRUE(program.fileNames().contains("img3.jpg"));
    photo("img4.jpg");
    program.tell("key", {"F5"});
    EXPECT_TRUE(program.fileNames().contains("img4.jpg"));
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(BrowseTest, TypingAheadFindsTheName) {
    DrivenProgram program;
    program.tell("open", {path()});
    program.tell("type", {"img1"});
    EXPECT_EQ(program.selectedFiles(), QStringList("img10.jpg"));
    EXPECT_EQ(program.quit(), 0);
}
