#include <gtest/gtest.h>

#include <QRegularExpression>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

// What people read stands in babel/texts.tsv and the forms. A sentence in a source would stay English in
// every language, and nobody would see it in an English one; this test does.

namespace fs = std::filesystem;

namespace {

struct Exemption {
    const char* file;
    const char* literal;  ///< how it begins; empty: all of the file
    const char* why;
};

constexpr const char* kEveryLanguage = "is the same in every language by design";
constexpr const char* kOwnLanguages = "holds its texts in four languages itself";
constexpr const char* kNotShown = "is compared, or names something for developers";
constexpr const char* kPropertyValue = "is a value of the property catalogue, like a tag's value";
constexpr const char* kToolReason = "is a reason in a report of the day, beside ExifTool's English";

constexpr Exemption kExemptions[] = {
    {"app/ProgressTexts.cpp", "", kOwnLanguages},
    {"tags/LabelHelp.cpp", "", kOwnLanguages},
    {"payload/Payload.cpp", "", kOwnLanguages},
    {"browser/PropertyText.cpp", "", kPropertyValue},
    {"properties/PhotoPropertyTable.cpp", "", kPropertyValue},
    {"properties/FileProperties.cpp", "web page", kPropertyValue},
    {"properties/PropertyStore.cpp", "", kEveryLanguage},
    {"controls/RibbonMarkup.cpp", "", kNotShown},
    {"dialogs/DarkModeDialogBase.cpp", "Undeclared control", kNotShown},
    {"app/SortMode.cpp", "", kNotShown},
    {"app/ViewMode.cpp", "", kNotShown},
    {"browser/ItemStore.cpp", "ItemStore: ", kNotShown},
    {"browser/FileIcons.cpp", "", kNotShown},
    {"controls/HexView.cpp", "Courier New", kNotShown},
    {"tags/PropertyCatalogue.h", "a format id", kNotShown},
    {"app/SettingsStore.cpp", "A settings file cannot hold", kToolReason},
    {"exiftool/OutcomeJudge.cpp", "", kToolReason},
    {"exiftool/ToolRunner.cpp", "", kToolReason},
    {"platform/CommandInterpreter.cpp", "", kToolReason},
    {"platform/AtomicFile_posix.cpp", "Not a regular file", kToolReason},
    {"exiftool/MetadataReader.cpp", "ExifTool gave no answer", kToolReason},
    {"exiftool/ToolConversation.cpp", "", kToolReason},
    {"exiftool/WriteBatch.cpp", "", kToolReason},
    {"exiftool/WriteSessions.cpp", "", kToolReason},
    {"exiftool/WriteCommands.cpp", "No file or no tag", kToolReason},
    {"exiftool/WriteTag.cpp", "The property was not written", kToolReason},
    {"jobs/OutcomeText.cpp", "", kToolReason},
    {"jobs/SameForAll.cpp", "The command could not be put together", kToolReason},
    {"payload/PayloadFetch.cpp", "", kToolReason},
    {"taglists/Removals.cpp", "The list of files could not be written", kToolReason},
    {"taglists/Removals.cpp", "ExifTool gave no answer", kToolReason},
    {"batch/BatchDispatch.cpp", "", kToolReason},
    {"payload/ThumbnailWrite.cpp", "", kToolReason},
    {"payload/PayloadExporter.cpp", "", kToolReason},
    {"window/WindowFeedback.cpp", "", kToolReason},
    {"exiftool/SafetyCopy.cpp", "CopyFile failed", kEveryLanguage},
    {"exiftool/MetadataLoad.cpp", "An error occured!", kEveryLanguage},
    {"payload/ThumbnailOperations.cpp", "Select a JPEG file", kEveryLanguage},
    {"payload/ThumbnailOperations.cpp", "Cannot be copied", kToolReason},
    {"taglists/RemovalOperations.cpp", "Please select at least one tag.", kEveryLanguage},
    {"taglists/DialogRemoveTags.cpp", "Please select at least one tag.", kEveryLanguage},
    {"taglists/DialogDeleteATag.cpp", " is going to be deleted.", kEveryLanguage},
    {"taglists/DialogDeleteGroup_FromOneFile.cpp", "You are going to delete", kEveryLanguage},
    {"taglists/RemoveDialogTypes.cpp", "Please ", kEveryLanguage},
    {"taglists/Removals.cpp", " cannot be modified", kEveryLanguage},
    {"taglists/TagValuesDialog.cpp", "Batch Mode", kEveryLanguage},
    {"window/MainWindowClose.cpp", "Could not write to ColumnsHeader.ini.", kEveryLanguage},
    {"window/Program.cpp", "Could not ", kEveryLanguage},
    {"window/Program.cpp", "Please tell Tagwright", kEveryLanguage},
    {"window/StatusBar.cpp", "Total %s", kEveryLanguage},
};

bool isExempt(const std::string& file, const std::string& literal) {
    return std::ranges::any_of(kExemptions, [&](const Exemption& row) {
        return file == row.file && literal.starts_with(row.literal);
    });
}

/// The literals of a source line that are two words or more of a language.
std::vector<std::string> sentences(const QString& line) {
    static const QRegularExpression literal(R"re("((?:[^"\\]|\\.)*)")re");
    static const QRegularExpression words(
        R"re((?:^|[^\w%<\\/.=-])[A-Za-z][a-z]+[,:]? (?:[a-z%]+|[A-Z][a-z]+))re");
    std::vector<std::string> found;
    if (line.trimmed().startsWith(u'#')) return found;
    for (auto at = literal.globalMatch(line); at.hasNext();) {
        const auto match = at.next();
        if (line.left(match.capturedStart()).contains(QLatin1StringView("//"))) break;
        if (words.match(match.captured(1)).hasMatch()) found.push_back(match.captured(1).toStdString());
    }
    return found;
}

struct Line {
    const char* text;
    std::size_t count;
};

}  // namespace

TEST(CompiledTexts, ASentenceIsToldFromWhatIsNone) {
    for (const Line& line : {Line{R"(setToolTip(QStringLiteral("New tab"));)", 1},
                             Line{R"(return {u"The folder %1 is gone", "Close the tab"};)", 2},
                             Line{R"(showStatus(QStringLiteral("%1 files were read"));)", 1},
                             Line{R"(// says "Reading the folder")", 0}, Line{R"(#include "a b.h")", 0},
                             Line{R"(line << "-s -G1 " << "-charset filename=utf8 ";)", 0},
                             Line{R"(setObjectName(QStringLiteral("FileList"));)", 0}})
        EXPECT_EQ(sentences(QString::fromLatin1(line.text)).size(), line.count) << line.text;
}

TEST(CompiledTexts, NoSentenceStandsInASource) {
    std::size_t sources = 0;
    const fs::path root = fs::path(TAGWRIGHT_SOURCE_DIR) / "src";
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        if (entry.path().extension() != ".cpp" && entry.path().extension() != ".h") continue;
        ++sources;
        const std::string file = fs::relative(entry.path(), root).string();
        std::ifstream stream(entry.path());
        for (std::string line; std::getline(stream, line);)
            for (const std::string& sentence : sentences(QString::fromStdString(line)))
                EXPECT_TRUE(isExempt(file, sentence))
                    << file << " says \"" << sentence << "\"; docs/texts.md tells where it belongs";
    }
    EXPECT_GT(sources, 200u);
}
