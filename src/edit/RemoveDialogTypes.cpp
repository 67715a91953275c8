#include "edit/RemoveDialogTypes.h"

#include "app/Messages.h"
#include "edit/RemovalTexts.h"
#include "edit/Removals.h"

namespace edit {

namespace {

constexpr QSize kSize(420, 520);

}  // namespace

RemoveDialogTypes::RemoveDialogTypes(const EditParts& parts, std::vector<std::filesystem::path> files,
                                     QWidget* parent)
    : TickedTagsDialog(parts, kTemplate,
                       {.look = {.columns = {TagColumn::Group}},
                        .filterHint = text::kFilterGroups,
                        .countOfRows = text::kCountOfGroups},
                       kSize, parent),
      files_(std::move(files)) {
    setWindowTitle(parts.language.formatted(text::kRemoveGroups, {FilesText(parts.language, files_.size())}));
    if (list() == nullptr) return;
    TagRows rows;
    for (const char* group : RemovableGroups()) {
        TagRow row;
        row.group = QString::fromLatin1(group);
        rows.push_back(row);
    }
    list()->model().setRows(std::move(rows));
}

void RemoveDialogTypes::accept() {
    std::vector<std::string> groups;
    for (const TagRow& row : list()->tickedRows()) groups.push_back(row.group.toStdString());
    if (groups.empty()) {
        app::ShowMessage(
            this, {QStringLiteral("Please select at least of tag type!"), app::MessageIcon::Exclamation});
        return;
    }
    if (app::ShowMessage(this, {.text = QStringLiteral("Please confirm the deletion of the selected tags."),
                                .icon = app::MessageIcon::Exclamation,
                                .buttons = QMessageBox::Yes | QMessageBox::No}) != QMessageBox::Yes) {
        reject();
        return;
    }
    const bool wasRun = RemoveTypes(parts(), windowTitle(), groups, files_) == 1;
    tellEnd(wasRun);
    if (wasRun)
        TickedTagsDialog::accept();
    else
        reject();
}

void RemoveDialogTypes::tellEnd(bool wasRun) {
    std::error_code error;
    const auto size = std::filesystem::file_size(parts().context.reportFile, error);
    const bool hasReport = !error && size > 0;
    app::ShowMessage(this, {TypesRemovedText(parts().language, wasRun, hasReport, files_.size()),
                            app::MessageIcon::Information});
}

}  // namespace edit
