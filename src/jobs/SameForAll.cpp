#include "jobs/SameForAll.h"

#include "exiftool/LineParts.h"
#include "exiftool/OutcomeJudge.h"
#include "exiftool/ReportFile.h"
#include "exiftool/WriteSessions.h"
#include "platform/CommandInterpreter.h"
#include "platform/Text.h"

#include <algorithm>
#include <iterator>
#include <system_error>
#include <utility>

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

exiftool::Prepared copyForSafety(const JobWork& work, const exiftool::SafetyCopies& copies,
                                 const fs::path& file) {
    const QString failure = exiftool::MakeSafetyCopy(file, work.context.cachePath, copies);
    if (failure.isEmpty()) return {};
    if (!work.runner.mayBeWrittenWithoutCopy(file, failure))
        return {.instead = exiftool::withoutCopy(file, failure)};
    return {.words = "Warning: " + failure.toStdString() + " - " + platform::narrow(file)};
}

bool readsOneOf(const std::vector<fs::path>& sources, const std::vector<fs::path>& files) {
    return std::ranges::any_of(sources, [&](const fs::path& source) {
        return std::ranges::any_of(files, [&](const fs::path& file) {
            std::error_code error;
            return fs::equivalent(source, file, error);
        });
    });
}

/// What the lines of all files come to.
struct Shared {
    std::vector<std::string> arguments;
    std::vector<fs::path> files;
    Outcomes passedOver;
};

/// Nothing where a line is not as the others.
std::optional<Shared> sharedOf(const Job& job, const std::vector<fs::path>& files, const JobWork& work) {
    Shared shared;
    for (const fs::path& file : files) {
        if (work.stop.stop_requested()) break;
        Composed line = job.lineOf(work.context, work.form, file);
        if (line.instead) {
            shared.passedOver.push_back({file, *line.instead, std::move(line.words)});
            continue;
        }
        std::optional<std::vector<std::string>> arguments = argumentsOf(line.text, file);
        if (!arguments || (!shared.files.empty() && *arguments != shared.arguments)) return std::nullopt;
        shared.arguments = std::move(*arguments);
        shared.files.push_back(file);
    }
    return shared;
}

/// The day's report holds what was said as soon as it was, as if a line had led it there.
void report(const app::AppContext& context, const Outcome& outcome) {
    // Where the report cannot be written the outcome still tells it.
    if (!outcome.words.empty()) static_cast<void>(exiftool::appendToReport(context, outcome.words));
}

}  // namespace

std::optional<Outcomes> writeSameToAll(const Job& job, const std::vector<fs::path>& files, JobWork& work) {
    if (readsOneOf(job.sources, files)) return std::nullopt;
    std::optional<Shared> shared = sharedOf(job, files, work);
    if (!shared) return std::nullopt;
    for (const Outcome& outcome : shared->passedOver) {
        work.fileBegun(outcome.file);
        report(work.context, outcome);
        work.fileEnded(outcome);
    }
    exiftool::WriteRequest request;
    request.exifTool = work.context.exifToolPath;
    request.tempFolder = work.context.tempPath;
    request.arguments = std::move(shared->arguments);
    request.files = std::move(shared->files);
    const exiftool::SafetyCopies copies = work.runner.safetyCopies();
    if (copies.SafetyCopyEnabled != 0)
        request.beforeFile = [&](const fs::path& file) { return copyForSafety(work, copies, file); };
    const auto fileEnded = [&work](const Outcome& outcome) {
        report(work.context, outcome);
        work.fileEnded(outcome);
    };
    Outcomes outcomes = exiftool::writeFiles(request, {work.stop, work.cut}, {work.fileBegun, fileEnded});
    std::ranges::move(shared->passedOver, std::back_inserter(outcomes));
    return outcomes;
}

}  // namespace jobs
