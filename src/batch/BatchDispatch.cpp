#include "batch/BatchDispatch.h"

#include "batch/BatchLines.h"
#include "exiftool/ReportFile.h"

#include <algorithm>
#include <array>

namespace batch {

namespace fs = std::filesystem;

namespace {

/// One file of an operation; the files up to it belong to the designed form of the thumbnails.
struct FileInTurn {
    const BatchParts& parts;
    const fs::path& file;
    const std::vector<fs::path>& filesSoFar;
};

void setFileDate(const FileInTurn& turn) {
    turn.parts.runner.copyForSafety(turn.file);
    turn.parts.runner.runHiddenOnFile(turn.file, fileDateLine(turn.parts.context, turn.file));
}

void renameByShutterCount(const FileInTurn& turn) {
    turn.parts.runner.runHiddenOnFile(turn.file, shutterCountLine(turn.parts.context, turn.file));
}

void renameByMaker(const FileInTurn& turn) {
    turn.parts.runner.RunOnFile(turn.file, dateAndCameraArguments(turn.parts.context, CameraPart::Make));
}

void renameByModel(const FileInTurn& turn) {
    turn.parts.runner.RunOnFile(turn.file, dateAndCameraArguments(turn.parts.context, CameraPart::Model));
}

void removeThumbnail(const FileInTurn& turn) {
    turn.parts.runner.RunOnFile(turn.file, thumbnailArguments(turn.parts.context, turn.filesSoFar));
}

struct FileOperation {
    app::CommandId id;
    void (*run)(const FileInTurn& turn);
};

constexpr auto kFileOperations = std::to_array<FileOperation>({
    {157, setFileDate},
    {172, renameByShutterCount},
    {173, renameByMaker},
    {174, renameByModel},
    {185, removeThumbnail},
});

void tellFilesLeft(const app::AppContext& context, std::size_t left) {
    if (left == 0) return;
    exiftool::appendToReport(context, "Warning: Stopped - " + std::to_string(left) +
                                          (left == 1 ? " file was" : " files were") + " not begun");
}

}  // namespace

BatchDispatcher::BatchDispatcher(const BatchParts& parts, OpenBatchDialog openDialog)
    : parts_(parts), openDialog_(std::move(openDialog)) {}

bool BatchDispatcher::BatchDispatch(app::CommandId id, const std::vector<fs::path>& files) {
    options_ = {};
    const BatchOperation* const operation = findBatchOperation(id);
    if (operation == nullptr || operation->isOfWindow || !app::isBuilt(id) || files.empty()) return false;
    options_.command = id;
    options_.files = files;
    if (*operation->dialog == '\0') return runWithoutDialog(*operation);
    if (operation->listsFiles) options_.fileList = parts_.runner.WriteFileList(files);
    return openDialog_ && openDialog_(*operation, options_) != 0;
}

bool BatchDispatcher::runWithoutDialog(const BatchOperation& operation) {
    const auto* const found = std::ranges::find(kFileOperations, operation.id, &FileOperation::id);
    if (found == kFileOperations.end()) return false;
    const std::vector<fs::path>& files = options_.files;
    const jobs::FileProgressScope scope(parts_.progress, parts_.language.text(operation.titleNumber),
                                        files.size());
    std::vector<fs::path> filesSoFar;
    for (const fs::path& file : files) {
        // The window tells itself how many are left when it closes.
        if (!parts_.progress.showFile(file, filesSoFar.size() + 1)) return true;
        filesSoFar.push_back(file);
        found->run({parts_, file, filesSoFar});
        // Who does not want to wait for one file has had enough of all.
        if (!parts_.runner.wasStopped()) continue;
        tellFilesLeft(parts_.context, files.size() - filesSoFar.size());
        break;
    }
    return true;
}

}  // namespace batch
