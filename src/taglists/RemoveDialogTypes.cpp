#include "taglists/RemoveDialogTypes.h"

#include "dialogs/Messages.h"
#include "jobs/OutcomeText.h"
#include "taglists/RemovalTexts.h"
#include "taglists/Removals.h"

#include <QPushButton>
#include <algorithm>

namespace taglists {

namespace {

constexpr QSize kSize(420, 520);
constexpr int kHelp = 81104;

/// In a JPEG the record of IPTC lies within Photoshop's.
bool takesIptcAlong(const std::vector<std::string>& groups) {
    return std::ranges::find(groups, "Photoshop") != groups.end() &&
           std::ranges::find(groups, "IPTC") == groups.end();
}

}  // namespace

RemoveDialogTypes::RemoveDialogTypes(const jobs::OperationParts& parts,
                                     std::vector<std::filesystem::path> files, QWidget* parent)
    : TickedTagsDialog(parts, kTemplate,
                       {.look = {.columns = {TagColumn::Group}},
                        .filterHint = text::kFilterGroups,
                        .countOfRows = text::kCountOfGroups},
                       kSize, parent),
      files_(std::move(files)) {
    setWindowTitle(
        parts.language.formatted(text::kRemoveGroups, {jobs::filesText(parts.language, files_.size())}));
    if (list() == nullptr) return;
    TagRows rows;
    for (const char* group : removableGroups()) {
        TagRow row;
        row.group = QString::fromLatin1(group);
        rows.push_back(row);
    }
    list()->model().setRows(std::move(rows));
    if (auto* help = control<QPushButton>(kHelp)) {
        connect(help, &QPushButton::clicked, this, [this] {
            dialogs::showMessage(
                this, {this->parts().language.text(text::kHelpOfGroups), dialogs::MessageIcon::Information});
        });
    }
}

void RemoveDialogTypes::accept() {
    std::vector<std::string> groups;
    for (const TagRow& row : list()->tickedRows()) groups.push_back(row.group.toStdString());
    if (groups.empty()) {
        dialogs::showMessage(
            this, {QStringLiteral("Please select at least of tag type!"), dialogs::MessageIcon::Exclamation});
        return;
    }
    QString question = QStringLiteral("Please confirm the deletion of the selected tags.");
    if (form() == app::CommandForm::Corrected && takesIptcAlong(groups))
        question += QStringLiteral("\n\n") + parts().language.text(text::kTakesIptcAlong);
    if (dialogs::showMessage(this, {.text = question,
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
