#include "window/OperationEnding.h"

#include "app/TextNumbers.h"
#include "browser/ShellBrowser.h"
#include "jobs/JobTexts.h"
#include "jobs/QuietSuccessNotice.h"
#include "jobs/ReportDialog.h"
#include "jobs/ReportText.h"
#include "platform/Text.h"
#include "window/ReadingCommands.h"

#include <QItemSelectionModel>
#include <algorithm>
#include <utility>

namespace window {

namespace fs = std::filesystem;

void OperationEnding::ShowBatchReport() {
    const std::string untold = parts_.runner.takeUntold();
    const std::optional<jobs::ReportText> report = jobs::filterReport(parts_.context);
    if (!report && untold.empty()) {
        const QString done = parts_.language.text(app::text::kReportEmpty);
        if (successNotice_ == nullptr) successNotice_ = new jobs::QuietSuccessNotice(&parts_.window);
        successNotice_->Show(done);
        parts_.showStatus(done);
        return;
    }
    QString shown;
    if (report && report->isShort) {
        shown = parts_.language.formatted(jobs::text::kReportShortened,
                                          {platform::display(parts_.context.reportFile)});
        shown += QStringLiteral("\n\n");
    }
    const QString lineEnd = parts_.language.text(jobs::text::kLineShortened);
    shown += jobs::reportForDisplay((report ? report->bytes : std::string()) + untold, lineEnd);
    jobs::ReportDialog(parts_.language, shown, &parts_.window).run();
}

void OperationEnding::showReportBeginning() {
    const std::string beginning = jobs::reportBeginning(parts_.context);
    if (beginning.empty()) return;
    const QString lineEnd = parts_.language.text(jobs::text::kLineShortened);
    jobs::ReportDialog(parts_.language, jobs::reportForDisplay(beginning, lineEnd), &parts_.window).run();
}

void OperationEnding::showWhatChanged() {
    keepsStatus_ = true;
    selectedAgain_ = parts_.activeBrowser().GetSelectedFiles();
    parts_.activeBrowser().navigationController().Refresh();
    if (parts_.context.currentFile.empty() || !parts_.context.settings.lists.showMetadataWindow) return;
    std::error_code error;
    if (fs::is_regular_file(parts_.context.currentFile, error))
        reading_.refreshPanel(app::command::kRefreshPanel);
    else
        reading_.clearMetadata(app::command::kClearMetadata);
}

bool OperationEnding::listWasRead() {
    selectAgain();
    return std::exchange(keepsStatus_, false);
}

// Whoever has changed some files often wants to do something else with the same ones.
void OperationEnding::selectAgain() {
    std::vector<fs::path> wanted = std::exchange(selectedAgain_, {});
    if (wanted.empty()) return;
    std::ranges::sort(wanted);
    browser::ShellBrowser& list = parts_.activeBrowser();
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
