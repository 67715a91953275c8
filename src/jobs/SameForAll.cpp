#include "jobs/SameForAll.h"

#include "app/SpokenText.h"
#include "exiftool/LineParts.h"
#include "exiftool/ReportFile.h"
#include "exiftool/WriteSessions.h"
#include "jobs/JobTexts.h"
#include "platform/CommandInterpreter.h"
#include "platform/Text.h"

namespace jobs {

namespace fs = std::filesystem;
using exiftool::Outcome;
using exiftool::Outcomes;

namespace {

/// The arguments without tool and file; nothing for a line that is not made as they all are.
std::optional<std::vector<std::string>> argumentsOf(const platform::CommandText& line, const fs::path& file) {
    std::vector<platform::ParsedCommand> parsed =
        platform::parseCommands(line, platform::TypedPieces::StayInside);
    if (parsed.size() != 1 || !parsed.front().refusal.empty() || parsed.front().output) return std::nullopt;
    std::vector<std::string> words = std::move(parsed.front().words);
    if (words.size() < 2 || words.back() != exiftool::fileWord(file)) return std::nullopt;
    words.pop_back();
    words.erase(words.begin());
    return words;
}

std::string copyForSafety(const app::AppContext& context, const exiftool::SafetyCopies& copies,
                          const fs::path& file) {
    const QString failure = exiftool::MakeSafetyCopy(file, context.cachePath, copies);
    return failure.isEmpty() ? std::string()
                             : "Warning: " + failure.toStdString() + " - " + platform::narrow(file);
}

}  // namespace

Outcomes writeSameToAll(const ComposeLine& compose, JobWork& work, const std::vector<fs::path>& files) {
    const auto arguments = argumentsOf(compose(work.context, work.form, files.front()), files.front());
    if (!arguments) {
        Outcomes refused;
        for (const fs::path& file : files)
            refused.push_back({file, exiftool::OutcomeKind::NotStarted, app::spokenText(text::kNoCommand)});
        return refused;
    }
    exiftool::WriteRequest request;
    request.exifTool = work.context.exifToolPath;
    request.arguments = *arguments;
    request.files = files;
    const exiftool::SafetyCopies copies = work.runner.safetyCopies();
    if (copies.SafetyCopyEnabled != 0)
        request.beforeFile = [&](const fs::path& file) { return copyForSafety(work.context, copies, file); };
    // The day's report holds what was said as soon as it was, as if a line had led it there.
    const auto fileEnded = [&work](const Outcome& outcome) {
        if (!outcome.words.empty()) static_cast<void>(exiftool::appendToReport(work.context, outcome.words));
        work.fileEnded(outcome);
    };
    return exiftool::writeFiles(request, {work.stop, work.cut}, {work.fileBegun, fileEnded});
}

}  // namespace jobs
