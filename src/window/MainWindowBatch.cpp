#include "app/TextNumbers.h"
#include "batch/BatchDispatch.h"
#include "browser/ShellBrowser.h"
#include "dialogs/Messages.h"
#include "dialogs/ProgressDialog.h"
#include "exiftool/ReportFile.h"
#include "jobs/BatchNoFilesSelectedDialog.h"
#include "jobs/FolderScan.h"
#include "jobs/JobTexts.h"
#include "jobs/QuietSuccessNotice.h"
#include "jobs/ReportDialog.h"
#include "jobs/ReportText.h"
#include "panel/MetadataPanel.h"
#include "platform/Text.h"
#include "window/MainWindow.h"
#include "window/MainWindowFeedback.h"

#include <QItemSelectionModel>
#include <algorithm>
#include <utility>

namespace window {

namespace fs = std::filesystem;

std::vector<fs::path> MainWindow::GatherSelection() {
    static_cast<void>(runner_.takeUntold());
    const std::string problem = exiftool::deleteReport(context_);
    if (!problem.empty()) {
        dialogs::showMessage(
            this, {language_.formatted(jobs::text::kReportNotWritable,
                                       {platform::display(context_.reportFile), platform::wide(problem)}),
                   dialogs::MessageIcon::Stop});
        return {};
    }
    const std::vector<fs::path> selected = activeBrowser().GetSelectedFiles();
    if (selected.empty()) return gatherFolder();
    jobs::SelectionFiles gathered = jobs::filesOfSelection(selected);
    for (const fs::path& refused : gathered.refused)
        exiftool::appendToReport(context_, "Error: Not a regular file - " + platform::narrow(refused));
    return std::move(gathered.files);
}

std::vector<fs::path> MainWindow::gatherFolder() {
    jobs::BatchNoFilesSelectedDialog dialog(language_, activeBrowser().currentFolder(), this);
    if (dialog.run() == 0) return {};
    const fs::path folder = dialog.folder();
    progress_.showReading(platform::display(folder));
    jobs::FolderScan scan = jobs::scanFolder(folder, dialog.withSubfolders(), [this] { progress_.pulse(); });
    progress_.finish();
    for (const std::string& unreadable : scan.unreadable)
        exiftool::appendToReport(context_, "Error: The folder cannot be read - " + unreadable);
    if (scan.files.empty()) {
        showStatus(language_.formatted(jobs::text::kNoFilesInFolder, {platform::display(folder)}));
        if (!scan.unreadable.empty()) ShowBatchReport();
    }
    return std::move(scan.files);
}

void MainWindow::ShowBatchReport() {
    const std::string untold = runner_.takeUntold();
    const std::optional<jobs::ReportText> report = jobs::filterReport(context_);
    if (!report && untold.empty()) {
        const QString done = language_.text(app::text::kReportEmpty);
        if (successNotice_ == nullptr) successNotice_ = new jobs::QuietSuccessNotice(this);
        successNotice_->Show(done);
        showStatus(done);
        return;
    }
    QString shown;
    if (report && report->isShort) {
        shown = language_.formatted(jobs::text::kReportShortened, {platform::display(context_.reportFile)});
        shown += QStringLiteral("\n\n");
    }
    const QString lineEnd = language_.text(jobs::text::kLineShortened);
    shown += jobs::reportForDisplay((report ? report->bytes : std::string()) + untold, lineEnd);
    jobs::ReportDialog(language_, shown, this).run();
}

void MainWindow::runBatch(app::CommandId id) {
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
    else if (batch::findBatchOperation(id)->reportFollows)
        ShowBatchReport();
}

void MainWindow::showReportBeginning() {
    const std::string beginning = jobs::reportBeginning(context_);
    if (beginning.empty()) return;
    const QString lineEnd = language_.text(jobs::text::kLineShortened);
    jobs::ReportDialog(language_, jobs::reportForDisplay(beginning, lineEnd), this).run();
}

void MainWindow::showWhatChanged() {
    keepsStatus_ = true;
    selectedAgain_ = activeBrowser().GetSelectedFiles();
    refresh(app::command::kRefresh);
    if (context_.currentFile.empty() || !context_.settings.lists.showMetadataWindow) return;
    std::error_code error;
    if (fs::is_regular_file(context_.currentFile, error))
        refreshPanel(app::command::kRefreshPanel);
    else
        clearMetadata(app::command::kClearMetadata);
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

}  // namespace window
