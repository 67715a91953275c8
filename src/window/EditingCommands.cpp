#include "window/EditingCommands.h"

#include "dialogs/Messages.h"
#include "edit/EditTexts.h"
#include "edit/PanelEdit.h"
#include "edit/TrialWrite.h"
#include "edit/ValueDialogs.h"
#include "edit/WholeValue.h"
#include "exiftool/WriteTag.h"
#include "jobs/JobRunner.h"
#include "jobs/JobTexts.h"
#include "jobs/OutcomeText.h"
#include "panel/MetadataPanel.h"
#include "panel/PanelTexts.h"
#include "payload/DisplayHexaDialog.h"
#include "platform/FileStamp.h"
#include "platform/Text.h"
#include "taglists/DialogDeleteATag.h"
#include "taglists/DialogDeleteGroup_FromOneFile.h"
#include "tags/Entries.h"
#include "tags/ExactOutput.h"
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
    for (const tags::MetadataRow& row : model.allRows())
        if (row.groupId == groupId && canDelete(row)) return {};
    return {.enabled = false};
}

bool EditingCommands::canDelete(const tags::MetadataRow& row) const {
    if (row.tagId < 0) return false;
    const std::optional<tags::TagRecord> record =
        parts_.dictionary.FindTagById(static_cast<std::uint32_t>(row.tagId));
    return record && record->writable;
}

