#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QRegularExpression>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>

// Static libraries alone keep no folder from including another one's headers; this test does.

namespace fs = std::filesystem;

namespace {

struct Layer {
    std::set<std::string> coreMayUse;  ///< folders beside its own
    std::set<std::string> uiMayUse;    ///< the same for its sources with widgets
};

const std::map<std::string, Layer>& layers() {
    static const std::set<std::string> tools = {"platform", "app", "properties", "tags", "exiftool"};
    static const auto with = [](std::set<std::string> folders, const std::set<std::string>& more) {
        folders.insert(more.begin(), more.end());
        return folders;
    };
    static const std::set<std::string> core = with(tools, {"jobs"});
    static const std::set<std::string> ui = with(core, {"controls", "dialogs"});
    static const std::map<std::string, Layer> table = {
        {"platform", {{}, {}}},
        {"controls", {{}, {}}},
        {"app", {{"platform"}, {}}},
        {"properties", {{"platform"}, {}}},
        {"tags", {{"platform", "app", "properties"}, {}}},
        {"exiftool", {{"platform", "app", "properties", "tags"}, {}}},
        {"dialogs", {{}, {"platform", "app", "controls"}}},
        {"jobs", {tools, with(tools, {"controls", "dialogs"})}},
        {"panel", {{}, with(tools, {"controls", "dialogs"})}},
        // Side by side: none of these knows another.
        {"edit", {core, ui}},
        {"taglists", {core, ui}},
        {"payload", {core, ui}},
        {"batch", {core, ui}},
        {"browser", {tools, with(tools, {"controls", "dialogs"})}},
    };
    return table;
}

struct Source {
    fs::path path;
    std::string folder;
    std::vector<std::string> ownIncludes;  ///< "tags/TagDictionary.h"
    std::set<std::string> libraryIncludes;
};

std::vector<Source> sources() {
    static const QRegularExpression include(R"(^\s*#include\s+([<"])([^>"]+)[>"])");
    std::vector<Source> all;
    for (const auto& [folder, layer] : layers()) {
        for (const auto& entry : fs::directory_iterator(fs::path(TAGWRIGHT_SOURCE_DIR) / "src" / folder)) {
            if (entry.path().extension() != ".cpp" && entry.path().extension() != ".h") continue;
            Source source{entry.path(), folder, {}, {}};
            std::ifstream stream(entry.path());
            for (std::string line; std::getline(stream, line);) {
                const auto match = include.match(QString::fromStdString(line));
                if (!match.hasMatch()) continue;
                const std::string name = match.captured(2).toStdString();
                if (match.captured(1) == "\"")
                    source.ownIncludes.push_back(name);
                else
                    source.libraryIncludes.insert(name);
            }
            all.push_back(std::move(source));
        }
    }
    return all;
}

/// Whole files of the program and of its tools, by their path below the source folder.
std::map<std::string, std::string> programText() {
    std::map<std::string, std::string> texts;
    const fs::path root(TAGWRIGHT_SOURCE_DIR);
    for (const char* folder : {"src", "tools"}) {
        for (const auto& entry : fs::recursive_directory_iterator(root / folder)) {
            if (entry.path().extension() != ".cpp" && entry.path().extension() != ".h") continue;
            std::ifstream stream(entry.path());
            texts[entry.path().lexically_relative(root).generic_string()] =
                std::string(std::istreambuf_iterator<char>(stream), {});
        }
    }
    return texts;
}

/// Where a second system gets files of its own. The yardsticks among the benchmarks call the system
/// themselves, because they must carry nothing of ours.
bool maySpeakWithTheSystem(const std::string& file) {
    return file.ends_with("_posix.cpp") &&
           (file.starts_with("src/platform/") || file.starts_with("tools/bench/"));
}

/// Standard C++ and Qt name their headers without an ending; what ends in .h belongs to a library of the
/// list, or to the system.
bool isSystemHeader(const std::string& name) {
    static const std::set<std::string> libraries = {"MediaInfo", "benchmark", "taglib"};
    if (name == "csignal" || name == "cxxabi") return true;
    return name.ends_with(".h") && !libraries.contains(name.substr(0, name.find('/')));
}

std::vector<std::string> matchesIn(const std::string& text, const QRegularExpression& pattern) {
    std::vector<std::string> found;
    auto matches = pattern.globalMatch(QString::fromStdString(text));
    while (matches.hasNext()) found.push_back(matches.next().captured(1).toStdString());
    return found;
}

/// The sources that a folder's CMake file gives to a library without widgets.
std::set<std::string> coreSources(const std::string& folder) {
    std::ifstream stream(fs::path(TAGWRIGHT_SOURCE_DIR) / "src" / folder / "CMakeLists.txt");
    std::set<std::string> names;
    bool inCore = false;
    for (std::string line; std::getline(stream, line);) {
        if (line.starts_with("tagwright_core(")) inCore = true;
        if (line.starts_with(")")) inCore = false;
        std::istringstream words(line);
        for (std::string word; inCore && words >> word;)
            if (word.ends_with(".cpp")) names.insert(fs::path(word).stem().string());
    }
    return names;
}

/// Those of Qt's headers that stand for widgets, told by where Qt itself keeps them.
bool isWidgetHeader(const std::string& name) {
    if (!name.starts_with("Q") || name.find('/') != std::string::npos) return name.starts_with("QtWidgets");
    for (const char* root :
         {"/usr/include/x86_64-linux-gnu/qt6", "/usr/include/qt6", "/usr/include/aarch64-linux-gnu/qt6"})
        if (fs::exists(fs::path(root) / "QtWidgets" / name)) return true;
    return false;
}

}  // namespace

