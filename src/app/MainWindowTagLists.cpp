#include "app/MainWindow.h"
#include "app/MainWindowFeedback.h"
#include "app/Messages.h"
#include "edit/DialogAddATag_ToOneFile.h"
#include "edit/DialogAddTagsMain.h"
#include "edit/DialogModifMain.h"
#include "edit/TagListTexts.h"
#include "exiftool/ReportFile.h"
#include "tags/MetadataPanel.h"

namespace app {

void MainWindow::modifyTags(CommandId id) {
    const std::vector<std::filesystem::path> files = GatherSelection();
    if (files.empty()) return;
    edit::DialogModifMain dialog(editParts(), id, files, this);
    if (dialog.run() != 0) tagsWereWritten(dialog.runs());
}

void MainWindow::addTags(CommandId id) {
    const std::vector<std::filesystem::path> files = GatherSelection();
    if (files.empty()) return;
    edit::DialogAddTagsMain dialog(editParts(), id, files, this);
    if (dialog.run() != 0) tagsWereWritten(dialog.runs());
}

void MainWindow::addTagsToShownFile(CommandId) {
    const QModelIndex row = metadataPanel_->list().currentIndex();
    if (metadataPanel_->file().empty() || !row.isValid()) {
        ShowMessage(this, {language_.text(edit::text::kNoGroupChosen), MessageIcon::Information});
        return;
    }
    // The panel is read again while the dialog may still look at the row.
    const QString group = metadataPanel_->model().row(row.row()).group;
    const std::filesystem::path file = metadataPanel_->file();
    static_cast<void>(exiftool::DeleteReport(context_));
    edit::DialogAddATag_ToOneFile dialog(editParts(), group, file, this);
    if (dialog.run() != 0) tagsWereWritten(dialog.runs());
}

void MainWindow::tagsWereWritten(const edit::FileRuns& runs) {
    if (runs.begun == 0) return;
    showWhatChanged();
    ShowBatchReport();
}

}  // namespace app
