#include "window/TagListCommands.h"

#include "edit/EditTexts.h"
#include "jobs/DisplaySelectedFilesDialog.h"
#include "panel/MetadataPanel.h"
#include "taglists/DialogAddATag_ToOneFile.h"
#include "taglists/DialogAddTagsMain.h"
#include "taglists/DialogModifMain.h"
#include "window/OperationEnding.h"
#include "window/SelectionGathering.h"

namespace window {

std::span<const CommandRow<TagListCommands>> TagListCommands::rows() {
    using namespace app::command;
    static constexpr CommandRow<TagListCommands> kRows[] = {
        {kModifyExif, kModifyExif, &TagListCommands::modifyTags, nullptr, Beside::NoOperation},
        {kModifyIptc, kModifyIptc, &TagListCommands::modifyTags, nullptr, Beside::NoOperation},
        {kModifyXmp, kModifyXmp, &TagListCommands::modifyTags, nullptr, Beside::NoOperation},
        {kFirstAddTags, kLastAddTags, &TagListCommands::addTags, nullptr, Beside::NoOperation},
        {kSelectedFilesList, kSelectedFilesList, &TagListCommands::listSelectedFiles, nullptr,
         Beside::NoOperation},
        {kAddTagsToFile, kAddTagsToFile, &TagListCommands::addTagsToShownFile,
         &TagListCommands::ifGroupChosen, Beside::NoOperation},
    };
    return kRows;
}

CommandState TagListCommands::ifGroupChosen(app::CommandId) const {
    return {.enabled = !parts_.panel.file().empty() && parts_.panel.list().currentIndex().isValid()};
}

void TagListCommands::modifyTags(app::CommandId id) {
    const std::vector<std::filesystem::path> files = gathering_.GatherSelection();
    if (files.empty()) return;
    taglists::DialogModifMain dialog(parts_.operations, id, files, &parts_.window);
    if (dialog.run() != 0) ending_.carryOut(dialog.takeJob());
}

void TagListCommands::addTags(app::CommandId id) {
    const std::vector<std::filesystem::path> files = gathering_.GatherSelection();
    if (files.empty()) return;
    taglists::DialogAddTagsMain dialog(parts_.operations, id, files, &parts_.window);
    if (dialog.run() != 0) ending_.carryOut(dialog.takeJob());
}

void TagListCommands::listSelectedFiles(app::CommandId) {
    const std::vector<std::filesystem::path> files = gathering_.GatherSelection();
    if (files.empty()) return;
    jobs::DisplaySelectedFilesDialog(parts_.language, files, &parts_.window).run();
}

void TagListCommands::addTagsToShownFile(app::CommandId) {
    const QModelIndex row = parts_.panel.list().currentIndex();
    if (parts_.panel.file().empty() || !row.isValid())
        return parts_.tellNothingChosen(edit::text::kNoRowChosen);
    // The panel is read again while the dialog may still look at the row.
    const QString group = parts_.panel.model().row(row.row()).group;
    const std::filesystem::path file = parts_.panel.file();
    if (!ending_.isReadyToBegin()) return;
    taglists::DialogAddATag_ToOneFile dialog(parts_.operations, group, file, &parts_.window);
    if (dialog.run() != 0) ending_.carryOut(dialog.takeJob());
}

}  // namespace window
