#include "batch/BatchDispatch.h"
#include "payload/ExportDialogICC.h"
#include "payload/ExportDialogThumbnail.h"
#include "payload/ThumbnailAddDialog.h"
#include "window/MainWindow.h"

#include <memory>

namespace window {

namespace fs = std::filesystem;

int MainWindow::openBatchDialog(const batch::BatchOperation& operation, const batch::BatchOptions& options) {
    if (operation.id == app::command::kEmbedThumbnail)
        return payload::ThumbnailAddDialog(editParts(), options.files, this).run();
    return 0;
}

void MainWindow::exportPayloads(app::CommandId id) {
    const std::vector<fs::path> files = GatherSelection();
    if (files.empty()) return;
    std::unique_ptr<payload::ExportDialogPayload> dialog;
    if (id == app::command::kExportThumbnail)
        dialog = std::make_unique<payload::ExportDialogThumbnail>(editParts(), files, this);
    else
        dialog = std::make_unique<payload::ExportDialogICC>(editParts(), files, this);
    if (dialog->run() == 0) return;
    refresh(app::command::kRefresh);  // the new files may stand in the folder that is shown
    ShowBatchReport();
}

}  // namespace window
