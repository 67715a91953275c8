#include "exiftool/ReadCommands.h"

#include "app/SpokenText.h"
#include "app/TextNumbers.h"
#include "platform/FileAccess.h"
#include "platform/Text.h"

#include <array>

namespace exiftool {

namespace fs = std::filesystem;

namespace {

constexpr const char* kBatchExtension = ".bat";
constexpr std::size_t kLongestFileName = 255;
/// The reader of one value keeps one byte of its buffer for a closing zero.
constexpr std::size_t kLongestValue = 255;
const QString kReady = QStringLiteral("Ready");

/// The batch file carries the base name of the file that is read; a base name that leaves no room for the
/// extension comes out empty.
std::string batchFileName(const fs::path& file) {
    std::string base = file.filename().native();
    base.resize(std::min(base.rfind('.'), base.size()));
    if (base.size() + std::string_view(kBatchExtension).size() > kLongestFileName) base.clear();
    return base + kBatchExtension;
}

class Waiting {
 public:
    explicit Waiting(ReadFeedback& feedback) : feedback_(feedback) { feedback_.beginWait(); }
    ~Waiting() { feedback_.endWait(); }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

 private:
    ReadFeedback& feedback_;
};

QString readingText(const fs::path& file) {
    return platform::wide(app::spokenText(app::text::kReadingFile, {platform::display(file)}));
}

}  // namespace

ReadCommands::ReadCommands(const app::AppContext& context, ToolRunner& runner, ReadFeedback& feedback)
    : context_(context), runner_(runner), feedback_(feedback) {}

int ReadCommands::runNamedAfter(const fs::path& file, const platform::CommandText& command) {
    if (runner_.runBatchFile(context_.tempPath / batchFileName(file), command) == 1) return 1;
    feedback_.showStatus(kReady);
    return 0;
}

int ReadCommands::ReadForPanel(const fs::path& file, const fs::path& output, bool showStatus) {
    if (file.empty()) return 0;
    const Waiting waiting(feedback_);
    if (showStatus) feedback_.showStatus(readingText(file));
    return runNamedAfter(file, panelReadCommand(context_, form(), file, output));
}

int ReadCommands::ReadGroupAll(const fs::path& file, const fs::path& output, std::string_view groupName) {
    if (file.empty()) return 0;
    return runNamedAfter(file, groupAllCommand(context_, form(), file, output, groupName));
}

int ReadCommands::ReadCategory(const fs::path& file, const fs::path& output, int categoryId) {
    if (file.empty()) return 0;
    const Waiting waiting(feedback_);
    feedback_.showStatus(readingText(file));
    return runNamedAfter(file, categoryCommand(context_, form(), file, output, categoryId));
}

QString ReadCommands::ReadOneValue(const fs::path& file, std::string_view tagName, bool numeric) {
    if (file.empty()) return {};
    // The designed name has no separator, and the answer lies beside the temp folder, where it is nobody's.
    fs::path output = context_.tempPath;
    if (form() == app::CommandForm::Designed)
        output += "Metadata.txt";
    else
        output /= "Metadata.txt";
    if (runner_.RunToolLine(oneValueCommand(context_, form(), file, output, tagName, numeric)) == 0)
        return {};
    std::string line;
    platform::forEachLineOfOwnFile(output, [&](std::string_view first) {
        line = first;
        return false;
    });
    const std::size_t colon = line.find(':');
    if (colon == std::string::npos || colon + 2 > line.size()) return {};
    std::string value = line.substr(colon + 2, kLongestValue);
    const std::size_t end = value.find('\r');
    // The designed reader takes only a line that ends in CR, and here none does.
    if (end == std::string::npos && form() == app::CommandForm::Designed) return {};
    value.resize(std::min(end, value.size()));
    return platform::wide(value);
}

int ReadCommands::ReadGpsPosition(const fs::path& file, const fs::path& output) {
    if (file.empty()) return 0;
    return runner_.runBatchFile(context_.tempPath / "MetaData.bat",
                                gpsPositionCommand(context_, file, output));
}

int ReadCommands::DumpHtml(const fs::path& file, const fs::path& output) {
    if (file.empty()) return 0;
    const Waiting waiting(feedback_);
    return runner_.RunToolLine(dumpHtmlCommand(context_, file, output));
}

int ReadCommands::DumpVerbose(const fs::path& file, const fs::path& output) {
    if (file.empty()) return 0;
    return runner_.RunToolLine(dumpVerboseCommand(context_, file, output));
}

int ReadCommands::ExportValues(const platform::CommandText& fileArgument, const platform::CommandText& output,
                               const platform::CommandText& extraArguments) {
    return runner_.runBatchFile(context_.tempPath / "Metadata.bat",
                                exportValuesCommand(context_, form(), fileArgument, output, extraArguments));
}

}  // namespace exiftool
