#include "browser/ShellBrowser.h"
#include "dialogs/Messages.h"
#include "exiftool/ReportFile.h"
#include "panel/MetadataPanel.h"
#include "taglists/CopyTagsDialog.h"
#include "taglists/DeleteAll.h"
#include "taglists/DialogRemoveTags.h"
#include "taglists/RemovalTexts.h"
#include "taglists/Removals.h"
#include "taglists/RemoveDialogTypes.h"
#include "window/MainWindow.h"
#include "window/MainWindowFeedback.h"

namespace window {

namespace fs = std::filesystem;

void MainWindow::endRemoval(bool hasRun) {
    if (!hasRun) return;
    showWhatChanged();
    ShowBatchReport();
}

void MainWindow::deleteAll(app::CommandId) {
    const std::vector<fs::path> files = GatherSelection();
    if (files.empty()) return;
    endRemoval(taglists::DeleteAll(editParts(), context_.settings.deleteAll, files, this).run() == 1);
}

void MainWindow::removeTags(app::CommandId) {
    const std::vector<fs::path> files = GatherSelection();
    if (files.empty()) return;
    endRemoval(taglists::DialogRemoveTags(editParts(), files, this).run() == 1);
}

void MainWindow::removeGroupTypes(app::CommandId) {
    const std::vector<fs::path> files = GatherSelection();
    if (files.empty()) return;
    endRemoval(taglists::RemoveDialogTypes(editParts(), files, this).run() == 1);
}

void MainWindow::copyTags(app::CommandId) {
    const std::vector<fs::path> files = GatherSelection();
    if (files.empty()) return;
    endRemoval(taglists::CopyTagsDialog(editParts(), files, this).run() == 1);
}

void MainWindow::removeFamily(app::CommandId id) {
    const std::vector<fs::path> files = GatherSelection();
    if (files.empty()) return;
    // The designed form removes without a question.
    const std::optional<QString> question = taglists::familyRemovalQuestion(language_, id, files.size());
    if (context_.settings.exifTool.correctedCommands && question &&
        dialogs::showMessage(this, {.text = *question,
                                    .icon = dialogs::MessageIcon::Exclamation,
                                    .buttons = QMessageBox::Yes | QMessageBox::No}) != QMessageBox::Yes)
        return;
    const QString title = taglists::familyRemovalTitle(language_, id, files.size());
    endRemoval(taglists::removeFamily(editParts(), title, id, files).begun > 0);
}

void MainWindow::removeTagsFromShownFile(app::CommandId) {
    const bool isShown = context_.settings.lists.showMetadataWindow && !metadataPanel_->file().empty();
    const fs::path file = isShown ? metadataPanel_->file() : selectedFile();
    if (file.empty()) return;
    const QModelIndex row = metadataPanel_->list().currentIndex();
    const QString group = isShown && row.isValid() ? metadataPanel_->model().row(row.row()).group : QString();
    static_cast<void>(exiftool::deleteReport(context_));
    endRemoval(taglists::DialogRemoveATag_FromOneFile(editParts(), file, group, this).run() == 1);
}

}  // namespace window