TEST(Layers, NoFolderUsesOneThatMayUseIt) {
    const std::vector<Source> all = sources();
    ASSERT_GT(all.size(), 50U);
    std::map<std::string, std::set<std::string>> cores;
    for (const auto& [folder, layer] : layers()) cores[folder] = coreSources(folder);
    for (const Source& source : all) {
        const bool isCore = cores[source.folder].contains(source.path.stem().string());
        const Layer& layer = layers().at(source.folder);
        const std::set<std::string>& allowed = isCore ? layer.coreMayUse : layer.uiMayUse;
        for (const std::string& include : source.ownIncludes) {
            const std::string folder = include.substr(0, include.find('/'));
            // A header without a source of its own may serve both; it is held to what its folder may use at
            // all.
            const bool permitted =
                folder == source.folder || allowed.contains(folder) ||
                (source.path.extension() == ".h" && !isCore && layer.coreMayUse.contains(folder));
            EXPECT_TRUE(permitted) << source.path << " includes " << include;
        }
    }
}

TEST(Layers, ALibraryWithoutWidgetsIncludesNone) {
    std::size_t looked = 0;
    for (const auto& [folder, layer] : layers()) {
        const std::set<std::string> core = coreSources(folder);
        for (const Source& source : sources()) {
            if (source.folder != folder || !core.contains(source.path.stem().string())) continue;
            ++looked;
            for (const std::string& include : source.libraryIncludes)
                EXPECT_FALSE(isWidgetHeader(include)) << source.path << " includes " << include;
        }
    }
    EXPECT_GT(looked, 40U);
}

TEST(Layers, OnlyThePlatformsSystemFilesSpeakWithTheSystem) {
    static const QRegularExpression include(R"(#\s*include\s+<([^>]+)>)");
    static const QRegularExpression call(R"((?:^|[^\w>~])(::[a-z_]\w*)\s*\()");
    static const QRegularExpression name(
        R"(("[^"]*/(?:proc|sys|dev)/|\b(?:pid_t|mode_t|uid_t|ssize_t|struct statx?)\b))");
    std::size_t systemHeaders = 0;
    for (const auto& [file, text] : programText()) {
        const bool isSystemFile = maySpeakWithTheSystem(file);
        for (const std::string& header : matchesIn(text, include)) {
            if (isSystemHeader(header)) ++systemHeaders;
            EXPECT_TRUE(isSystemFile || !isSystemHeader(header)) << file << " includes " << header;
        }
        if (isSystemFile) continue;
        EXPECT_THAT(matchesIn(text, call), testing::IsEmpty()) << file << " calls the system";
        EXPECT_THAT(matchesIn(text, name), testing::IsEmpty()) << file << " names what only one system has";
    }
    EXPECT_GT(systemHeaders, 20U);
}

TEST(Layers, TheFormOfCommandsIsAskedForWhereAnOperationBegins) {
    static const QRegularExpression setting(R"(\b(correctedCommands)\b)");
    static const QRegularExpression question(R"(\b(commandFormOf)\()");
    // Five of them begin none: there the forms differ in what hands feel and eyes see.
    static const std::set<std::string> beginnings = {"src/batch/BatchDispatch.cpp",
                                                     "src/browser/ShellBrowser.cpp",
                                                     "src/panel/MetadataPanel.cpp",
                                                     "src/panel/MetadataPanelMenus.cpp",
                                                     "src/window/OperationCommands.cpp",
                                                     "src/window/ReadingCommands.cpp",
                                                     "src/edit/ValueDialog.cpp",
                                                     "src/exiftool/ReadCommands.h",
                                                     "src/exiftool/ToolRunner.h",
                                                     "src/jobs/JobRunner.cpp",
                                                     "src/jobs/OperationDialog.cpp",
                                                     "src/payload/DisplayHexaDialog.cpp",
                                                     "src/payload/ExportDialogPayload.cpp",
                                                     "src/taglists/TagValuesDialog.cpp",
                                                     "src/taglists/TickedTagsDialog.h",
                                                     "src/window/EditingCommands.h",
                                                     "src/window/ExportCommands.cpp",
                                                     "src/window/RemovalCommands.cpp",
                                                     "src/window/StatusBar.cpp"};
    std::size_t asked = 0;
    for (const auto& [file, text] : programText()) {
        if (!file.starts_with("src/") || file.starts_with("src/app/")) continue;
        EXPECT_THAT(matchesIn(text, setting), testing::IsEmpty()) << file << " asks the setting itself";
        const std::size_t questions = matchesIn(text, question).size();
        EXPECT_LE(questions, beginnings.contains(file) ? 1U : 0U) << file;
        asked += questions;
    }
    EXPECT_GT(asked, 5U);
}

TEST(Layers, NoTestWaitsForABareTime) {
    static const QRegularExpression sleep(
        R"(\b(sleep_for|sleep_until|usleep|nanosleep|QTest::qWait|QThread::m?sleep)\s*\()");
    for (const auto& entry : fs::recursive_directory_iterator(fs::path(TAGWRIGHT_SOURCE_DIR) / "tests")) {
        if (entry.path().extension() != ".cpp" || entry.path().filename() == "LayersTest.cpp") continue;
        std::ifstream stream(entry.path());
        std::stringstream text;
        text << stream.rdbuf();
        EXPECT_FALSE(sleep.match(QString::fromStdString(text.str())).hasMatch())
            << entry.path() << " sleeps instead of waiting for something";
    }
}
