#include "taglists/RemoveDialogTypes.h"

#include "dialogs/Messages.h"
#include "taglists/RemovalTexts.h"
#include "taglists/Removals.h"

namespace taglists {

namespace {

constexpr QSize kSize(420, 520);

}  // namespace

RemoveDialogTypes::RemoveDialogTypes(const jobs::OperationParts& parts,
                                     std::vector<std::filesystem::path> files, QWidget* parent)
    : TickedTagsDialog(parts, kTemplate,
                       {.look = {.columns = {TagColumn::Group}},
                        .filterHint = text::kFilterGroups,
                        .countOfRows = text::kCountOfGroups},
                       kSize, parent),
      files_(std::move(files)) {
    setWindowTitle(parts.language.formatted(text::kRemoveGroups, {filesText(parts.language, files_.size())}));
    if (list() == nullptr) return;
    TagRows rows;
    for (const char* group : removableGroups()) {
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
        dialogs::showMessage(
            this, {QStringLiteral("Please select at least of tag type!"), dialogs::MessageIcon::Exclamation});
        return;
    }
    if (dialogs::showMessage(this,
                             {.text = QStringLiteral("Please confirm the deletion of the selected tags."),
                              .icon = dialogs::MessageIcon::Exclamation,
                              .buttons = QMessageBox::Yes | QMessageBox::No,
                              .defaultButton = QMessageBox::No}) != QMessageBox::Yes) {
        reject();
        return;
    }
    setJob(removeTypesJob(windowTitle(), groups, files_));
    TickedTagsDialog::accept();
}

}  // namespace taglists
