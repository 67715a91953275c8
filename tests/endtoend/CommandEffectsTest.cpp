#include "DrivenProgram.h"
#include "PictureFolder.h"
#include "app/CommandRows.h"
#include "app/LanguageFile.h"
#include "window/BrowseCommands.h"
#include "window/EditingCommands.h"
#include "window/ExportCommands.h"
#include "window/FrameCommands.h"
#include "window/OperationCommands.h"
#include "window/PayloadCommands.h"
#include "window/ReadingCommands.h"
#include "window/RemovalCommands.h"
#include "window/TagListCommands.h"

#include <QRegularExpression>
#include <map>
#include <set>

// Each command does what its name says, and not what another one does.

namespace fs = std::filesystem;
using endtoend::DrivenProgram;

namespace {

struct Step {
    QString verb;
    QStringList words;
};

struct Try {
    int command;
    std::vector<Step> before;
    /// What a dialog, a message or a menu says of itself, else what has changed, part by part.
    QString effect;
    std::vector<Step> after = {};
};

const Step kChangeOutside{"#change", {}};
const Step kRow{"row", {"XMP-dc", "Title", "Tag"}};
const Step kAgree{"press", {"1"}};
const Step kSelectFolder{"select", {"folder"}};
/// Leaves its own words in the status bar.
const Step kExport{"command", {"10034"}};

const std::vector<Try>& frameTries() {
    static const std::vector<Try> tries = {
        {8, {}, "HolderLeft hidden"},
        {9, {}, "statusBar hidden"},
        {17, {}, "RIGHT_HOLDER hidden"},
        {284, {}, "dialog 284 About Tagwright"},
        {40092, {}, "ended"},
        {40110, {}, "ended and started"},
    };
    return tries;
}

const std::vector<Try>& browseTries() {
    static const std::vector<Try> tries = {
        {12, {}, "ViewMode 1"},
        {245, {kSelectFolder}, "in b/folder; files -"},
        {246, {kChangeOutside}, "files folder one.jpg two.jpg; shown nothing"},
        {247, {kRow}, "files folder one.jpg [two.jpg]; shown two", {{"key", {"End"}}}},
        {248, {kChangeOutside}, "files folder new.jpg [one.jpg] two.jpg"},
        {5033, {}, "in a; files -; shown nothing"},
        {5034, {}, "in c; files -; shown nothing"},
        {5035, {}, "in .; files a [b] c; shown nothing"},
        {5036, {}, ""},
        {5037, {}, "files folder one.jpg two.jpg; shown nothing"},
        {5040, {}, "ShowCheckBox 1"},
        {5052, {}, "files [folder] one.jpg [two.jpg]; shown two"},
        {40012, {kSelectFolder}, "in b/folder; files -"},
        {40012, {}, "message No program is set up to open one.jpg."},
        {40074, {}, "files [folder] [one.jpg] [two.jpg]"},
        {40075, {}, "files [folder] one.jpg [two.jpg]; shown two"},
        {40076, {}, "files folder one.jpg two.jpg; shown nothing"},
        {40089, {{"command", {"40090"}}}, "files folder [one.jpg] two.jpg"},
        {40090, {}, "files two.jpg [one.jpg] folder; SortAscending 0"},
        {40106, {}, "files folder .hidden.jpg one.jpg two.jpg; shown nothing"},
        {40107, {kChangeOutside}, "files folder new.jpg [one.jpg] two.jpg"},
        {40115, {}, "in a; files -; shown nothing"},
        {40116, {}, "in c; files -; shown nothing"},
        {40117, {}, "in .; files a [b] c; shown nothing"},
        {50001, {{"command", {"50003"}}}, "files folder [one.jpg] two.jpg"},
        {50003, {}, "files folder two.jpg [one.jpg]; SortMode 3"},
    };
    return tries;
}

const std::vector<Try>& fileTries() {
    static const std::vector<Try> tries = {
        {8003, {}, "shown nothing"},
        {8056, {kChangeOutside, kExport}, "shown one anew; status Ready"},
        {40100, {kChangeOutside, kExport}, "shown one anew"},
        {40108, {{"command", {"8003"}}}, "shown one"},
        // Nothing can be seen without a desktop.
        {40011, {kRow}, ""},
        {10004, {}, "message No program is set up to open one.htm."},
        {10007, {}, "message No program is set up to open one.txt."},
        {10033, {}, "menu"},
        {10034, {}, "files folder [one.jpg] one.txt two.jpg; status Tags written to one.txt"},
        {10035, {}, "files folder one.csv [one.jpg] two.jpg; status Tags written to one.csv"},
    };
    return tries;
}

const std::vector<Try>& changingTries() {
    static const std::vector<Try> tries = {
        {10075, {kRow}, "dialog 80075 Delete a tag"},
        {10077, {kRow}, "dialog 80077 Delete a group"},
        {1821, {kRow}, "dialog 80077 Delete a group"},
        {22, {}, "dialog 125 Modify EXIF tags of one.jpg"},
        {31, {}, "dialog 125 Modify IPTC tags of one.jpg"},
        {35, {}, "dialog 125 Modify XMP tags of one.jpg"},
        {23, {}, "dialog 8 Add IFD0 tags to one.jpg"},
        {142, {}, "dialog 8 Add GPS tags to one.jpg"},
        {5041, {}, "dialog 5041 Selected files"},
        {1824, {kRow}, "dialog 81824 Add XMP-dc tags to one.jpg"},
        {1819, {}, "dialog 1819 Remove tags of the file"},
        {176, {}, "dialog 176 Delete the metadata of 1 file"},
        {177, {}, "dialog 144 Remove tags from 1 file"},
        {178, {}, "dialog 128 Remove groups from 1 file"},
        {10062, {}, "dialog 10062 Copy tags to 1 file"},
        {10065, {}, "dialog 10062 Copy tags to 1 file"},
        {10044, {}, "message Remove all metadata from 1 file?"},
        {10066, {}, "message Remove all EXIF tags from 1 file?"},
        {10067, {}, "message Remove all IPTC tags from 1 file?"},
        {10068, {}, "message Remove all XMP tags from 1 file?"},
        {10069, {}, "message Remove the ICC profile from 1 file?"},
        {10071, {}, "message Remove the geotag and all GPS tags from 1 file?"},
        {10072, {}, "message Remove all metadata from 1 file?"},
        {216, {}, "dialog 81500 Export the thumbnails of 1 file"},
        {217, {}, "dialog 81501 Export the ICC profile of 1 file"},
        {183, {}, "dialog 157 Embed a thumbnail in 1 file"},
        {185, {}, "*thumbnail gone"},
        {157, {}, "*date of the photo"},
        {172, {}, "status 1 file unchanged"},
        {173, {}, "*renamed by its date and Maker", {kAgree}},
        {174, {}, "*renamed by its date and Camera", {kAgree}},
    };
    return tries;
}

using Parts = std::map<QString, QString>;

class CommandEffectsTest : public endtoend::PictureFolder {
 protected:
    void SetUp() override {
        master("one.jpg", "one",
               {"-XMP-dc:Description=" + std::string(3000, 'd'), "-ThumbnailImage<=" + thumbnail()});
        master("two.jpg", "two", {});
    }

