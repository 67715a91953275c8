#include "window/EditingCommands.h"

#include "dialogs/Messages.h"
#include "edit/EditTexts.h"
#include "edit/PanelEdit.h"
#include "edit/ValueDialogs.h"
#include "exiftool/WriteTag.h"
#include "jobs/JobRunner.h"
#include "jobs/JobTexts.h"
#include "jobs/OutcomeText.h"
#include "panel/MetadataPanel.h"
#include "payload/DisplayHexaDialog.h"
#include "platform/FileStamp.h"
#include "platform/Text.h"
#include "taglists/DialogDeleteATag.h"
#include "taglists/DialogDeleteGroup_FromOneFile.h"
#include "window/OperationEnding.h"
#include "window/ReadingCommands.h"
#include "window/StatusBar.h"

#include <QTimer>

namespace window {

namespace fs = std::filesystem;

std::span<const CommandRow<EditingCommands>> EditingCommands::rows() {
    using namespace app::command;
    static constexpr CommandRow<EditingCommands> kRows[] = {
        {kRemoveGroupFromFile, kRemoveGroupFromFile, &EditingCommands::deleteGroup,
         &EditingCommands::deleteGroupState, Beside::NoOperation},
        {kDeleteTag, kDeleteTag, &EditingCommands::deleteTag, &EditingCommands::deleteTagState,
         Beside::NoOperation},
        {kDeleteGroup, kDeleteGroup, &EditingCommands::deleteGroup, &EditingCommands::deleteGroupState,
         Beside::NoOperation},
    };
    return kRows;
}

CommandState EditingCommands::deleteTagState(app::CommandId) const {
    const QModelIndex current = parts_.panel.list().currentIndex();
    return {.enabled = current.isValid() && canDelete(parts_.panel.model().row(current.row()))};
}

CommandState EditingCommands::deleteGroupState(app::CommandId) const {
    const QModelIndex current = parts_.panel.list().currentIndex();
    if (!current.isValid()) return {.enabled = false};
    const panel::MetadataListModel& model = parts_.panel.model();
    const std::uint32_t groupId = model.row(current.row()).groupId;
    for (int position = 0; position < model.rowCount(); ++position)
        if (model.row(position).groupId == groupId && canDelete(model.row(position))) return {};
    return {.enabled = false};
}

bool EditingCommands::canDelete(const tags::MetadataRow& row) const {
    if (row.tagId < 0) return false;
    const std::optional<tags::TagRecord> record =
        parts_.dictionary.FindTagById(static_cast<std::uint32_t>(row.tagId));
    return record && record->writable;
}

void EditingCommands::EditTagFromPanel(int rowIndex, bool altHeld) {
    if (!isPanelUpToDate()) return;
    // Whatever reads the panel again takes the row away.
    const tags::MetadataRow row = parts_.panel.model().row(rowIndex);
    const std::optional<tags::TagRecord> record =
        row.tagId < 0 ? std::nullopt : parts_.dictionary.FindTagById(static_cast<std::uint32_t>(row.tagId));
    switch (edit::actionOfClick(parts_.operations, currentForm(), row, record, altHeld)) {
        case edit::PanelAction::ViewText:
            viewRow(row, payload::DisplayHexaDialog::kPlainTemplate);
            break;
        case edit::PanelAction::ViewPicture:
            viewRow(row, payload::DisplayHexaDialog::kImageTemplate);
            break;
        case edit::PanelAction::EditValue:
            // What was typed must not be lost for an operation on other files.
            if (ending_.isFree()) editRow(rowIndex, row, *record);
            break;
        case edit::PanelAction::TellNotInList:
            parts_.showStatus(parts_.language.formatted(edit::text::kNotInList, {row.value}));
            break;
        case edit::PanelAction::Nothing:
            break;
    }
}

bool EditingCommands::isPanelUpToDate() {
    const fs::path file = parts_.panel.file();
    const QString name = platform::display(file.filename());
    if (parts_.panel.isReading()) return false;
    if (parts_.jobs.isWorkingOn(file)) {
        parts_.showStatus(parts_.language.formatted(jobs::text::kBeingWritten, {name}));
        return false;
    }
    if (parts_.panel.isFileUnchanged()) return true;
    if (platform::stampOf(file).isFile()) {
        parts_.panel.readAgainQuietly();
        parts_.showStatus(parts_.language.formatted(edit::text::kFileChanged, {name}));
    } else {
        dialogs::showMessage(&parts_.window,
                             {parts_.language.formatted(edit::text::kFileGone, {platform::display(file)}),
                              dialogs::MessageIcon::Stop});
        reading_.clearMetadata(app::command::kClearMetadata);
    }
    return false;
}

void EditingCommands::viewRow(const tags::MetadataRow& row, int templateNumber) {
    tags::TagEditContext view;
    view.filePath = parts_.panel.file();
    view.value = row.stars && row.value.isEmpty() ? QString::number(*row.stars) : row.value;
    view.title = row.tag;
    view.group = row.group;
    view.tagId = row.tagId;
    payload::DisplayHexaDialog dialog(parts_.operations, view, templateNumber, &parts_.window);
    dialog.setMayWrite([this, &dialog] { return mayWriteFrom(dialog); });
    if (dialog.run() == 1 && ending_.isReadyToBegin()) ending_.carryOut(dialog.takeJob());
}

bool EditingCommands::mayWriteFrom(QWidget& dialog) {
    if (!parts_.jobs.isRunning()) return true;
    dialogs::showMessage(&dialog, {parts_.language.formatted(jobs::text::kIsRunning, {parts_.jobs.title()}),
                                   dialogs::MessageIcon::Information});
    return false;
}

void EditingCommands::editRow(int rowIndex, const tags::MetadataRow& row, const tags::TagRecord& record) {
    const jobs::OperationParts parts = parts_.operations;
    const app::CommandForm form = currentForm();
    const fs::path file = parts_.panel.file();
    const auto [before, fault] = edit::contextOfRow(parts, form, file, row, record);
    if (!fault.isEmpty()) {
        tellNotRead(file, before.title, fault);
        return;
    }
    tags::TagEditContext after = before;
    if (edit::editValue(parts, after, record.valueKind, &parts_.window) != 1) return;
    if (edit::isUnchanged(form, before, after, record)) {
        parts_.showStatus(parts_.language.formatted(edit::text::kUnchanged, {before.title}));
        return;
    }
    if (!mayWriteAfterAll(file)) return;
    parts_.context.currentEdit = edit::editOfRow(parts, form, before, after, record, rowIndex);
    writeEdit(file, parts_.context.currentEdit);
}

bool EditingCommands::mayWriteAfterAll(const fs::path& file) {
    if (!platform::stampOf(file).isFile()) return isPanelUpToDate();
    if (parts_.panel.isFileUnchanged()) return true;
    return dialogs::showMessage(&parts_.window,
                                {.text = parts_.language.formatted(edit::text::kWriteNevertheless,
                                                                   {platform::display(file.filename())}),
                                 .icon = dialogs::MessageIcon::Exclamation,
                                 .buttons = QMessageBox::Yes | QMessageBox::No}) == QMessageBox::Yes;
}

void EditingCommands::writeEdit(const fs::path& file, const app::CurrentEdit& edit) {
    if (!ending_.isReadyToBegin()) return;
    const QString name = platform::display(file.filename());
    jobs::Job job{.title = parts_.language.formatted(edit::text::kModify, {edit.name}), .files = {file}};
    job.workOnFile = [edit](jobs::JobWork& work, const fs::path& one) {
        if (std::optional<exiftool::Outcome> refused = work.runner.copyForSafety(one)) return *refused;
        return exiftool::WriteOneTag(work.context, work.form, work.runner, one, edit);
    };
    const QString done = parts_.language.formatted(edit::text::kWritten, {edit.name, name});
    begin(std::move(job), done, edit);
}

void EditingCommands::begin(jobs::Job job, const QString& done, const std::optional<app::CurrentEdit>& edit) {
    const bool isBegun = parts_.jobs.begin(
        std::move(job), [this, done, edit, form = currentForm()](const jobs::JobResult& result) {
            const exiftool::Outcome& outcome = result.outcomes.front();
            const bool isShown = parts_.panel.file() == outcome.file;
            // What ExifTool has made of the value is known only when the file is read. The new value is seen
            // before.
            if (edit && exiftool::isWritten(outcome.kind)) rememberWritten(*edit, isShown);
            if (isShown && (!edit || form == app::CommandForm::Corrected)) parts_.panel.readAgainQuietly();
            tellWrite(result, done);
            if (result.isClosing) QTimer::singleShot(0, &parts_.window, &QWidget::close);
        });
    if (!isBegun) parts_.showStatus(parts_.language.formatted(jobs::text::kIsRunning, {parts_.jobs.title()}));
}

void EditingCommands::tellNotRead(const fs::path& file, const QString& tag, const QString& fault) {
    dialogs::showMessage(&parts_.window, {parts_.language.formatted(jobs::text::kValueNotRead,
                                                                    {tag, platform::display(file), fault}),
                                          dialogs::MessageIcon::Stop});
}

void EditingCommands::rememberWritten(const app::CurrentEdit& edit, bool isShown) {
    // The rows paint a rating from this memory.
    if (edit.valueKind == static_cast<int>(tags::ValueKind::Rating))
        parts_.operations.ratingMemory.Store(edit.id, edit.selection);
    if (isShown) parts_.panel.showWrittenValue(edit.rowIndex, edit.value);
}

void EditingCommands::tellWrite(const jobs::JobResult& result, const QString& done) {
    using exiftool::OutcomeKind;
    const exiftool::Outcome& outcome = result.outcomes.front();
    const QString file = platform::display(outcome.file.filename());
    switch (outcome.kind) {
        case OutcomeKind::Done:
            parts_.showStatus(done);
            break;
        case OutcomeKind::Unchanged:
            parts_.showStatus(file + QStringLiteral(": ") + jobs::wordsOf(parts_.language, outcome));
            break;
        case OutcomeKind::Stopped:
        case OutcomeKind::NotBegun:
            parts_.showStatus(parts_.language.formatted(edit::text::kWriteStopped, {file}));
            break;
        case OutcomeKind::Warned:
        case OutcomeKind::Failed:
        case OutcomeKind::Killed:
        case OutcomeKind::NotStarted:
            ending_.ShowBatchReport(result);
            break;
    }
}

void EditingCommands::deleteTag(app::CommandId) {
    const QModelIndex current = parts_.panel.list().currentIndex();
    if (!current.isValid()) {
        parts_.showStatus(parts_.language.text(edit::text::kNoRowChosen));
        return;
    }
    if (!isPanelUpToDate()) return;
    const tags::MetadataRow row = parts_.panel.model().row(current.row());
    const app::CommandForm form = currentForm();
    if (form == app::CommandForm::Corrected &&
        taglists::addressesOf(parts_.operations, form, {row}).empty()) {
        parts_.showStatus(parts_.language.formatted(edit::text::kCannotBeDeleted, {row.tag}));
        return;
    }
    const fs::path file = parts_.panel.file();
    if (!ending_.isReadyToBegin()) return;
    taglists::DialogDeleteATag dialog(parts_.operations, form, row, file, &parts_.window);
    if (dialog.run() != 1) return;
    const QString done =
        parts_.language.formatted(edit::text::kDeleted, {row.tag, platform::display(file.filename())});
    jobs::Job job = dialog.takeJob();
    if (!job.files.empty()) begin(std::move(job), done, std::nullopt);
}

void EditingCommands::deleteGroup(app::CommandId) {
    if (parts_.panel.rowsOfCurrentGroup().empty()) {
        parts_.showStatus(parts_.language.text(edit::text::kNoRowChosen));
        return;
    }
    if (!isPanelUpToDate()) return;
    const std::vector<tags::MetadataRow> rows = parts_.panel.rowsOfCurrentGroup();
    const app::CommandForm form = currentForm();
    if (form == app::CommandForm::Corrected && taglists::addressesOf(parts_.operations, form, rows).empty()) {
        parts_.showStatus(parts_.language.formatted(edit::text::kCannotBeDeleted, {rows.front().group}));
        return;
    }
    const fs::path file = parts_.panel.file();
    if (!ending_.isReadyToBegin()) return;
    taglists::DialogDeleteGroup_FromOneFile dialog(parts_.operations, form, rows, file, &parts_.window);
    if (dialog.run() != 1) return;
    const QString done = parts_.language.formatted(edit::text::kDeleted,
                                                   {rows.front().group, platform::display(file.filename())});
    jobs::Job job = dialog.takeJob();
    if (!job.files.empty()) begin(std::move(job), done, std::nullopt);
}

}  // namespace window
