#include "dialogs/Messages.h"
#include "exiftool/ReportFile.h"
#include "panel/MetadataPanel.h"
#include "taglists/DialogAddATag_ToOneFile.h"
#include "taglists/DialogAddTagsMain.h"
#include "taglists/DialogModifMain.h"
#include "taglists/TagListTexts.h"
#include "window/MainWindow.h"
#include "window/MainWindowFeedback.h"

namespace window {

void MainWindow::modifyTags(app::CommandId id) {
    const std::vector<std::filesystem::path> files = GatherSelection();
    if (files.empty()) return;
    taglists::DialogModifMain dialog(editParts(), id, files, this);
    if (dialog.run() != 0) tagsWereWritten(dialog.runs());
}

void MainWindow::addTags(app::CommandId id) {
    const std::vector<std::filesystem::path> files = GatherSelection();
    if (files.empty()) return;
    taglists::DialogAddTagsMain dialog(editParts(), id, files, this);
    if (dialog.run() != 0) tagsWereWritten(dialog.runs());
}

void MainWindow::addTagsToShownFile(app::CommandId) {
    const QModelIndex row = metadataPanel_->list().currentIndex();
    if (metadataPanel_->file().empty() || !row.isValid()) {
        dialogs::showMessage(
            this, {language_.text(taglists::text::kNoGroupChosen), dialogs::MessageIcon::Information});
        return;
    }
    // The panel is read again while the dialog may still look at the row.
    const QString group = metadataPanel_->model().row(row.row()).group;
    const std::filesystem::path file = metadataPanel_->file();
    static_cast<void>(exiftool::deleteReport(context_));
    taglists::DialogAddATag_ToOneFile dialog(editParts(), group, file, this);
    if (dialog.run() != 0) tagsWereWritten(dialog.runs());
}

void MainWindow::tagsWereWritten(const taglists::FileRuns& runs) {
    if (runs.begun == 0) return;
    showWhatChanged();
    ShowBatchReport();
}

}  // namespace window
