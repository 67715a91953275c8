#include "batch/BatchDispatch.h"

#include "batch/BatchLines.h"
#include "exiftool/LineParts.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace batch {

namespace fs = std::filesystem;
using exiftool::Outcome;
using platform::CommandText;

namespace {

/// One file of an operation, and all of them.
struct FileInTurn {
    jobs::JobWork& work;
    const fs::path& file;
    const std::vector<fs::path>& files;
};

Outcome setFileDate(const FileInTurn& turn) {
    turn.work.runner.copyForSafety(turn.file);
    return turn.work.runner.runHiddenOnFile(turn.file,
                                            fileDateLine(turn.work.context, turn.work.form, turn.file));
}

Outcome renameByShutterCount(const FileInTurn& turn) {
    return turn.work.runner.runHiddenOnFile(turn.file,
                                            shutterCountLine(turn.work.context, turn.work.form, turn.file));
}

Outcome renameByMaker(const FileInTurn& turn) {
    return turn.work.runner.RunOnFile(turn.file, dateAndCameraArguments(turn.work.form, CameraPart::Make));
}

Outcome renameByModel(const FileInTurn& turn) {
    return turn.work.runner.RunOnFile(turn.file, dateAndCameraArguments(turn.work.form, CameraPart::Model));
}

Outcome removeThumbnail(const FileInTurn& turn) {
    const auto found = std::ranges::find(turn.files, turn.file);
    const auto end = found == turn.files.end() ? found : std::next(found);
    return turn.work.runner.RunOnFile(
        turn.file, thumbnailArguments(turn.work.form, std::vector<fs::path>(turn.files.begin(), end)));
}

CommandText makerLine(const app::AppContext& context, app::CommandForm form, const fs::path& file) {
    return exiftool::lineOnFile(context, form, dateAndCameraArguments(form, CameraPart::Make), file);
}

CommandText modelLine(const app::AppContext& context, app::CommandForm form, const fs::path& file) {
    return exiftool::lineOnFile(context, form, dateAndCameraArguments(form, CameraPart::Model), file);
}

CommandText thumbnailLine(const app::AppContext& context, app::CommandForm form, const fs::path& file) {
    return exiftool::lineOnFile(context, form, thumbnailArguments(form, {file}), file);
}

struct FileOperation {
    app::CommandId id;
    Outcome (*run)(const FileInTurn& turn);
    /// What run hands to the tool, in the corrected form.
    CommandText (*line)(const app::AppContext& context, app::CommandForm form, const fs::path& file);
    bool makesSafetyCopies = true;
};

constexpr auto kFileOperations = std::to_array<FileOperation>({
    {157, setFileDate, fileDateLine},
    {172, renameByShutterCount, shutterCountLine, false},
    {173, renameByMaker, makerLine},
    {174, renameByModel, modelLine},
    {185, removeThumbnail, thumbnailLine},
});

}  // namespace

BatchDispatcher::BatchDispatcher(const BatchParts& parts, OpenBatchDialog openDialog)
    : parts_(parts), openDialog_(std::move(openDialog)) {}

std::optional<jobs::Job> BatchDispatcher::BatchDispatch(app::CommandId id,
                                                        const std::vector<fs::path>& files) {
    options_ = {};
    const BatchOperation* const operation = findBatchOperation(id);
    if (operation == nullptr || operation->isOfWindow || files.empty()) return {};
    options_.command = id;
    options_.files = files;
    if (*operation->dialog == '\0') return jobWithoutDialog(*operation);
    if (operation->listsFiles) options_.fileList = parts_.runner.WriteFileList(files);
    if (!openDialog_) return {};
    return openDialog_(*operation, options_);
}

std::optional<jobs::Job> BatchDispatcher::jobWithoutDialog(const BatchOperation& operation) const {
    const auto* const found = std::ranges::find(kFileOperations, operation.id, &FileOperation::id);
    if (found == kFileOperations.end()) return {};
    jobs::Job job{.title = parts_.language.text(operation.titleNumber), .files = options_.files};
    // All files, since the designed form of one line names those before its own as well.
    job.workOnFile = [run = found->run, files = options_.files](jobs::JobWork& work, const fs::path& file) {
        return run({work, file, files});
    };
    job.sameForAll = found->line;
    job.makesSafetyCopies = found->makesSafetyCopies;
    return job;
}

}  // namespace batch
