#include "window/SelectionGathering.h"

#include "browser/ShellBrowser.h"
#include "dialogs/Waiting.h"
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
    if (!ending_.isReadyToBegin()) return {};
    const std::vector<fs::path> selected = parts_.activeBrowser().GetSelectedFiles();
    if (selected.empty()) return gatherFolder();
    jobs::SelectionFiles gathered = jobs::filesOfSelection(selected);
    exiftool::Outcomes refused;
    for (const fs::path& file : gathered.refused)
        refused.push_back({file, exiftool::OutcomeKind::Failed,
                           reportLine(jobs::text::kNotRegularFile, platform::narrow(file))});
    if (gathered.files.empty() && refused.empty()) parts_.tellNothingChosen(jobs::text::kOnlyFolders);
    tell(std::move(refused), gathered.files.empty());
    return std::move(gathered.files);
}

// The form of ExifTool's own lines, so that the report reads alike.
std::string SelectionGathering::reportLine(int reasonNumber, const std::string& path) const {
    return "Error: " + parts_.language.text(reasonNumber).toStdString() + " - " + path;
}

void SelectionGathering::tell(exiftool::Outcomes refused, bool isAll) {
    for (const exiftool::Outcome& outcome : refused)
        static_cast<void>(exiftool::appendToReport(parts_.context, outcome.words));
    if (isAll && !refused.empty())
        ending_.ShowBatchReport({{}, std::move(refused), false, false});
    else
        ending_.leaveOut(std::move(refused));
}

std::vector<fs::path> SelectionGathering::gatherFolder() {
    jobs::BatchNoFilesSelectedDialog dialog(parts_.language, parts_.activeBrowser().currentFolder(),
                                            &parts_.window);
    if (dialog.run() == 0) return {};
    const fs::path folder = dialog.folder();
    jobs::FolderScan scan;
    parts_.waiting.forWork([&] { scan = jobs::scanFolder(folder, dialog.withSubfolders()); });
    exiftool::Outcomes refused;
    for (const std::string& unreadable : scan.unreadable)
        refused.push_back(
            {folder, exiftool::OutcomeKind::Failed, reportLine(jobs::text::kFolderUnreadable, unreadable)});
    if (scan.files.empty())
        parts_.showStatus(
            parts_.language.formatted(jobs::text::kNoFilesInFolder, {platform::display(folder)}));
    tell(std::move(refused), scan.files.empty());
    return std::move(scan.files);
}

}  // namespace window