    /// Every try in a folder, an install folder and a program of its own.
    void run(const std::vector<Try>& tries) {
        for (std::size_t number = 0; number < tries.size(); ++number) {
            const Try& row = tries[number];
            SCOPED_TRACE(row.command);
            place_ = folder / ("try" + std::to_string(number));
            layOut();
            EXPECT_EQ(effectOf(row), row.effect);
        }
    }

 private:
    std::string thumbnail() {
        support::writeJpeg(folder / "thumbnail");
        return (folder / "thumbnail").string();
    }
    void master(const std::string& name, const std::string& title, std::vector<std::string> arguments) {
        fs::create_directories(folder / "masters");
        arguments.insert(arguments.end(), {"-XMP-dc:Title=" + title, "-IFD0:Model=Camera",
                                           "-AllDates=2001:02:03 04:05:06", "-IFD0:Make=Maker"});
        photo("masters/" + name, std::move(arguments));
    }
    fs::path one() const { return place_ / "b/one.jpg"; }

    void layOut() {
        for (const char* name : {"a", "b/folder", "c"}) fs::create_directories(place_ / name);
        for (const char* name : {"one.jpg", "two.jpg"})
            fs::copy_file(folder / "masters" / name, place_ / "b" / name);
        support::writeJpeg(place_ / "b/.hidden.jpg");
    }

