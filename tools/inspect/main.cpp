#include "exiftool/DocumentTags.h"
#include "inspect/PropertiesReport.h"
#include "inspect/RowsReport.h"
#include "inspect/TableReport.h"
#include "platform/OwnProcess.h"
#include "platform/ProgramSearch.h"
#include "properties/TagSource.h"
#include "window/SubjectCommands.h"

#include <QCoreApplication>

#include <filesystem>
#include <iostream>
#include <string_view>

namespace {

constexpr const char* kUsage =
    "usage: tagwright-inspect rows [--settings FILE.ini] FILE...\n"
    "       tagwright-inspect parse [--settings FILE.ini] TEXTFILE...\n"
    "       tagwright-inspect dictionary\n"
    "       tagwright-inspect catalogue\n"
    "       tagwright-inspect properties FILE...\n"
    "       tagwright-inspect property-catalogue\n"
    "       tagwright-inspect commands\n";

int usage() {
    std::cerr << kUsage;
    return 2;
}

int rows(inspect::RowsFrom from, std::vector<std::string_view> words,
         const std::filesystem::path& installPath) {
    inspect::RowsRequest request;
    request.from = from;
    request.installPath = installPath;
    if (!words.empty() && words[0] == "--settings") {
        if (words.size() < 2) return usage();
        request.settingsFile = std::filesystem::path(words[1]);
        words.erase(words.begin(), words.begin() + 2);
    }
    if (!words.empty() && words[0] == "--") words.erase(words.begin());
    if (words.empty()) return usage();
    request.files.assign(words.begin(), words.end());
    return inspect::reportRows(request, std::cout, std::cerr) ? 0 : 1;
}

int printProperties(std::vector<std::string_view> words) {
    if (!words.empty() && words[0] == "--") words.erase(words.begin());
    if (words.empty()) return usage();
    const std::vector<std::filesystem::path> files(words.begin(), words.end());
    properties::setTagSource(std::make_shared<exiftool::DocumentTags>(platform::findProgram("exiftool")));
    return inspect::reportProperties(files, std::cout, std::cerr) ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    const QCoreApplication application(argc, argv);
    if (argc < 2) return usage();
    const std::filesystem::path installPath = platform::ownExecutable().parent_path();
    const std::string_view verb = argv[1];
    std::vector<std::string_view> words(argv + 2, argv + argc);
    if (verb == "rows") return rows(inspect::RowsFrom::MediaFile, std::move(words), installPath);
    if (verb == "parse") return rows(inspect::RowsFrom::SavedOutput, std::move(words), installPath);
    if (verb == "properties") return printProperties(std::move(words));
    if (verb == "property-catalogue" && words.empty())
        inspect::reportPropertyCatalogue(std::cout);
    else if (verb == "dictionary" && words.empty())
        inspect::reportDictionary(std::cout);
    else if (verb == "commands" && words.empty())
        inspect::reportCommands(std::cout, window::SubjectCommands::isBuilt);
    else if (verb == "catalogue" && words.empty())
        inspect::reportCatalogue(std::cout);
    else
        return usage();
    std::cout.flush();
    return std::cout.good() ? 0 : 1;
}
