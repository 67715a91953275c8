#include "window/RemovalCommands.h"

#include "app/TextNumbers.h"
#include "browser/ShellBrowser.h"
#include "dialogs/Messages.h"
#include "panel/MetadataPanel.h"
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
        {kRemoveTags, kRemoveTags, &RemovalCommands::removeTags, nullptr, Beside::NoOperation},
        {kRemoveGroupTypes, kRemoveGroupTypes, &RemovalCommands::removeGroupTypes, nullptr,
         Beside::NoOperation},
        {kRemoveTagsFromFile, kRemoveTagsFromFile, &RemovalCommands::removeTagsFromShownFile,
         &RemovalCommands::ifAnyFile, Beside::NoOperation},
        {kRemoveEverything, kRemoveEverything, &RemovalCommands::removeFamily, nullptr, Beside::NoOperation},
        {kRemoveExif, kRemoveIccProfile, &RemovalCommands::removeFamily, nullptr, Beside::NoOperation},
        {kRemoveGps, kRemoveAllMetadata, &RemovalCommands::removeFamily, nullptr, Beside::NoOperation},
    };
    return kRows;
}

CommandState RemovalCommands::ifAnyFile(app::CommandId) const {
    return {.enabled = !parts_.panel.file().empty() || parts_.hasSelectedFile()};
}

template <typename Dialog>
void RemovalCommands::askAndRemove(Dialog&& dialog, const OperationEnding::Tell& tell) {
    if (dialog.run() == 1) ending_.carryOut(dialog.takeJob(), tell);
}

void RemovalCommands::removeTags(app::CommandId) {
    const std::vector<fs::path> files = gathering_.GatherSelection();
    if (files.empty()) return;
    askAndRemove(taglists::DialogRemoveTags(parts_.operations, files, &parts_.window));
}

void RemovalCommands::removeGroupTypes(app::CommandId) {
    const std::vector<fs::path> files = gathering_.GatherSelection();
    if (files.empty()) return;
    askAndRemove(taglists::RemoveDialogTypes(parts_.operations, files, &parts_.window),
                 [this](const jobs::JobResult& result) {
                     dialogs::showMessage(
                         &parts_.window,
                         {taglists::typesRemovedText(parts_.language, result.outcomes, result.remarks),
                          dialogs::MessageIcon::Information});
                     ending_.ShowBatchReport(result);
                 });
}

void RemovalCommands::removeFamily(app::CommandId id) {
    const std::vector<fs::path> files = gathering_.GatherSelection();
    if (files.empty()) return;
    // The designed form removes without a question.
    const std::optional<QString> question =
        taglists::familyRemovalQuestion(parts_.language, id, files.size());
    if (app::commandFormOf(parts_.context) == app::CommandForm::Corrected && question &&
        dialogs::showMessage(&parts_.window, {.text = *question,
                                              .icon = dialogs::MessageIcon::Exclamation,
                                              .buttons = QMessageBox::Yes | QMessageBox::No,
                                              .defaultButton = QMessageBox::No}) != QMessageBox::Yes)
        return;
    const QString title = taglists::familyRemovalTitle(parts_.language, id, files.size());
    ending_.carryOut(taglists::removeFamilyJob(title, id, files));
}

void RemovalCommands::removeTagsFromShownFile(app::CommandId) {
    const bool isShown = parts_.context.settings.lists.showMetadataWindow && !parts_.panel.file().empty();
    const fs::path file = isShown ? parts_.panel.file() : parts_.selectedFile();
    if (file.empty()) return parts_.tellNothingChosen(app::text::kNoFileSelected);
    const QModelIndex row = parts_.panel.list().currentIndex();
    const QString group = isShown && row.isValid() ? parts_.panel.model().row(row.row()).group : QString();
    if (!ending_.isReadyToBegin()) return;
    askAndRemove(taglists::DialogRemoveATag_FromOneFile(parts_.operations, file, group, &parts_.window));
}

}  // namespace window
