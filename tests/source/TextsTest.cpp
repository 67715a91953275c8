#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <QProcess>
#include <chrono>
#include <filesystem>
#include <string>

// The tool that makes constants and Linguist files of the texts stops the build at what would be seen only by
// a user, and only in one language. Every fault is seeded into a small set of texts that is right without it.

namespace {

namespace fs = std::filesystem;

constexpr const char* kTexts =
    "# number\tkey\tEnglish\tnote\n"
    "12\tcommand\tDetails\n"
    "80001\tedit::kModify\tModify: %s\t%s is the tag\n"
    "80013\tedit::kWritten\t%s was changed in %s\t%s is the tag, %s the file\n"
    "80014\tedit::kTwoLines\tone\\ntwo, 50 %%\n"
    "100012\ttip\tOne row a file\n";

constexpr const char* kForm =
    "<ui version=\"4.0\"><class>RateDialog</class><widget class=\"QDialog\" name=\"RateDialog\">"
    "<property name=\"windowTitle\"><string>Rate</string></property>"
    "<widget class=\"QComboBox\" name=\"stars\"><property name=\"controlId\" "
    "stdset=\"0\"><number>1695</number>"
    "</property><property name=\"accessibleName\"><string>Rating</string></property>"
    "<property name=\"placeholderText\"><string notr=\"true\">...</string></property></widget>"
    "</widget></ui>";

constexpr const char* kTranslation =
    "<?xml version=\"1.0\"?><TS version=\"2.1\" language=\"fr\"><context><name></name>"
    "<message id=\"80001\"><source>Modify: %s</source><translation>Modifier : %s</translation></message>"
    "<message id=\"80013\"><source>%s was changed in %s</source>"
    "<translation>Dans %2$s, %1$s a changé</translation></message></context>"
    "<context><name>RateDialog</name><message><source>Rate</source><translation>Noter</translation></message>"
    "</context></TS>";

struct Outcome {
    int exitCode = -1;
    std::string output;
    std::string errors;
};

Outcome runTexts(const QStringList& arguments) {
    QProcess process;
    const QString tool = QStringLiteral(TAGWRIGHT_SOURCE_DIR "/tools/texts/texts.py");
    process.start(QStringLiteral("python3"), QStringList{QStringLiteral("-B"), tool} + arguments);
    if (!process.waitForFinished(60000)) return {};
    return {process.exitCode(), process.readAllStandardOutput().toStdString(),
            process.readAllStandardError().toStdString()};
}

class Texts : public ::testing::Test {
 protected:
    Texts() {
        write("texts.tsv", kTexts);
        write("menus.xml", "<menus><menu number=\"1\"><entry text=\"12\"/></menu></menus>");
        write("ribbon.xml", "<ribbon foldText=\"80001\"><tab id=\"home\" text=\"12\"/></ribbon>");
        write("forms/186.ui", kForm);
        write("0012.ts", kTranslation);
        write("src/edit/FormControls.tsv", "# form\tcontrol\tclass\tneed\n186\t1695\tQComboBox\tmust\n");
    }

    void write(const std::string& name, const std::string& content) {
        fs::create_directories((folder_ / name).parent_path());
        support::writeBytes(folder_ / name, content);
    }

    std::string content(const std::string& name) const { return support::readBytes(folder_ / name); }

    void replace(const std::string& name, const std::string& from, const std::string& to) {
        std::string bytes = content(name);
        const std::size_t at = bytes.find(from);
        ASSERT_NE(at, std::string::npos) << name << " has no " << from;
        write(name, bytes.replace(at, from.size(), to));
    }

    Outcome check() const { return runTexts({QStringLiteral("check"), path()}); }
    Outcome compareControls() const {
        return runTexts({QStringLiteral("controls"), path(), path() + QStringLiteral("/src"),
                         path() + QStringLiteral("/made.inc")});
    }
    QString path() const { return QString::fromStdString(folder_.path().string()); }