    /// What stands in front of the window says enough of itself; empty when nothing does.
    static QString frontOf(DrivenProgram& program) {
        const QJsonObject dialog = program.say("dialog");
        if (dialog["ok"].toBool())
            return QString("dialog %1 %2").arg(dialog["template"].toInt()).arg(dialog["title"].toString());
        const QJsonObject message = program.say("message");
        if (message["ok"].toBool()) return "message " + message["text"].toString().section('\n', 0, 0);
        return program.say("menu")["ok"].toBool() ? "menu" : "";
    }

    /// Three dots say that the command asks before it does anything.
    void expectDotsWhereAsked(int command, const QString& front) {
        const QString caption = english_.text(app::findCommand(command)->textNumber);
        if (caption.isEmpty() || command == app::command::kAbout) return;
        const bool asks = front.startsWith("dialog ") || front.startsWith("message Re");
        EXPECT_EQ(caption.endsWith("..."), asks) << caption.toStdString() << ": " << front.toStdString();
    }

    Parts partsOf(DrivenProgram& program) {
        Parts parts;
        const QString root = QString::fromStdString(place_.string());
        const QString here = program.folder().mid(root.size() + 1);
        parts["1in"] = "in " + (here.isEmpty() ? QString(".") : here);
        QStringList names;
        for (const QJsonValue& file : program.tell("files")["files"].toArray()) {
            const QString name = file["name"].toString();
            names.append(file["selected"].toBool() ? '[' + name + ']' : name);
        }
        parts["2files"] = "files " + (names.isEmpty() ? QString("-") : names.join(' '));
        parts["3shown"] = "shown " + program.value("XMP-dc", "Title").value_or("nothing");
        for (const char* area : {"HolderLeft", "RIGHT_HOLDER", "statusBar"})
            parts[QString("4") + area] =
                area + QString(program.tell("area", {area})["visible"].toBool() ? " visible" : " hidden");
        parts["5status"] = "status " + program.status().remove(root + "/b/");
        return parts;
    }

    Parts settingsOf(const DrivenProgram& program) {
        Parts parts;
        for (const auto& [section, key] :
             {std::pair("Main", "ViewMode"), std::pair("Main", "SortMode"),
              std::pair("Main", "SortAscending"), std::pair("ListView", "ShowCheckBox")})
            parts[QString("6") + key] = QString("%1 %2").arg(key).arg(
                QString::fromStdString(program.setting(section, key).value_or("")));
        return parts;
    }

    void take(DrivenProgram& program, const Step& step) {
        if (step.verb != "#change") {
            program.tell(step.verb, step.words);
            return;
        }
        support::ExifTool({"-q", "-overwrite_original", "-XMP-dc:Title=one anew", one().string()});
        support::writeJpeg(place_ / "b/new.jpg");
    }

