#include "DrivenProgram.h"
#include "PictureFolder.h"

#include <gmock/gmock.h>

namespace fs = std::filesystem;
using endtoend::DrivenProgram;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

constexpr const char* kYes = "1";
constexpr const char* kNo = "2";

class DumpAndExport : public endtoend::PictureFolder {
 protected:
    static DrivenProgram::Options designed() {
        DrivenProgram::Options options;
        options.moreSettings = "\n[ExifTool]\nCorrectedCommands=0\n";
        return options;
    }
    std::string bytes(const std::string& name) { return support::readBytes(folder / name); }
    void show(DrivenProgram& program, const std::string& name) {
        program.tell("open", {path()});
        program.tell("click", {QString::fromStdString(name)});
    }
};

TEST_F(DumpAndExport, ADumpIsMadeInTheTempFolderAndOpened) {
    photo("a.jpg", {"-IFD0:Artist=Somebody"});
    DrivenProgram program;
    program.tell("open", {path()});
    program.tell("command", {"10004"});
    EXPECT_FALSE(program.takeMessage().isEmpty());  // nothing is selected
    program.tell("click", {"a.jpg"});
    struct Case {
        const char* command;
        const char* output;
        const char* holds;
    };
    for (const auto& [command, output, holds] :
         {Case{"10004", "a.htm", "<html"}, Case{"10007", "a.txt", "Artist = Somebody"}}) {
        program.tell("command", {command});
        // The test's platform has no program for it.
        EXPECT_THAT(program.takeMessage().toStdString(), HasSubstr(output));
        EXPECT_THAT(support::readBytes(program.temp() / output), HasSubstr(holds)) << command;
    }
    EXPECT_EQ(program.fileNames(), QStringList{"a.jpg"});
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(DumpAndExport, EveryFormatIsWrittenBesideTheFile) {
    struct Case {
        const char* command;
        const char* target;
        const char* holds;
    };
    const Case cases[] = {{"10034", "a.txt", "Camera Model Name               : M"},
                          {"10035", "a.csv", "SourceFile,"},
                          {"10036", "a.html", "<td>Camera Model Name</td>"},
                          {"10037", "a.xml", "<IFD0:Model>M</IFD0:Model>"},
                          {"10038", "a.mie", "0MIE"}};
    for (const auto& options : {DrivenProgram::Options{}, designed()}) {
        photo("a.jpg", {"-IFD0:Model=M"});
        DrivenProgram program(options);
        show(program, "a.jpg");
        for (const auto& [command, target, holds] : cases) {
            program.tell("command", {command});
            EXPECT_THAT(bytes(target), HasSubstr(holds)) << command;
            EXPECT_THAT(program.status().toStdString(), HasSubstr(target));
            EXPECT_TRUE(program.fileNames().contains(target));
            fs::remove(folder / target);
        }
        EXPECT_EQ(program.quit(), 0);
    }
}

TEST_F(DumpAndExport, AnExistingFileIsReplacedOnlyWhenTheUserAgrees) {
    photo("a.jpg");
    support::writeBytes(folder / "a.txt", "my notes");
    DrivenProgram program;
    show(program, "a.jpg");
    program.tell("command", {"10034"});
    EXPECT_THAT(program.tell("message")["text"].toString().toStdString(), HasSubstr("a.txt"));
    program.tell("press", {kNo});
    EXPECT_EQ(bytes("a.txt"), "my notes");
    program.tell("command", {"10034"});
    program.tell("press", {kYes});
    EXPECT_TRUE(endtoend::waitFor([this] { return bytes("a.txt").find("Image Size") != std::string::npos; }));
    EXPECT_EQ(program.fileNames(), (QStringList{"a.jpg", "a.txt"}));
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(DumpAndExport, TheDesignedFormReplacesWithoutAQuestion) {
    photo("a.jpg");
    support::writeBytes(folder / "a.txt", "my notes");
    DrivenProgram program(designed());
    show(program, "a.jpg");
    program.tell("command", {"10041"});
    EXPECT_THAT(bytes("a.txt"), HasSubstr("Image Size"));
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(DumpAndExport, AFailedExportLosesNothing) {
    photo("a.jpg");
    support::writeBytes(folder / "page.html", "<html><title>mine</title></html>");
    fs::create_directories(folder / "a.txt" / "inner");
    DrivenProgram program;
    show(program, "a.jpg");
    program.tell("command", {"10034"});
    program.tell("press", {kYes});
    EXPECT_TRUE(endtoend::waitFor([&program] { return program.say("message")["ok"].toBool(); }));
    EXPECT_THAT(program.takeMessage().toStdString(), HasSubstr("cannot be written"));
    EXPECT_TRUE(fs::is_directory(folder / "a.txt" / "inner"));
    program.tell("click", {"page.html"});
    program.tell("command", {"10036"});
    EXPECT_EQ(bytes("page.html"), "<html><title>mine</title></html>");
    EXPECT_THAT(bytes("page.html.html"), HasSubstr("<td>File Type</td>"));
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(DumpAndExport, AnExportThatWasCutIsNotTakenForOne) {
    photo("a.jpg");
    for (const char* end : {"kill -KILL $$", "exit 1"}) {
        for (const auto& form : {DrivenProgram::Options{}, designed()}) {
            SCOPED_TRACE(end + form.moreSettings.toStdString());
            const fs::path tool = folder / "tool";
            support::writeBytes(tool,
                                std::string("#!/bin/sh\ncase \"$*\" in *stay_open*) exec sleep 60;; esac\n") +
                                    "echo half\n" + end + "\n");
            fs::permissions(tool, fs::perms::owner_all);
            DrivenProgram::Options options = form;
            options.exifTool = tool;
            DrivenProgram program(options);
            program.tell("open", {path()});
            program.tell("select", {"a.jpg"});
            program.tell("command", {"10034"});
            EXPECT_THAT(program.takeMessage().toStdString(), HasSubstr("cannot be written"));
            EXPECT_THAT(program.status().toStdString(), testing::Not(HasSubstr("Tags written")));
            EXPECT_FALSE(fs::exists(folder / "a.txt")) << "half of it stays";
            EXPECT_EQ(program.quit(), 0);
        }
    }
}

TEST_F(DumpAndExport, NamesFromOutsideStayNames) {
    for (const std::string& name : support::hostileNames()) photo(name, {"-IFD0:Model=M"});
    DrivenProgram program;
    program.tell("open", {path()});
    for (const QString& shown : program.fileNames()) {
        if (shown.contains(QChar(0xfffd))) continue;  // cannot be named in a script
        program.tell("click", {shown});
        program.tell("command", {"10037"});
    }
    int exported = 0;
    for (const auto& entry : fs::directory_iterator(folder.path())) {
        EXPECT_THAT(entry.path().filename().string(), testing::Not(StartsWith("owned")));
        if (entry.path().extension() != ".xml") continue;
        ++exported;
        EXPECT_THAT(support::readBytes(entry.path()), HasSubstr("<IFD0:Model>M<")) << entry.path();
    }
    EXPECT_GE(exported, static_cast<int>(support::hostileNames().size()) - 2);
    EXPECT_FALSE(fs::exists(program.temp() / "Export.tmp"));
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(DumpAndExport, TheMenuOfExportsSpeaksAndExports) {
    photo("a.jpg");
    DrivenProgram program;
    show(program, "a.jpg");
    program.tell("command", {"10033"});
    program.tell("choose", {"10037"});
    EXPECT_TRUE(endtoend::waitFor([this] { return fs::exists(folder / "a.xml"); }));
    EXPECT_EQ(program.quit(), 0);
}

}  // namespace
