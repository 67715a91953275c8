#include "app/MainWindow.h"
#include "app/MainWindowFeedback.h"
#include "app/Messages.h"
#include "browser/ShellBrowser.h"
#include "edit/CopyTagsDialog.h"
#include "edit/DeleteAll.h"
#include "edit/DialogRemoveTags.h"
#include "edit/RemovalTexts.h"
#include "edit/Removals.h"
#include "edit/RemoveDialogTypes.h"
#include "exiftool/ReportFile.h"
#include "tags/MetadataPanel.h"

namespace app {

namespace fs = std::filesystem;

void MainWindow::endRemoval(bool hasRun) {
    if (!hasRun) return;
    showWhatChanged();
    ShowBatchReport();
}

void MainWindow::deleteAll(CommandId) {
    const std::vector<fs::path> files = GatherSelection();
    if (files.empty()) return;
    endRemoval(edit::DeleteAll(editParts(), context_.settings.deleteAll, files, this).run() == 1);
}

void MainWindow::removeTags(CommandId) {
    const std::vector<fs::path> files = GatherSelection();
    if (files.empty()) return;
    endRemoval(edit::DialogRemoveTags(editParts(), files, this).run() == 1);
}

void MainWindow::removeGroupTypes(CommandId) {
    const std::vector<fs::path> files = GatherSelection();
    if (files.empty()) return;
    endRemoval(edit::RemoveDialogTypes(editParts(), files, this).run() == 1);
}

void MainWindow::copyTags(CommandId) {
    const std::vector<fs::path> files = GatherSelection();
    if (files.empty()) return;
    endRemoval(edit::CopyTagsDialog(editParts(), files, this).run() == 1);
}

void MainWindow::removeFamily(CommandId id) {
    const std::vector<fs::path> files = GatherSelection();
    if (files.empty()) return;
    // The designed form removes without a question.
    const std::optional<QString> question = edit::FamilyRemovalQuestion(language_, id, files.size());
    if (context_.settings.exifTool.correctedCommands && question &&
        ShowMessage(this, {.text = *question,
                           .icon = MessageIcon::Exclamation,
                           .buttons = QMessageBox::Yes | QMessageBox::No}) != QMessageBox::Yes)
        return;
    const QString title = edit::FamilyRemovalTitle(language_, id, files.size());
    endRemoval(edit::RemoveFamily(editParts(), title, id, files).begun > 0);
}

void MainWindow::removeTagsFromShownFile(CommandId) {
    const bool isShown = context_.settings.lists.showMetadataWindow && !metadataPanel_->file().empty();
    const fs::path file = isShown ? metadataPanel_->file() : selectedFile();
    if (file.empty()) return;
    const QModelIndex row = metadataPanel_->list().currentIndex();
    const QString group = isShown && row.isValid() ? metadataPanel_->model().row(row.row()).group : QString();
    static_cast<void>(exiftool::DeleteReport(context_));
    endRemoval(edit::DialogRemoveATag_FromOneFile(editParts(), file, group, this).run() == 1);
}

}  // namespace app
