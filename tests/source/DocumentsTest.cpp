#include <gtest/gtest.h>

#include <QRegularExpression>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <vector>

// A document that names what has moved sends its reader astray; what it names in backticks must be there.

namespace fs = std::filesystem;

namespace {

const fs::path kRoot = TAGWRIGHT_SOURCE_DIR;
constexpr const char* kFolders[] = {"babel", "cmake", "data", "docs", "src", "tests", "tools"};

std::string textOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

/// Files and folders by their path below the source folder.
const std::vector<std::string>& paths() {
    static const std::vector<std::string> all = [] {
        std::vector<std::string> found;
        for (const char* folder : kFolders) {
            found.emplace_back(folder);
            for (const auto& entry : fs::recursive_directory_iterator(kRoot / folder))
                found.push_back(entry.path().lexically_relative(kRoot).generic_string());
        }
        return found;
    }();
    return all;
}

/// Every word of the sources, which a name in a document has to be among.
const std::set<std::string>& words() {
    static const std::set<std::string> all = [] {
        static const std::set<std::string> binary = {".jpg", ".png", ".wav"};
        std::set<std::string> found;
        for (const std::string& path : paths()) {
            const fs::path file = kRoot / path;
            if (path.starts_with("docs") || !fs::is_regular_file(file) || binary.contains(file.extension()))
                continue;
            std::string word;
            for (const char byte : textOf(file) + '\n') {
                if (std::isalnum(static_cast<unsigned char>(byte)) != 0 || byte == '_') {
                    word += byte;
                } else if (!word.empty()) {
                    found.insert(word);
                    word.clear();
                }
            }
        }
        return found;
    }();
    return all;
}

bool matches(const std::string& text, const char* pattern) {
    return QRegularExpression(QRegularExpression::anchoredPattern(QString::fromUtf8(pattern)))
        .match(QString::fromStdString(text))
        .hasMatch();
}

/// "src/edit", "edit/DateValue" for both of its files, "tools/bench/*_posix.cpp".
bool isThere(const std::string& named) {
    static const QString endings = QStringLiteral("(\\.h|\\.cpp)?/?");
    QString pattern = QRegularExpression::escape(QString::fromStdString(named));
    pattern.replace(QStringLiteral("\\*"), QStringLiteral("[^/]*"));
    const QRegularExpression path(
        QRegularExpression::anchoredPattern(QStringLiteral("(.*/)?") + pattern + endings));
    return std::ranges::any_of(paths(), [&](const std::string& known) {
        return path.match(QString::fromStdString(known)).hasMatch();
    });
}

/// Begins with a folder of the project, or of its sources.
bool isPath(const std::string& named) {
    if (!matches(named, R"([\w*.-]+(/[\w*.-]+)+/?)")) return false;
    const std::string first = named.substr(0, named.find('/'));
    // What the build makes is not always there, and the two commands stand in the root.
    if (first == "build" || first == ".") return false;
    return fs::is_directory(kRoot / first) || fs::is_directory(kRoot / "src" / first);
}

bool isFileName(const std::string& named) {
    return matches(named, R"([\w*-]+\.(cpp|h|inc|tsv|ui|md|xml|py|cmake))");
}

/// Language files are named for any language.
bool isOfALanguage(const std::string& named) {
    return matches(named, R"(babel/\d{4}\.(ts|dlk))");
}

/// "takeRows()", "app::CommandForm": a name of the sources by its look.
bool isIdentifier(const std::string& named) {
    return matches(named, R"((\w+::)*\w*([a-z][A-Z]|::)\w+(\(\))?)");
}

bool isNameOfTheSources(const std::string& named) {
    std::string word;
    for (const char byte : named + ':') {
        if (std::isalnum(static_cast<unsigned char>(byte)) != 0 || byte == '_')
            word += byte;
        else if (!word.empty() && !words().contains(word))
            return false;
        else
            word.clear();
    }
    return true;
}

}  // namespace

TEST(Documents, NameOnlyWhatIsThere) {
    static const QRegularExpression inBackticks(QStringLiteral("`([^`\\n]+)`"));
    std::vector<std::string> documents{"README.md"};
    for (const auto& entry : fs::directory_iterator(kRoot / "docs"))
        if (entry.path().extension() == ".md")
            documents.push_back("docs/" + entry.path().filename().string());
    int paths = 0;
    int names = 0;
    for (const std::string& document : documents) {
        auto match = inBackticks.globalMatch(QString::fromStdString(textOf(kRoot / document)));
        while (match.hasNext()) {
            const std::string named = match.next().captured(1).toStdString();
            if (isOfALanguage(named)) continue;
            if (isPath(named) || isFileName(named)) {
                ++paths;
                EXPECT_TRUE(isThere(named)) << document << ": " << named;
            } else if (isIdentifier(named)) {
                ++names;
                EXPECT_TRUE(isNameOfTheSources(named)) << document << ": " << named;
            }
        }
    }
    EXPECT_GT(paths, 100);
    EXPECT_GT(names, 50);
    for (const char* moved :
         {"src/edit/PayloadFetch.cpp", "edit/PayloadFetch", "tools/none/*.cpp", "None.cpp"})
        EXPECT_TRUE((isPath(moved) || isFileName(moved)) && !isThere(moved)) << moved;
}