void EditingCommands::EditTagFromPanel(int rowIndex, bool altHeld) {
    if (rowIndex >= parts_.panel.model().rowCount() || !isPanelUpToDate()) return;
    // Whatever reads the panel again takes the row away.
    const tags::MetadataRow row = parts_.panel.model().row(rowIndex);
    const std::optional<tags::TagRecord> record =
        row.tagId < 0 ? std::nullopt : parts_.dictionary.FindTagById(static_cast<std::uint32_t>(row.tagId));
    switch (edit::actionOfClick(parts_.operations, currentForm(), row, record, altHeld)) {
        case edit::PanelAction::ViewText:
            viewRow(row, record, payload::DisplayHexaDialog::kPlainTemplate);
            break;
        case edit::PanelAction::ViewPicture:
            viewRow(row, record, payload::DisplayHexaDialog::kImageTemplate);
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

QString EditingCommands::wholeValueOf(const tags::MetadataRow& shown) const {
    const tags::MetadataRow row = shown;
    const auto record =
        row.tagId < 0 ? std::nullopt : parts_.dictionary.FindTagById(static_cast<std::uint32_t>(row.tagId));
    const bool isText = record && record->valueKind == tags::ValueKind::Text;
    if (!isText || currentForm() == app::CommandForm::Designed || parts_.panel.isReading()) return row.value;
    const auto [edit, fault, refusal] =
        edit::contextOfRow(parts_.operations, currentForm(), parts_.panel.file(), row, *record);
    // Of two values under one name the cell alone says which it is.
    if (!fault.isEmpty() || !refusal.isEmpty()) return row.value;
    return edit.severalEntries ? tags::splitEntries(edit.value).join(QStringLiteral(", ")) : edit.value;
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
        tellGone(file);
    }
    return false;
}

void EditingCommands::tellGone(const fs::path& file) {
    dialogs::showMessage(&parts_.window,
                         {parts_.language.formatted(panel::text::kFileGone, {platform::display(file)}),
                          dialogs::MessageIcon::Stop});
    // It may be another one's panel by now.
    if (parts_.panel.file() == file) reading_.clearMetadata(app::command::kClearMetadata);
}

void EditingCommands::viewRow(const tags::MetadataRow& row, const std::optional<tags::TagRecord>& record,
                              int templateNumber) {
    tags::TagEditContext view;
    view.filePath = parts_.panel.file();
    view.value = row.stars && row.value.isEmpty() ? QString::number(*row.stars) : row.value;
    if (record) {
        // A row shows several lines as one. A value that cannot be read anew is shown as the row has it.
        const edit::EditableValue whole = edit::editableValue(parts_.operations, currentForm(), view.filePath,
                                                              *record, row.tag, view.value);
        if (whole.fault.isEmpty()) view.value = whole.text;
    }
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

bool EditingCommands::isWritable(const fs::path& file) {
    if (currentForm() == app::CommandForm::Designed) return true;
    const QString reason = edit::whyNotWritable(file);
    if (reason.isEmpty()) return true;
    dialogs::showMessage(&parts_.window, {parts_.language.formatted(edit::text::kCannotBeWritten,
                                                                    {platform::display(file), reason}),
                                          dialogs::MessageIcon::Exclamation});
    return false;
}

void EditingCommands::editRow(int rowIndex, const tags::MetadataRow& row, const tags::TagRecord& record) {
    const jobs::OperationParts parts = parts_.operations;
    const app::CommandForm form = currentForm();
    const fs::path file = parts_.panel.file();
    if (!isWritable(file)) return;
    const auto [before, fault, refusal] = edit::contextOfRow(parts, form, file, row, record);
    if (!fault.isEmpty()) {
        tellNotRead(file, before.title, fault);
        return;
    }
    if (!refusal.isEmpty()) {
        dialogs::showMessage(&parts_.window, {refusal, dialogs::MessageIcon::Information});
        return;
    }
    askAndWrite({rowIndex, record, before, before});
}

void EditingCommands::askAndWrite(Edit edit) {
    const app::CommandForm form = currentForm();
    const tags::ValueKind kind = edit::kindOfDialog(edit.before, edit.record);
    if (edit::editValue(parts_.operations, edit.after, kind, &parts_.window) != 1) return;
    if (edit::isUnchanged(form, edit.before, edit.after, edit.record)) {
        parts_.showStatus(parts_.language.formatted(edit::text::kUnchanged, {edit.before.title}));
        return;
    }
    if (mayWriteAfterAll(edit.before.filePath)) writeEdit(std::move(edit));
}

bool EditingCommands::mayWriteAfterAll(const fs::path& file) {
    if (!platform::stampOf(file).isFile()) {
        tellGone(file);
        return false;
    }
    if (parts_.panel.isFileUnchanged()) return true;
    return dialogs::showMessage(&parts_.window,
                                {.text = parts_.language.formatted(edit::text::kWriteNevertheless,
                                                                   {platform::display(file.filename())}),
                                 .icon = dialogs::MessageIcon::Exclamation,
                                 .buttons = QMessageBox::Yes | QMessageBox::No}) == QMessageBox::Yes;
}

void EditingCommands::writeEdit(Edit edit) {
    if (!ending_.isReadyToBegin()) return;
    const fs::path file = edit.before.filePath;
    const app::CurrentEdit written = edit::editOfRow(parts_.operations, currentForm(), edit.before,
                                                     edit.after, edit.record, edit.rowIndex);
    begin(jobOf(file, written), [this, edit = std::move(edit), written](const jobs::JobResult& result) {
        editEnded(result, edit, written);
    });
}

jobs::Job EditingCommands::jobOf(const fs::path& file, const app::CurrentEdit& written) {
    parts_.context.currentEdit = written;
    jobs::Job job{.title = parts_.language.formatted(edit::text::kModify, {written.name}), .files = {file}};
    job.workOnFile = [written](jobs::JobWork& work, const fs::path& one) {
        if (std::optional<exiftool::Outcome> refused = work.runner.copyForSafety(one)) return *refused;
        return exiftool::WriteOneTag(work.context, work.form, work.runner, one, written);
    };
    return job;
}

void EditingCommands::begin(jobs::Job job, const Ended& ended) {
    const bool isBegun = parts_.jobs.begin(std::move(job), [this, ended](const jobs::JobResult& result) {
        ended(result);
        if (result.isClosing) QTimer::singleShot(0, &parts_.window, &QWidget::close);
    });
    if (!isBegun) parts_.showStatus(parts_.language.formatted(jobs::text::kIsRunning, {parts_.jobs.title()}));
}

void EditingCommands::editEnded(const jobs::JobResult& result, const Edit& edit,
                                const app::CurrentEdit& written) {
    const exiftool::Outcome& outcome = result.outcomes.front();
    const bool isCorrected = currentForm() == app::CommandForm::Corrected;
    const bool isShown = parts_.panel.file() == outcome.file;
    // What ExifTool has made of the value is known only when the file is read. The new value is seen before.
    if (exiftool::isWritten(outcome.kind)) rememberWritten(written, isShown);
    if (isShown && isCorrected) parts_.panel.readAgainQuietly();
    const bool isLost =
        !exiftool::isWritten(outcome.kind) && outcome.kind != exiftool::OutcomeKind::Unchanged;
    if (isLost && isCorrected && !result.isClosing) return askAgain(edit, outcome);
    tellWrite(result, parts_.language.formatted(edit::text::kWritten,
                                                {written.name, platform::display(outcome.file.filename())}));
}

void EditingCommands::askAgain(Edit edit, const exiftool::Outcome& outcome) {
    const QString file = platform::display(outcome.file.filename());
    const bool wasStopped =
        outcome.kind == exiftool::OutcomeKind::Stopped || outcome.kind == exiftool::OutcomeKind::NotBegun;
    edit.after.refusal =
        wasStopped ? parts_.language.formatted(edit::text::kWriteStopped, {file})
                   : parts_.language.formatted(edit::text::kNotWritten,
                                               {file, jobs::wordsOf(parts_.language, outcome).trimmed()});
    parts_.showStatus(edit.after.refusal);
    askAndWrite(std::move(edit));
}

void EditingCommands::deletionEnded(const jobs::JobResult& result, const QString& done) {
    if (parts_.panel.file() == result.outcomes.front().file) parts_.panel.readAgainQuietly();
    tellWrite(result, done);
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
    const QString shown = edit.severalValues ? tags::panelText(tags::splitEntries(edit.value)) : edit.value;
    if (isShown) parts_.panel.showWrittenValue(edit.rowIndex, shown);
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
            if (parts_.context.settings.showReportOnError)
                ending_.ShowBatchReport(result);
            else
                parts_.showStatus(file + QStringLiteral(": ") + jobs::wordsOf(parts_.language, outcome));
            break;
    }
}

bool EditingCommands::tellIfItStandsTwice(const tags::MetadataRow& row) {
    const panel::MetadataListModel& model = parts_.panel.model();
    int times = 0;
    for (int position = 0; position < model.rowCount(); ++position)
        times += model.row(position).groupId == row.groupId && model.row(position).tag == row.tag ? 1 : 0;
    if (times < 2) return false;
    dialogs::showMessage(
        &parts_.window,
        {parts_.language.formatted(jobs::text::kStandsTwice, {row.tag, QString::number(times), row.group}),
         dialogs::MessageIcon::Information});
    return true;
}

bool EditingCommands::hasTranslationsBeside(const tags::MetadataRow& row) const {
    // A tag of the other kind has a name for its plain entry.
    if (tags::splitLanguage(row.tag) || parts_.operations.labels.keepsLanguages(row.tagId)) return false;
    const panel::MetadataListModel& model = parts_.panel.model();
    for (int position = 0; position < model.rowCount(); ++position) {
        const tags::MetadataRow& other = model.row(position);
        const auto parted = tags::splitLanguage(other.tag);
        if (parted && parted->tag == row.tag && other.groupId == row.groupId) return true;
    }
    return false;
}

void EditingCommands::deleteAlone(const tags::MetadataRow& row, const fs::path& file) {
    const jobs::OperationParts parts = parts_.operations;
    const auto record = parts_.dictionary.FindTagById(static_cast<std::uint32_t>(row.tagId));
    if (!record) return;
    const auto [before, fault, refusal] =
        edit::contextOfRow(parts, app::CommandForm::Corrected, file, row, *record);
    if (!fault.isEmpty()) {
        tellNotRead(file, before.title, fault);
        return;
    }
    tags::TagEditContext after = before;
    after.value.clear();
    if (const QString kept = edit::refusalOfText(parts, app::CommandForm::Corrected, before, after);
        !kept.isEmpty()) {
        dialogs::showMessage(&parts_.window, {kept, dialogs::MessageIcon::Information});
        return;
    }
    app::CurrentEdit edit = edit::editOfRow(parts, app::CommandForm::Corrected, before, after, *record, -1);
    edit.value.clear();
    const QString done =
        parts_.language.formatted(edit::text::kDeleted, {row.tag, platform::display(file.filename())});
    begin(jobOf(file, edit), [this, done](const jobs::JobResult& result) { deletionEnded(result, done); });
}

void EditingCommands::deleteTag(app::CommandId) {
    const QModelIndex current = parts_.panel.list().currentIndex();
    if (!current.isValid()) return parts_.tellNothingChosen(edit::text::kNoRowChosen);
    if (!isPanelUpToDate()) return;
    const tags::MetadataRow row = parts_.panel.model().row(current.row());
    const app::CommandForm form = currentForm();
    if (form == app::CommandForm::Corrected &&
        taglists::addressesOf(parts_.operations, form, {row}).empty()) {
        parts_.showStatus(parts_.language.formatted(edit::text::kCannotBeDeleted, {row.tag}));
        return;
    }
    if (form == app::CommandForm::Corrected && tellIfItStandsTwice(row)) return;
    const fs::path file = parts_.panel.file();
    if (!isWritable(file) || !ending_.isReadyToBegin()) return;
    taglists::DialogDeleteATag dialog(parts_.operations, form, row, file, &parts_.window);
    if (dialog.run() != 1) return;
    if (form == app::CommandForm::Corrected && hasTranslationsBeside(row)) {
        deleteAlone(row, file);
        return;
    }
    const QString done =
        parts_.language.formatted(edit::text::kDeleted, {row.tag, platform::display(file.filename())});
    jobs::Job job = dialog.takeJob();
    if (job.files.empty()) return;
    begin(std::move(job), [this, done](const jobs::JobResult& result) { deletionEnded(result, done); });
}

void EditingCommands::deleteGroup(app::CommandId) {
    if (parts_.panel.rowsOfCurrentGroup().empty()) return parts_.tellNothingChosen(edit::text::kNoRowChosen);
    if (!isPanelUpToDate()) return;
    const std::vector<tags::MetadataRow> rows = parts_.panel.rowsOfCurrentGroup();
    const app::CommandForm form = currentForm();
    if (form == app::CommandForm::Corrected && taglists::addressesOf(parts_.operations, form, rows).empty()) {
        parts_.showStatus(parts_.language.formatted(edit::text::kCannotBeDeleted, {rows.front().group}));
        return;
    }
    const fs::path file = parts_.panel.file();
    if (!isWritable(file) || !ending_.isReadyToBegin()) return;
    taglists::DialogDeleteGroup_FromOneFile dialog(parts_.operations, form, rows, file, &parts_.window);
    if (dialog.run() != 1) return;
    const QString done = parts_.language.formatted(edit::text::kDeleted,
                                                   {rows.front().group, platform::display(file.filename())});
    jobs::Job job = dialog.takeJob();
    if (job.files.empty()) return;
    begin(std::move(job), [this, done](const jobs::JobResult& result) { deletionEnded(result, done); });
}

}  // namespace window
