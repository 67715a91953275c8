#include "app/MainWindow.h"
#include "batch/BatchDispatch.h"
#include "edit/ExportDialogICC.h"
#include "edit/ExportDialogThumbnail.h"
#include "edit/ThumbnailAddDialog.h"

#include <memory>

namespace app {

namespace fs = std::filesystem;

int MainWindow::openBatchDialog(const batch::BatchOperation& operation, const batch::BatchOptions& options) {
    if (operation.id == command::kEmbedThumbnail)
        return edit::ThumbnailAddDialog(editParts(), options.files, this).run();
    return 0;
}

void MainWindow::exportPayloads(CommandId id) {
    const std::vector<fs::path> files = GatherSelection();
    if (files.empty()) return;
    std::unique_ptr<edit::ExportDialogPayload> dialog;
    if (id == command::kExportThumbnail)
        dialog = std::make_unique<edit::ExportDialogThumbnail>(editParts(), files, this);
    else
        dialog = std::make_unique<edit::ExportDialogICC>(editParts(), files, this);
    if (dialog->run() == 0) return;
    refresh(command::kRefresh);  // the new files may stand in the folder that is shown
    ShowBatchReport();
}

}  // namespace app
