#include "window/SelectionGathering.h"

#include "browser/ShellBrowser.h"
#include "dialogs/Messages.h"
#include "dialogs/ProgressDialog.h"
#include "exiftool/ReportFile.h"
#include "jobs/BatchNoFilesSelectedDialog.h"
#include "jobs/FolderScan.h"
#include "jobs/JobTexts.h"
#include "platform/Text.h"
#include "window/OperationEnding.h"

#include <utility>

namespace window {

namespace fs = std::filesystem;

std::vector<fs::path> SelectionGathering::GatherSelection() {
    static_cast<void>(parts_.runner.takeUntold());
    const std::string problem = exiftool::deleteReport(parts_.context);
    if (!problem.empty()) {
        dialogs::showMessage(&parts_.window,
                             {parts_.language.formatted(
                                  jobs::text::kReportNotWritable,
                                  {platform::display(parts_.context.reportFile), platform::wide(problem)}),
                              dialogs::MessageIcon::Stop});
        return {};
    }
    const std::vector<fs::path> selected = parts_.activeBrowser().GetSelectedFiles();
    if (selected.empty()) return gatherFolder();
    jobs::SelectionFiles gathered = jobs::filesOfSelection(selected);
    for (const fs::path& refused : gathered.refused)
        exiftool::appendToReport(parts_.context, "Error: Not a regular file - " + platform::narrow(refused));
    return std::move(gathered.files);
}

std::vector<fs::path> SelectionGathering::gatherFolder() {
    jobs::BatchNoFilesSelectedDialog dialog(parts_.language, parts_.activeBrowser().currentFolder(),
                                            &parts_.window);
    if (dialog.run() == 0) return {};
    const fs::path folder = dialog.folder();
    parts_.progress.showReading(platform::display(folder));
    jobs::FolderScan scan =
        jobs::scanFolder(folder, dialog.withSubfolders(), [this] { parts_.progress.pulse(); });
    parts_.progress.finish();
    for (const std::string& unreadable : scan.unreadable)
        exiftool::appendToReport(parts_.context, "Error: The folder cannot be read - " + unreadable);
    if (scan.files.empty()) {
        parts_.showStatus(
            parts_.language.formatted(jobs::text::kNoFilesInFolder, {platform::display(folder)}));
        if (!scan.unreadable.empty()) ending_.ShowBatchReport();
    }
    return std::move(scan.files);
}

}  // namespace window
