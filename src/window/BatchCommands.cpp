#include "window/BatchCommands.h"

#include "batch/BatchDispatch.h"
#include "payload/ThumbnailAddDialog.h"
#include "window/OperationEnding.h"
#include "window/SelectionGathering.h"

namespace window {

namespace fs = std::filesystem;

std::span<const CommandRow<BatchCommands>> BatchCommands::rows() {
    using namespace app::command;
    static constexpr CommandRow<BatchCommands> kRows[] = {
        {kFileDateFromPhoto, kFileDateFromPhoto, &BatchCommands::runBatch},
        {kRenameByShutterCount, kRenameByDateAndModel, &BatchCommands::runBatch},
        {kEmbedThumbnail, kEmbedThumbnail, &BatchCommands::runBatch},
        {kRemoveThumbnail, kRemoveThumbnail, &BatchCommands::runBatch},
    };
    return kRows;
}

void BatchCommands::runBatch(app::CommandId id) {
    const std::vector<fs::path> files = gathering_.GatherSelection();
    if (files.empty()) return;
    batch::BatchDispatcher dispatcher(
        {parts_.language, parts_.runner},
        [this](const batch::BatchOperation& operation, const batch::BatchOptions& options) {
            return openBatchDialog(operation, options);
        });
    std::optional<jobs::Job> job = dispatcher.BatchDispatch(id, files);
    if (!job) {
        ending_.showReportBeginning();
        return;
    }
    OperationEnding::Tell tell;
    if (!batch::findBatchOperation(id)->reportFollows) tell = [](const jobs::JobResult&) {};
    ending_.carryOut(std::move(*job), tell);
}

std::optional<jobs::Job> BatchCommands::openBatchDialog(const batch::BatchOperation& operation,
                                                        const batch::BatchOptions& options) {
    if (operation.id != app::command::kEmbedThumbnail) return std::nullopt;
    payload::ThumbnailAddDialog dialog(parts_.operations, options.files, &parts_.window);
    if (dialog.run() == 0) return std::nullopt;
    return dialog.takeJob();
}

}  // namespace window