    QString effectOf(const Try& row) {
        DrivenProgram::Options options;
        // Not the view that the command for it sets.
        options.moreSettings = "\n[Main]\nViewMode=2\n";
        const fs::path started = place_ / "started";
        options.prepare = [&](const fs::path& install) {
            support::writeBytes(install / "Tagwright", "#!/bin/sh\n: >'" + started.string() + "'\n");
            fs::permissions(install / "Tagwright", fs::perms::owner_all);
        };
        DrivenProgram program(options);
        const Parts settings = settingsOf(program);
        for (const char* name : {"a", "b", "c"})
            program.tell("open", {QString::fromStdString((place_ / name).string())});
        program.tell("command", {"5033"});
        program.tell("click", {"one.jpg"});
        for (const Step& step : row.before) take(program, step);
        const Parts before = partsOf(program);
        program.say("command " + QByteArray::number(row.command));
        if (!row.effect.startsWith("ended")) expectDotsWhereAsked(row.command, frontOf(program));
        for (const Step& step : row.after) take(program, step);
        if (row.effect.startsWith("ended")) {
            program.waitForEnd();
            if (row.effect == "ended") return fs::exists(started) ? "ended and started" : "ended";
            return endtoend::waitFor([&] { return fs::exists(started); }) ? row.effect : "ended";
        }
        if (row.effect.startsWith('*')) return changeOfFile();
        const QString front = frontOf(program);
        if (!front.isEmpty()) return front;
        QStringList changed = differences(before, partsOf(program));
        EXPECT_EQ(program.quit(), 0);
        changed += differences(settings, settingsOf(program));
        return changed.join("; ");
    }

    static QStringList differences(const Parts& before, const Parts& now) {
        QStringList changed;
        for (const auto& [key, text] : now)
            if (before.at(key) != text) changed.append(text);
        return changed;
    }

    /// What an operation over files has made of one.jpg, by ExifTool and the file system.
    QString changeOfFile() const {
        if (!fs::exists(one())) {
            static const QRegularExpression renamed(
                "^\\d{4}-\\d\\d-\\d\\d \\d\\d-\\d\\d-\\d\\d - (.*)-one\\.jpg$");
            for (const auto& entry : fs::directory_iterator(place_ / "b")) {
                const auto match = renamed.match(QString::fromStdString(entry.path().filename().string()));
                if (match.hasMatch()) return "*renamed by its date and " + match.captured(1);
            }
            return "*gone";
        }
        if (support::ExifTool({"-s3", "-FileModifyDate", one().string()}).starts_with("2001:02:03 04:05:06"))
            return "*date of the photo";
        return support::ExifTool({"-s3", "-ThumbnailImage", one().string()}).empty() ? "*thumbnail gone"
                                                                                     : "*nothing";
    }

    fs::path place_;
    const app::LanguageFile english_{TAGWRIGHT_BIN_DIR, 9};
};

template <class Subject>
void expectTried(const std::set<int>& tried) {
    for (const window::CommandRow<Subject>& row : Subject::rows()) {
        const auto first = tried.lower_bound(row.first);
        EXPECT_TRUE(first != tried.end() && *first <= row.last) << row.first << " is not tried";
    }
}

}  // namespace

TEST_F(CommandEffectsTest, OfTheFrame) {
    run(frameTries());
}

TEST_F(CommandEffectsTest, OfTheFileList) {
    run(browseTries());
}

TEST_F(CommandEffectsTest, OnTheFileShown) {
    run(fileTries());
}

TEST_F(CommandEffectsTest, OnTheTagsOfFiles) {
    run(changingTries());
}

TEST_F(CommandEffectsTest, NoHandlerIsLeftOut) {
    std::set<int> tried;
    for (const std::vector<Try>& tries : {frameTries(), browseTries(), fileTries(), changingTries()})
        for (const Try& row : tries) tried.insert(row.command);
    expectTried<window::OperationCommands>(tried);
    expectTried<window::BrowseCommands>(tried);
    expectTried<window::EditingCommands>(tried);
    expectTried<window::ExportCommands>(tried);
    expectTried<window::FrameCommands>(tried);
    expectTried<window::PayloadCommands>(tried);
    expectTried<window::ReadingCommands>(tried);
    expectTried<window::RemovalCommands>(tried);
    expectTried<window::TagListCommands>(tried);
}
