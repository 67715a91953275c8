#include "window/OperationEnding.h"

#include "app/TextNumbers.h"
#include "browser/ShellBrowser.h"
#include "dialogs/Messages.h"
#include "exiftool/ReportFile.h"
#include "jobs/JobRunner.h"
#include "jobs/JobTexts.h"
#include "jobs/OutcomeText.h"
#include "jobs/QuietSuccessNotice.h"
#include "jobs/ReportDialog.h"
#include "jobs/ReportText.h"
#include "platform/Text.h"
#include "window/ReadingCommands.h"

#include <QItemSelectionModel>
#include <QTimer>
#include <algorithm>
#include <utility>

namespace window {

namespace fs = std::filesystem;

bool OperationEnding::isReadyToBegin() {
    leftOut_.clear();
    if (parts_.jobs.isRunning()) {
        parts_.showStatus(parts_.language.formatted(jobs::text::kIsRunning, {parts_.jobs.title()}));
        return false;
    }
    const std::string problem = exiftool::deleteReport(parts_.context);
    if (problem.empty()) return true;
    dialogs::showMessage(
        &parts_.window,
        {parts_.language.formatted(jobs::text::kReportNotWritable,
                                   {platform::display(parts_.context.reportFile), platform::wide(problem)}),
         dialogs::MessageIcon::Stop});
    return false;
}

void OperationEnding::carryOut(jobs::Job job, Tell tell) {
    if (job.files.empty() && job.leftOut.empty()) return;
    const exiftool::Outcomes more = std::exchange(leftOut_, {});
    job.leftOut.insert(job.leftOut.end(), more.begin(), more.end());
    const QString title = job.title;
    const bool isBegun = parts_.jobs.begin(
        std::move(job), [this, tell](const jobs::JobResult& result) { ended(result, tell); });
    // The dialog stood open while another operation began.
    if (!isBegun) parts_.showStatus(parts_.language.formatted(jobs::text::kIsRunning, {parts_.jobs.title()}));
}

void OperationEnding::ended(const jobs::JobResult& result, const Tell& tell) {
    const std::string left = jobs::filesLeftLine(result);
    // Whoever reads the report itself is to find it there too; where it cannot be written the window still
    // says it.
    if (!left.empty())
        static_cast<void>(exiftool::appendToReport(parts_.context, left.substr(0, left.size() - 1)));
    showWhatChanged();
    if (tell)
        tell(result);
    else
        ShowBatchReport(result);
    if (result.isClosing) QTimer::singleShot(0, &parts_.window, &QWidget::close);
}

void OperationEnding::ShowBatchReport(const jobs::JobResult& result) {
    const jobs::Verdict verdict = jobs::verdictOf(result);
    if (verdict == jobs::Verdict::Nothing) return;
    const QString summary = jobs::summaryOf(parts_.language, result);
    if (verdict != jobs::Verdict::Told) {
        const QString said =
            verdict == jobs::Verdict::Done ? parts_.language.text(app::text::kReportEmpty) : summary;
        if (successNotice_ == nullptr) successNotice_ = new jobs::QuietSuccessNotice(&parts_.window);
        successNotice_->Show(said);
        parts_.showStatus(said);
        return;
    }
    parts_.showStatus(summary);
    std::string report = jobs::reportOf(parts_.language, result);
    QString shown;
    if (report.size() > jobs::kShownReportBytes) {
        report.erase(0, report.size() - jobs::kShownReportBytes);
        shown = parts_.language.formatted(jobs::text::kReportShortened,
                                          {platform::display(parts_.context.reportFile)});
        shown += QStringLiteral("\n\n");
    }
    shown += jobs::reportForDisplay(report, parts_.language.text(jobs::text::kLineShortened));
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
        reading_.readFileAgain(app::command::kReadFileAgain);
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
