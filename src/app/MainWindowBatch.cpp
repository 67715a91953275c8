#include "app/MainWindow.h"
#include "app/MainWindowFeedback.h"
#include "app/Messages.h"
#include "app/ProgressDialog.h"
#include "app/TextNumbers.h"
#include "batch/BatchDispatch.h"
#include "batch/BatchNoFilesSelectedDialog.h"
#include "batch/BatchTexts.h"
#include "batch/FolderScan.h"
#include "batch/QuietSuccessNotice.h"
#include "batch/ReportDialog.h"
#include "batch/ReportText.h"
#include "browser/ShellBrowser.h"
#include "exiftool/ReportFile.h"
#include "platform/Text.h"
#include "tags/MetadataPanel.h"

#include <QItemSelectionModel>
#include <algorithm>
#include <utility>

namespace app {

namespace fs = std::filesystem;

std::vector<fs::path> MainWindow::GatherSelection() {
    static_cast<void>(runner_.takeUntold());
    const std::string problem = exiftool::DeleteReport(context_);
    if (!problem.empty()) {
        ShowMessage(this,
                    {language_.formatted(batch::text::kReportNotWritable,
                                         {platform::display(context_.reportFile), platform::wide(problem)}),
                     MessageIcon::Stop});
        return {};
    }
    const std::vector<fs::path> selected = activeBrowser().GetSelectedFiles();
    if (selected.empty()) return gatherFolder();
    batch::SelectionFiles gathered = batch::FilesOfSelection(selected);
    for (const fs::path& refused : gathered.refused)
        exiftool::AppendToReport(context_, "Error: Not a regular file - " + platform::narrow(refused));
    return std::move(gathered.files);
}

std::vector<fs::path> MainWindow::gatherFolder() {
    batch::BatchNoFilesSelectedDialog dialog(language_, activeBrowser().currentFolder(), this);
    if (dialog.run() == 0) return {};
    const fs::path folder = dialog.folder();
    progress_.showReading(platform::display(folder));
    batch::FolderScan scan =
        batch::ScanFolder(folder, dialog.withSubfolders(), [this] { progress_.pulse(); });
    progress_.finish();
    for (const std::string& unreadable : scan.unreadable)
        exiftool::AppendToReport(context_, "Error: The folder cannot be read - " + unreadable);
    if (scan.files.empty()) {
        ShowStatus(language_.formatted(batch::text::kNoFilesInFolder, {platform::display(folder)}));
        if (!scan.unreadable.empty()) ShowBatchReport();
    }
    return std::move(scan.files);
}

void MainWindow::ShowBatchReport() {
    const std::string untold = runner_.takeUntold();
    const std::optional<batch::ReportText> report = batch::FilterReport(context_);
    if (!report && untold.empty()) {
        const QString done = language_.text(text::kReportEmpty);
        if (successNotice_ == nullptr) successNotice_ = new batch::QuietSuccessNotice(this);
        successNotice_->Show(done);
        ShowStatus(done);
        return;
    }
    QString shown;
    if (report && report->isShort) {
        shown = language_.formatted(batch::text::kReportShortened, {platform::display(context_.reportFile)});
        shown += QStringLiteral("\n\n");
    }
    const QString lineEnd = language_.text(batch::text::kLineShortened);
    shown += batch::ReportForDisplay((report ? report->bytes : std::string()) + untold, lineEnd);
    batch::ReportDialog(language_, shown, this).run();
}

void MainWindow::runBatch(CommandId id) {
    const std::vector<fs::path> files = GatherSelection();
    if (files.empty()) return;
    batch::BatchDispatcher dispatcher(
        {context_, language_, runner_, *feedback_},
        [this](const batch::BatchOperation& operation, const batch::BatchOptions& options) {
            return openBatchDialog(operation, options);
        });
    const bool isDone = dispatcher.BatchDispatch(id, files);
    if (isDone) showWhatChanged();
    if (!isDone)
        showReportBeginning();
    else if (batch::FindBatchOperation(id)->reportFollows)
        ShowBatchReport();
}

void MainWindow::showReportBeginning() {
    const std::string beginning = batch::ReportBeginning(context_);
    if (beginning.empty()) return;
    const QString lineEnd = language_.text(batch::text::kLineShortened);
    batch::ReportDialog(language_, batch::ReportForDisplay(beginning, lineEnd), this).run();
}

void MainWindow::showWhatChanged() {
    keepsStatus_ = true;
    selectedAgain_ = activeBrowser().GetSelectedFiles();
    refresh(command::kRefresh);
    if (context_.currentFile.empty() || !context_.settings.lists.showMetadataWindow) return;
    std::error_code error;
    if (fs::is_regular_file(context_.currentFile, error))
        refreshPanel(command::kRefreshPanel);
    else
        clearMetadata(command::kClearMetadata);
}

// Whoever has changed some files often wants to do something else with the same ones.
void MainWindow::selectAgain() {
    std::vector<fs::path> wanted = std::exchange(selectedAgain_, {});
    if (wanted.empty()) return;
    std::ranges::sort(wanted);
    browser::ShellBrowser& list = activeBrowser();
    const browser::FileListModel& model = list.model();
    QItemSelection selection;
    for (int row = 0; row < model.rowCount(); ++row) {
        if (!std::ranges::binary_search(wanted, list.GetItem(row).path)) continue;
        const QModelIndex index = model.index(row, 0);
        selection.select(index, index);
    }
    QItemSelectionModel& selected = *list.view().selectionModel();
    selected.select(selection, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    if (!selection.isEmpty())
        selected.setCurrentIndex(selection.first().topLeft(), QItemSelectionModel::NoUpdate);
}

}  // namespace app
