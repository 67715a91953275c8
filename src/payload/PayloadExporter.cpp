#include "payload/PayloadExporter.h"

#include "app/SpokenText.h"
#include "exiftool/ReportFile.h"
#include "payload/PayloadTexts.h"
#include "platform/FileCopy.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <memory>
#include <system_error>
#include <utility>

namespace payload {

namespace fs = std::filesystem;
using exiftool::Outcome;
using exiftool::OutcomeKind;

namespace {

constexpr const char* kFetched = "Payload.bin";

bool isThere(const fs::path& path) {
    std::error_code error;
    return fs::exists(fs::symlink_status(path, error));
}

fs::path freeTarget(const fs::path& wanted) {
    for (int number = 2;; ++number) {
        fs::path name = wanted.stem();
        name += " (" + std::to_string(number) + ")";
        name += wanted.extension();
        fs::path target = wanted.parent_path() / name;
        if (!isThere(target)) return target;
    }
}

void appendLine(std::string& text, const std::string& line) {
    if (line.empty()) return;
    if (!text.empty()) text += '\n';
    text += line;
}

/// Not written, and the tool has not said why.
Outcome notWritten(const jobs::JobWork& work, const fs::path& file, OutcomeKind kind,
                   const std::string& reason, const fs::path& target) {
    Outcome outcome{file, kind, "Error: " + reason + " - " + platform::narrow(target)};
    // Where the report cannot be written the outcome still tells it.
    static_cast<void>(exiftool::appendToReport(work.context, outcome.words));
    return outcome;
}

/// Has ExifTool write the data into the output, which are not yet at the target.
Outcome fetchInto(const fs::path& output, jobs::JobWork& work, const PayloadExport& payload,
                  const fs::path& file, const fs::path& target) {
    const std::uintmax_t reported = exiftool::reportSize(work.context);
    static_cast<void>(
        work.runner.RunToolLine(exportPayloadCommand(work.context, work.form, payload, file, output)));
    std::string said = exiftool::reportFrom(work.context, reported);
    while (said.ends_with('\n')) said.pop_back();
    const OutcomeKind end = work.runner.lastEnd();
    std::error_code error;
    const std::uintmax_t size = fs::file_size(output, error);
    const bool hasData = !error && size > 0;
    const bool hasEnded = end == OutcomeKind::Done || end == OutcomeKind::Failed;
    if (!hasEnded || (end == OutcomeKind::Failed && !hasData)) {
        if (said.empty()) return notWritten(work, file, end, work.runner.lastFault(), target);
        return {file, end, said};
    }
    if (hasData) {
        if (end == OutcomeKind::Failed) appendLine(said, work.runner.lastFault());
        return {file, said.empty() ? OutcomeKind::Done : OutcomeKind::Warned, said};
    }
    std::string words = app::spokenText(text::kHoldsNo, {platform::wide(std::string(payload.tag))});
    appendLine(words, said);
    return {file, OutcomeKind::Unchanged, words};
}

/// From what nobody minds to what must not be overlooked.
constexpr auto kByWeight =
    std::to_array({OutcomeKind::Done, OutcomeKind::Unchanged, OutcomeKind::Warned, OutcomeKind::Failed,
                   OutcomeKind::NotStarted, OutcomeKind::Killed, OutcomeKind::Stopped});

/// What became of the file, of which several kinds were written out.
void add(Outcome& whole, const Outcome& part, bool isFirst) {
    appendLine(whole.words, part.words);
    if (isFirst) {
        whole.kind = part.kind;
        return;
    }
    const auto weightOf = [](OutcomeKind kind) { return std::ranges::find(kByWeight, kind); };
    const bool isHeavier = weightOf(part.kind) > weightOf(whole.kind);
    const OutcomeKind lighter = isHeavier ? whole.kind : part.kind;
    if (isHeavier) whole.kind = part.kind;
    if (lighter == OutcomeKind::Done && whole.kind == OutcomeKind::Unchanged)
        whole.kind = OutcomeKind::Warned;
}

}  // namespace

PayloadExporter::PayloadExporter(fs::path folder, std::vector<fs::path> selection)
    : folder_(std::move(folder)), selection_(std::move(selection)) {
    for (const fs::path& file : selection_) {
        std::error_code error;
        const fs::path whole = fs::canonical(file, error);
        if (!error) selectedFiles_.insert(whole);
    }
}

fs::path PayloadExporter::firstExisting(std::span<const PayloadExport> payloads) const {
    for (const PayloadExport& payload : payloads) {
        for (const fs::path& file : selection_) {
            fs::path target = targetOf(payload, file);
            if (isThere(target) && isReplaceable(target)) return target;
        }
    }
    return {};
}

fs::path PayloadExporter::targetOf(const PayloadExport& payload, const fs::path& file) const {
    fs::path name = file.stem();
    name += payload.suffix;
    return folder_ / name;
}

Outcome PayloadExporter::Export(jobs::JobWork& work, const PayloadExport& payload, const fs::path& file) {
    return work.form == app::CommandForm::Corrected ? exportCorrected(work, payload, file)
                                                    : exportAsDesigned(work, payload, file);
}

Outcome PayloadExporter::exportAsDesigned(jobs::JobWork& work, const PayloadExport& payload,
                                          const fs::path& file) {
    const fs::path target = targetOf(payload, file);
    if (isOfSelection(target))
        return notWritten(work, file, OutcomeKind::Failed, app::spokenText(text::kTargetIsSelected), target);
    return fetchInto(target, work, payload, file, target);
}

Outcome PayloadExporter::exportCorrected(jobs::JobWork& work, const PayloadExport& payload,
                                         const fs::path& file) {
    const fs::path fetched = work.context.tempPath / kFetched;
    std::error_code error;
    fs::remove(fetched, error);
    fs::path target = targetOf(payload, file);
    Outcome outcome = fetchInto(fetched, work, payload, file, target);
    if (!exiftool::isWritten(outcome.kind)) return outcome;
    if (isThere(target) && !(replaceExisting_ && isReplaceable(target))) target = freeTarget(target);
    if (const int failure = platform::copyFile(fetched, target); failure != 0)
        return notWritten(work, file, OutcomeKind::Failed, std::system_category().message(failure), target);
    written_.insert(target);
    fs::remove(fetched, error);
    return outcome;
}

bool PayloadExporter::isReplaceable(const fs::path& target) const {
    return !written_.contains(target) && !isOfSelection(target);
}

bool PayloadExporter::isOfSelection(const fs::path& target) const {
    std::error_code error;
    const fs::path whole = fs::canonical(target, error);
    return !error && selectedFiles_.contains(whole);
}

jobs::Job exportPayloadsJob(const QString& title, PayloadExporter exporter,
                            const std::vector<PayloadExport>& payloads) {
    jobs::Job job{.title = title};
    job.changes = jobs::Changes::Nothing;
    if (payloads.empty()) return job;
    job.files = exporter.selection();
    // From one file to the next it remembers what it has written; nobody else has it.
    const auto shared = std::make_shared<PayloadExporter>(std::move(exporter));
    job.workOnFile = [shared, payloads](jobs::JobWork& work, const fs::path& file) {
        Outcome whole{file, OutcomeKind::NotBegun, {}};
        for (std::size_t at = 0; at < payloads.size(); ++at) {
            add(whole, shared->Export(work, payloads[at], file), at == 0);
            if (whole.kind == OutcomeKind::Stopped) break;
        }
        return whole;
    };
    return job;
}

}  // namespace payload
