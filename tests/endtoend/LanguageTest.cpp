#include "DrivenProgram.h"
#include "PictureFolder.h"
#include "support/LanguageSources.h"

using endtoend::DrivenProgram;
namespace fs = std::filesystem;

namespace {

class LanguageTest : public endtoend::PictureFolder {
 protected:
    void SetUp() override { photo("a.jpg", {"-XMP-dc:Title=of a", "-ISO=100"}); }

    // The program in the language 12, whose file is made of the sources.
    DrivenProgram::Options french() const {
        DrivenProgram::Options options = frenchWithoutFile();
        options.prepare = [this](const fs::path& install) { sources.pack(install / "babel/0012.dlk"); };
        return options;
    }

    // English made of the sources, which stand in for no other language.
    DrivenProgram::Options english() const {
        DrivenProgram::Options options;
        options.prepare = [this](const fs::path& install) { sources.pack(install / "babel/0009.dlk"); };
        return options;
    }

    static DrivenProgram::Options frenchWithoutFile() {
        DrivenProgram::Options options;
        options.moreSettings = "\n[Main]\nLanguage=12\n";
        return options;
    }

    support::LanguageSources sources;
};

}  // namespace

TEST_F(LanguageTest, ALanguageWithoutAFileIsToldOnceAndTheProgramSpeaksEnglish) {
    DrivenProgram program(frenchWithoutFile());
    EXPECT_TRUE(program.takeMessage().contains("0012.dlk"));
    program.tell("open", {path()});
    EXPECT_EQ(program.fileNames(), QStringList("a.jpg"));
    program.tell("click", {"a.jpg"});
    EXPECT_EQ(program.value("XMP-dc", "Title"), "of a");
    program.tell("command", {"284"});
    EXPECT_EQ(program.tell("dialog")["title"].toString(), "About Tagwright");
    program.tell("press", {"1"});
    EXPECT_EQ(program.quit(), 0);
    EXPECT_EQ(program.setting("Main", "Language"), "12") << "the wish stays, for when the file is there";
}

TEST_F(LanguageTest, WhatALanguageLacksOrHoldsFaultyIsEnglishAndToldInTheStatusBar) {
    const auto expectEnglish = [this](const char* what) {
        SCOPED_TRACE(what);
        DrivenProgram program(french());
        EXPECT_TRUE(program.status().contains("0012.dlk")) << program.status().toStdString();
        program.tell("command", {"284"});
        EXPECT_EQ(program.tell("dialog")["title"].toString(), "About Tagwright");
        program.tell("press", {"1"});
        program.tell("open", {path()});
        EXPECT_EQ(program.fileNames(), QStringList("a.jpg"));
        EXPECT_EQ(program.quit(), 0);
    };
    sources.translate(70501, "Cliquez un fichier");
    sources.translate("ReportDialog", "Report", "Rapport");
    sources.replace("forms/284.ui", "28402", "99999");
    expectEnglish("a control");
    sources.remove("forms/284.ui");
    expectEnglish("a form");
    sources.replace("ribbon.xml", "<ribbon", "<nonsense");
    expectEnglish("the ribbon");
}

TEST_F(LanguageTest, AFormWithoutAControlThatItsDialogNeedsIsToldAndDoesNotOpen) {
    const struct {
        const char* form;
        const char* control;
        QString verb;
        QStringList words;
    } cases[] = {
        {"9", "1321", "command", {"75"}},
        {"284", "28402", "command", {"284"}},
        {"133", "1694", "row", {"ExifIFD", "ISO", "Value"}},
        {"134", "1694", "row", {"XMP-dc", "Title", "Value"}},
        {"176", "1930", "command", {"176"}},
        {"128", "81100", "command", {"178"}},
    };
    for (const auto& row : cases)
        sources.replace("forms/" + std::string(row.form) + ".ui", row.control, "99999");
    DrivenProgram program(english());
    program.tell("open", {path()});
    for (const auto& row : cases) {
        // Without a selection the files of a folder are asked for, with one the operation begins.
        if (std::string(row.form) != "9") program.tell("click", {"a.jpg"});
        program.tell(row.verb, row.words);
        const QString message = program.takeMessage();
        EXPECT_TRUE(message.contains(row.form) && message.contains(row.control)) << message.toStdString();
        EXPECT_EQ(program.fileNames(), QStringList("a.jpg")) << row.form;
    }
    EXPECT_EQ(program.quit(), 0);
}