    support::TemporaryFolder folder_;
};

struct Fault {
    const char* what;
    const char* file;
    const char* from;
    const char* to;
    const char* told;
};

constexpr Fault kFaults[] = {
    {"a row without a text", "texts.tsv", "12\tcommand\tDetails", "12\tcommand", "a row is number, key"},
    {"an empty text", "texts.tsv", "12\tcommand\tDetails", "12\tcommand\t ", "the text is empty"},
    {"a number that is none", "texts.tsv", "80001\t", "8000x\t", "a row is number, key"},
    {"a number that stands twice", "texts.tsv", "80013\t", "80001\t", "stands after 80001"},
    {"numbers out of order", "texts.tsv", "80013\t", "80020\t", "stands after 80020"},
    {"a constant that stands twice", "texts.tsv", "kWritten", "kModify",
     "edit::kModify is already the number 80001"},
    {"a key that is none", "texts.tsv", "edit::kModify", "edit.modify", "neither room::kName nor"},
    {"a tip below the tips", "texts.tsv", "12\tcommand", "12\ttip", "are the tool tips"},
    {"a text among the tips", "texts.tsv", "100012\ttip", "100012\tcommand", "are the tool tips"},
    {"a place that the note does not explain", "texts.tsv", "%s is the tag, %s the file", "%s is the tag",
     "the note must say what"},
    {"a note of a place that is not there", "texts.tsv", "12\tcommand\tDetails",
     "12\tcommand\tDetails\t%s is it", "the note must say what"},
    {"a place of another kind", "texts.tsv", "Modify: %s\t%s", "Modify: %u\t%s", "the note must say what"},
    {"a menu that names no text", "menus.xml", "text=\"12\"", "text=\"13\"",
     "text=\"13\" is not the number of a text"},
    {"a menu that speaks itself", "menus.xml", "text=\"12\"", "text=\"Sort by\"",
     "is not the number of a text"},
    {"a ribbon that names no text", "ribbon.xml", "foldText=\"80001\"", "foldText=\"1\"",
     "foldText=\"1\" is not"},
    {"a form that is no XML", "forms/186.ui", "</ui>", "", "186.ui"},
    {"a form without a class", "forms/186.ui", "<class>RateDialog</class>", "", "names no class"},
    {"a translation that is no XML", "0012.ts", "</TS>", "", "0012.ts"},
    {"a translation without a place", "0012.ts", "Modifier : %s", "Modifier",
     "the places are none, not ['%s']"},
    {"a translation with one place more", "0012.ts", "Modifier : %s", "Modifier : %s %s", "the places are"},
    {"a translation with a place of another kind", "0012.ts", "Modifier : %s", "Modifier : %u",
     "the places are"},
    {"a translation that numbers one place only", "0012.ts", "%1$s a", "%s a",
     "either all places are numbered"},
    {"a translation that takes a value twice", "0012.ts", "%1$s a", "%2$s a",
     "either all places are numbered"},
    {"a translation of a text that has changed", "0012.ts", "<source>Modify: %s", "<source>Alter: %s",
     "English has no such text"},
    {"a translation of a number that has gone", "0012.ts", "id=\"80013\"", "id=\"80015\"",
     "English has no such text"},
    {"a translation of a text that the form has no more", "0012.ts", "<source>Rate<", "<source>Stars<",
     "English has no such text"},
};

TEST_F(Texts, WithoutAFaultNothingIsTold) {
    const Outcome outcome = check();
    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    EXPECT_EQ(outcome.errors, "");
}

TEST_F(Texts, EveryFaultStopsTheBuildAndIsTold) {
    for (const Fault& fault : kFaults) {
        const std::string sound = content(fault.file);
        replace(fault.file, fault.from, fault.to);
        const Outcome outcome = check();
        EXPECT_EQ(outcome.exitCode, 1) << fault.what;
        EXPECT_THAT(outcome.errors, ::testing::HasSubstr(fault.told)) << fault.what;
        write(fault.file, sound);
    }
}

TEST_F(Texts, AFaultLeavesTheHeadersAsTheyAre) {
    replace("texts.tsv", "80013\t", "80001\t");
    const QString made = path() + QStringLiteral("/made");
    EXPECT_EQ(
        runTexts({QStringLiteral("headers"), path(), made, QStringLiteral("edit/EditTexts.h")}).exitCode, 1);
    EXPECT_FALSE(fs::exists(folder_ / "made"));
}

TEST_F(Texts, AFolderWithoutAHeaderIsTold) {
    const Outcome outcome = runTexts({QStringLiteral("headers"), path(), path() + QStringLiteral("/made"),
                                      QStringLiteral("app/TextNumbers.h")});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.errors, ::testing::HasSubstr("there is no header for edit"));
}

