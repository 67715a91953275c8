#include "window/OperationEnding.h"

#include "app/TextNumbers.h"
#include "browser/TabContainer.h"
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

#include <QTimer>
#include <set>
#include <utility>

namespace window {

namespace fs = std::filesystem;

bool OperationEnding::isFree() {
    if (!parts_.jobs.isRunning()) return true;
    parts_.showStatus(parts_.language.formatted(jobs::text::kIsRunning, {parts_.jobs.title()}));
    return false;
}

bool OperationEnding::isReadyToBegin() {
    leftOut_.clear();
    if (!isFree()) return false;
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
    const exiftool::Outcomes more = std::exchange(leftOut_, {});
    job.leftOut.insert(job.leftOut.end(), more.begin(), more.end());
    if (job.files.empty() && job.leftOut.empty()) return;
    const QString title = job.title;
    const bool isBegun = parts_.jobs.begin(
        std::move(job), [this, tell](const jobs::JobResult& result) { ended(result, tell); });
    if (isBegun) tabOfBeginning_ = parts_.tabs.GetSelectedTab().id();
    // The dialog stood open while another operation began.
    if (!isBegun) parts_.showStatus(parts_.language.formatted(jobs::text::kIsRunning, {parts_.jobs.title()}));
}

void OperationEnding::ended(const jobs::JobResult& result, const Tell& tell) {
    const std::string left = jobs::filesLeftLine(result);
    // Whoever reads the report itself is to find it there too; where it cannot be written the window still
    // says it.
    if (!left.empty())
        static_cast<void>(exiftool::appendToReport(parts_.context, left.substr(0, left.size() - 1)));
    showWhatChanged(result);
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

void OperationEnding::showWhatChanged(const jobs::JobResult& result) {
    std::set<fs::path> folders;
    for (const exiftool::Outcome& outcome : result.outcomes) folders.insert(outcome.file.parent_path());
    for (int at = 0; at < parts_.tabs.tabCount(); ++at) {
        browser::Tab& tab = parts_.tabs.GetTabByIndex(at);
        browser::ShellBrowser& list = tab.shellBrowser();
        if (tab.id() != tabOfBeginning_ && !folders.contains(list.currentFolder())) continue;
        // Whoever has changed some files often wants to do something else with the same ones.
        std::vector<fs::path> selected = list.GetSelectedFiles();
        for (fs::path& file : selected) {
            const auto renamed = result.newNames.find(file);
            if (renamed != result.newNames.end()) file = renamed->second;
        }
        if (&list == &parts_.activeBrowser()) keepsStatus_ = true;
        list.readAgain(std::move(selected));
    }
    readPanelAgain();
}

void OperationEnding::readPanelAgain() {
    if (parts_.context.currentFile.empty() || !parts_.context.settings.lists.showMetadataWindow) return;
    std::error_code error;
    if (fs::is_regular_file(parts_.context.currentFile, error))
        reading_.readFileAgain(app::command::kReadFileAgain);
    else
        reading_.clearMetadata(app::command::kClearMetadata);
}

bool OperationEnding::listWasRead() {
    return std::exchange(keepsStatus_, false);
}

}  // namespace window
