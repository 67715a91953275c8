#include "window/RemovalCommands.h"

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
#include "window/OperationEnding.h"
#include "window/SelectionGathering.h"

namespace window {

namespace fs = std::filesystem;

std::span<const CommandRow<RemovalCommands>> RemovalCommands::rows() {
    using namespace app::command;
    static constexpr CommandRow<RemovalCommands> kRows[] = {
        {kDeleteAll, kDeleteAll, &RemovalCommands::deleteAll},
        {kRemoveTags, kRemoveTags, &RemovalCommands::removeTags},
        {kRemoveGroupTypes, kRemoveGroupTypes, &RemovalCommands::removeGroupTypes},
        {kRemoveTagsFromFile, kRemoveTagsFromFile, &RemovalCommands::removeTagsFromShownFile},
        {kRemoveEverything, kRemoveEverything, &RemovalCommands::removeFamily},
        {kCopyTagsFromFile, kCopyTagsFromFile, &RemovalCommands::copyTags},
        {kCopyTags, kCopyTags, &RemovalCommands::copyTags},
        {kRemoveExif, kRemoveIccProfile, &RemovalCommands::removeFamily},
        {kRemoveGps, kRemoveAllMetadata, &RemovalCommands::removeFamily},
    };
    return kRows;
}

void RemovalCommands::endRemoval(bool hasRun) {
    if (!hasRun) return;
    ending_.showWhatChanged();
    ending_.ShowBatchReport();
}

void RemovalCommands::deleteAll(app::CommandId) {
    const std::vector<fs::path> files = gathering_.GatherSelection();
    if (files.empty()) return;
    endRemoval(
        taglists::DeleteAll(parts_.operations, parts_.context.settings.deleteAll, files, &parts_.window)
            .run() == 1);
}

void RemovalCommands::removeTags(app::CommandId) {
    const std::vector<fs::path> files = gathering_.GatherSelection();
    if (files.empty()) return;
    endRemoval(taglists::DialogRemoveTags(parts_.operations, files, &parts_.window).run() == 1);
}

void RemovalCommands::removeGroupTypes(app::CommandId) {
    const std::vector<fs::path> files = gathering_.GatherSelection();
    if (files.empty()) return;
    endRemoval(taglists::RemoveDialogTypes(parts_.operations, files, &parts_.window).run() == 1);
}

void RemovalCommands::copyTags(app::CommandId) {
    const std::vector<fs::path> files = gathering_.GatherSelection();
    if (files.empty()) return;
    endRemoval(taglists::CopyTagsDialog(parts_.operations, files, &parts_.window).run() == 1);
}

void RemovalCommands::removeFamily(app::CommandId id) {
    const std::vector<fs::path> files = gathering_.GatherSelection();
    if (files.empty()) return;
    // The designed form removes without a question.
    const std::optional<QString> question =
        taglists::familyRemovalQuestion(parts_.language, id, files.size());
    if (parts_.context.settings.exifTool.correctedCommands && question &&
        dialogs::showMessage(&parts_.window, {.text = *question,
                                              .icon = dialogs::MessageIcon::Exclamation,
                                              .buttons = QMessageBox::Yes | QMessageBox::No}) !=
            QMessageBox::Yes)
        return;
    const QString title = taglists::familyRemovalTitle(parts_.language, id, files.size());
    endRemoval(taglists::removeFamily(parts_.operations, title, id, files).begun > 0);
}

void RemovalCommands::removeTagsFromShownFile(app::CommandId) {
    const bool isShown = parts_.context.settings.lists.showMetadataWindow && !parts_.panel.file().empty();
    const fs::path file = isShown ? parts_.panel.file() : parts_.selectedFile();
    if (file.empty()) return;
    const QModelIndex row = parts_.panel.list().currentIndex();
    const QString group = isShown && row.isValid() ? parts_.panel.model().row(row.row()).group : QString();
    static_cast<void>(exiftool::deleteReport(parts_.context));
    endRemoval(taglists::DialogRemoveATag_FromOneFile(parts_.operations, file, group, &parts_.window).run() ==
               1);
}

}  // namespace window