TEST_F(Texts, OnlyTheHeaderWhoseTextsChangeIsWrittenAnew) {
    const QStringList headers{QStringLiteral("headers"), path(), path() + QStringLiteral("/made"),
                              QStringLiteral("edit/EditTexts.h"), QStringLiteral("window/WindowTexts.h")};
    ASSERT_EQ(runTexts(headers).exitCode, 0);
    EXPECT_THAT(
        content("made/edit/EditTexts.h"),
        ::testing::AllOf(::testing::HasSubstr("namespace edit::text {"),
                         ::testing::HasSubstr("/// %s is the tag\ninline constexpr int kModify = 80001;\n")));
    const auto past = fs::file_time_type::clock::now() - std::chrono::hours(1);
    for (const char* name : {"made/edit/EditTexts.h", "made/window/WindowTexts.h"})
        fs::last_write_time(folder_ / name, past);
    replace("texts.tsv", "100012\t", "82500\twindow::kNoOutput\tNothing\n100012\t");
    ASSERT_EQ(runTexts(headers).exitCode, 0);
    EXPECT_EQ(fs::last_write_time(folder_ / "made/edit/EditTexts.h"), past);
    EXPECT_NE(fs::last_write_time(folder_ / "made/window/WindowTexts.h"), past);
}

TEST_F(Texts, AnUpdateKeepsWhatIsTranslatedAndAddsWhatIsNew) {
    replace("texts.tsv", "Modify: %s", "Alter: %s");
    replace("texts.tsv", "100012\t", "82500\twindow::kNoOutput\tNothing\n100012\t");
    ASSERT_EQ(runTexts({QStringLiteral("update"), path(), QStringLiteral("12")}).exitCode, 0);
    const std::string updated = content("0012.ts");
    const auto has = [&](const char* part) { EXPECT_THAT(updated, ::testing::HasSubstr(part)); };
    has("<source>Alter: %s</source>\n        <extracomment>%s is the tag</extracomment>\n"
        "        <translation type=\"unfinished\">Modifier : %s</translation>");
    has("<translation>Dans %2$s, %1$s a changé</translation>");
    has("<source>Nothing</source>\n        <translation type=\"unfinished\"></translation>");
    has("<translation>Noter</translation>");
    has("<source>Rating</source>\n        <extracomment>form 186, accessibleName of stars</extracomment>");
    has("<source>one\ntwo, 50 %%</source>");
    has("<extracomment>tool tip of \"Details\"</extracomment>");
    EXPECT_THAT(updated, ::testing::Not(::testing::HasSubstr("<source>...</source>")));
    EXPECT_EQ(check().exitCode, 0);
}

TEST_F(Texts, AnUpdateBeginsATranslation) {
    ASSERT_EQ(runTexts({QStringLiteral("update"), path(), QStringLiteral("7")}).exitCode, 0);
    EXPECT_THAT(content("0007.ts"), ::testing::AllOf(::testing::HasSubstr("language=\"de\""),
                                                     ::testing::HasSubstr("<source>Modify: %s</source>")));
    EXPECT_EQ(check().exitCode, 0);
}

TEST_F(Texts, TheControlsOfTheDialogsBecomeATable) {
    const Outcome outcome = compareControls();
    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    EXPECT_THAT(content("made.inc"), ::testing::HasSubstr("\n{186, 1695, \"QComboBox\", true},\n"));
}

TEST_F(Texts, AControlThatItsFormDoesNotHaveStopsTheBuild) {
    const char* const controls = "src/edit/FormControls.tsv";
    const Fault faults[] = {
        {"a control of another number", controls, "1695", "1696", "186.ui has no control 1696"},
        {"a control of another class", controls, "QComboBox", "QLineEdit", "is a QComboBox, not a QLineEdit"},
        {"a form that is not there", controls, "186\t", "187\t", "there is no form"},
        {"a need that is none", controls, "must", "should", "a row is form, control, class"},
        {"a control that stands twice", controls, "186\t", "186\t1695\tQComboBox\tmay\n186\t",
         "stands already in"},
        {"a form that has lost its control", "forms/186.ui", "1695", "1694", "has no control 1695"},
    };
    for (const Fault& fault : faults) {
        const std::string sound = content(fault.file);
        replace(fault.file, fault.from, fault.to);
        const Outcome outcome = compareControls();
        EXPECT_EQ(outcome.exitCode, 1) << fault.what;
        EXPECT_THAT(outcome.errors, ::testing::HasSubstr(fault.told)) << fault.what;
        EXPECT_FALSE(fs::exists(folder_ / "made.inc")) << fault.what;
        write(fault.file, sound);
    }
}

}  // namespace
