#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QRegularExpression>
#include <algorithm>
#include <filesystem>
#include <iterator>
#include <set>
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
constexpr const char* kSystemSays = "is said where the system's own messages are, in English as most of them";
constexpr const char* kExifToolsWords = "is compared with what ExifTool says";

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
    {"app/SortMode.cpp", "SortMode::", kNotShown},
    {"app/ViewMode.cpp", "ViewMode::", kNotShown},
    {"browser/ItemStore.cpp", "ItemStore: ", kNotShown},
    {"browser/FileIcons.cpp", "", kNotShown},
    {"controls/HexView.cpp", "Courier New", kNotShown},
    {"properties/PngTexts.cpp", "Creation Time", kNotShown},
    {"tags/PropertyCatalogue.h", "a format id", kNotShown},
    {"platform/CommandInterpreter.cpp", "A zero byte cannot", kSystemSays},
    {"platform/CommandInterpreter.cpp", "A redirection names", kSystemSays},
    {"platform/CommandInterpreter.cpp", "' is not recognized", kSystemSays},
    {"platform/AtomicFile_posix.cpp", "Not a regular file", kSystemSays},
    {"exiftool/OutcomeJudge.cpp", "image files ", kExifToolsWords},
    {"exiftool/OutcomeJudge.cpp", "files ", kExifToolsWords},
    {"exiftool/SafetyCopy.cpp", "CopyFile failed", kEveryLanguage},
    {"exiftool/MetadataLoad.cpp", "An error occured!", kEveryLanguage},
    {"payload/ThumbnailOperations.cpp", "Select a JPEG file", kEveryLanguage},
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

/// The row that lets the literal stand, or null.
const Exemption* exemptionOf(const std::string& file, const std::string& literal) {
    const auto* const row = std::ranges::find_if(kExemptions, [&](const Exemption& one) {
        return file == one.file && literal.starts_with(one.literal);
    });
    return row == std::end(kExemptions) ? nullptr : row;
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

/// The literals that are shown as they stand, single words too: the first in a call that shows a text, and
/// all that a model gives as the titles of its columns. The program's own name is no text.
std::vector<std::string> shownLiterals(const QString& source) {
    static const QRegularExpression shows(
        R"re(\b(?:setText|showStatus|showMessage|setEmptyText|setToolTip|setWindowTitle)\([^;"]*"([A-Za-z][^"]*)")re");
    static const QRegularExpression titles(R"re(::headerData\([^;{]*\{(.*?)\n\})re",
                                           QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression literal(R"re("([A-Za-z][^"]*)")re");
    std::vector<std::string> found;
    const auto gather = [&found](const QRegularExpression& pattern, const QString& text) {
        for (auto at = pattern.globalMatch(text); at.hasNext();) {
            const QString shown = at.next().captured(1);
            if (shown != u"Tagwright") found.push_back(shown.toStdString());
        }
    };
    gather(shows, source);
    for (auto at = titles.globalMatch(source); at.hasNext();) gather(literal, at.next().captured(1));
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

TEST(CompiledTexts, AWordThatIsShownIsToldFromOneThatIsNot) {
    for (const Line& line : {Line{R"(bar.showStatus(QStringLiteral("Ready"));)", 1},
                             Line{R"(showMessage(this, {message, Icon::Stop, u"Error"_s});)", 1},
                             Line{"QVariant M::headerData(int s) const {\n    return \"Id\";\n}\n", 1},
                             Line{R"(setWindowTitle(QStringLiteral("Tagwright"));)", 0},
                             Line{R"(label->setText(text); map["Key"] = 1;)", 0}})
        EXPECT_EQ(shownLiterals(QString::fromLatin1(line.text)).size(), line.count) << line.text;
}

TEST(CompiledTexts, NothingThatIsShownStandsInASource) {
    std::size_t sources = 0;
    std::set<const Exemption*> used;
    const auto isExempt = [&used](const std::string& file, const std::string& literal) {
        const Exemption* const row = exemptionOf(file, literal);
        if (row != nullptr) used.insert(row);
        return row != nullptr;
    };
    const fs::path root = fs::path(TAGWRIGHT_SOURCE_DIR) / "src";
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        if (entry.path().extension() != ".cpp" && entry.path().extension() != ".h") continue;
        ++sources;
        const std::string file = fs::relative(entry.path(), root).string();
        const QString source = QString::fromStdString(support::readBytes(entry.path()));
        for (const std::string& word : shownLiterals(source))
            EXPECT_TRUE(isExempt(file, word)) << file << " shows \"" << word << '"';
        for (const QString& line : source.split(u'\n'))
            for (const std::string& sentence : sentences(line))
                EXPECT_TRUE(isExempt(file, sentence))
                    << file << " says \"" << sentence << "\"; docs/texts.md tells where it belongs";
    }
    EXPECT_GT(sources, 200u);
    for (const Exemption& row : kExemptions)
        EXPECT_TRUE(used.contains(&row)) << row.file << ": nobody needs the exemption of " << row.literal;
}
