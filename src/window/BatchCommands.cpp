#include "window/BatchCommands.h"

#include "batch/BatchDispatch.h"
#include "payload/ThumbnailAddDialog.h"
#include "window/OperationEnding.h"
#include "window/SelectionGathering.h"
#include "window/WindowFeedback.h"

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
        {parts_.context, parts_.language, parts_.runner, parts_.feedback},
        [this](const batch::BatchOperation& operation, const batch::BatchOptions& options) {
            return openBatchDialog(operation, options);
        });
    const bool isDone = dispatcher.BatchDispatch(id, files);
    if (isDone) ending_.showWhatChanged();
    if (!isDone)
        ending_.showReportBeginning();
    else if (batch::findBatchOperation(id)->reportFollows)
        ending_.ShowBatchReport();
}

int BatchCommands::openBatchDialog(const batch::BatchOperation& operation,
                                   const batch::BatchOptions& options) {
    if (operation.id == app::command::kEmbedThumbnail)
        return payload::ThumbnailAddDialog(parts_.operations, options.files, &parts_.window).run();
    return 0;
}

}  // namespace window
