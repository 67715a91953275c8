#include "app/MainWindow.h"
#include "app/MainWindowFeedback.h"
#include "app/Messages.h"
#include "app/ProgressDialog.h"
#include "edit/DialogDeleteATag.h"
#include "edit/DialogDeleteGroup_FromOneFile.h"
#include "edit/DisplayHexaDialog.h"
#include "edit/EditTexts.h"
#include "edit/PanelEdit.h"
#include "edit/ValueDialogs.h"
#include "edit/WriteTag.h"
#include "exiftool/ReportFile.h"
#include "platform/FileStamp.h"
#include "platform/Text.h"
#include "tags/MetadataPanel.h"

#include <QTimer>

namespace app {

namespace fs = std::filesystem;

void MainWindow::EditTagFromPanel(int rowIndex, bool altHeld) {
    if (progress_.isWaiting() || !isPanelUpToDate()) return;
    // Whatever reads the panel again takes the row away.
    const tags::MetadataRow row = metadataPanel_->model().row(rowIndex);
    const std::optional<tags::TagRecord> record =
        row.tagId < 0 ? std::nullopt : dictionary_.FindTagById(static_cast<std::uint32_t>(row.tagId));
    switch (edit::ActionOfClick(editParts(), row, record, altHeld)) {
        case edit::PanelAction::ViewText:
            viewRow(row, edit::DisplayHexaDialog::kPlainTemplate);
            break;
        case edit::PanelAction::ViewPicture:
            viewRow(row, edit::DisplayHexaDialog::kImageTemplate);
            break;
        case edit::PanelAction::EditValue:
            editRow(rowIndex, row, *record);
            break;
        case edit::PanelAction::TellNotInList:
            ShowStatus(language_.formatted(edit::text::kNotInList, {row.value}));
            break;
        case edit::PanelAction::Nothing:
            break;
    }
}

bool MainWindow::isPanelUpToDate() {
    const fs::path file = metadataPanel_->file();
    if (metadataPanel_->isFileUnchanged()) return true;
    const QString name = platform::display(file.filename());
    if (platform::StampOf(file).isFile()) {
        metadataPanel_->Refresh();
        ShowStatus(language_.formatted(edit::text::kFileChanged, {name}));
    } else {
        ShowMessage(
            this, {language_.formatted(edit::text::kFileGone, {platform::display(file)}), MessageIcon::Stop});
        clearMetadata(command::kClearMetadata);
    }
    return false;
}

void MainWindow::viewRow(const tags::MetadataRow& row, int templateNumber) {
    edit::TagEditContext view;
    view.filePath = metadataPanel_->file();
    view.value = row.stars && row.value.isEmpty() ? QString::number(*row.stars) : row.value;
    view.title = row.tag;
    view.group = row.group;
    view.tagId = row.tagId;
    if (edit::DisplayHexaDialog(editParts(), view, templateNumber, this).run() == 1)
        metadataPanel_->Refresh();
}

void MainWindow::editRow(int rowIndex, const tags::MetadataRow& row, const tags::TagRecord& record) {
    const edit::EditParts parts = editParts();
    const fs::path file = metadataPanel_->file();
    const edit::TagEditContext before = edit::ContextOfRow(parts, file, row, record);
    edit::TagEditContext after = before;
    if (edit::EditValue(parts, after, record.valueKind, this) != 1) return;
    if (edit::IsUnchanged(parts, before, after, record)) {
        ShowStatus(language_.formatted(edit::text::kUnchanged, {before.title}));
        return;
    }
    if (!mayWriteAfterAll(file)) return;
    context_.currentEdit = edit::EditOfRow(parts, before, after, record, rowIndex);
    writeEdit(file, context_.currentEdit);
}

bool MainWindow::mayWriteAfterAll(const fs::path& file) {
    if (!platform::StampOf(file).isFile()) return isPanelUpToDate();
    if (metadataPanel_->isFileUnchanged()) return true;
    return ShowMessage(this, {.text = language_.formatted(edit::text::kWriteNevertheless,
                                                          {platform::display(file.filename())}),
                              .icon = MessageIcon::Exclamation,
                              .buttons = QMessageBox::Yes | QMessageBox::No}) == QMessageBox::Yes;
}

void MainWindow::writeEdit(const fs::path& file, const CurrentEdit& edit) {
    static_cast<void>(exiftool::DeleteReport(context_));
    static_cast<void>(runner_.takeUntold());
    const bool corrected = context_.settings.exifTool.correctedCommands;
    runner_.CopyForSafety(file);
    const edit::TagWriteResult result = edit::WriteOneTag(context_, runner_, file, edit);
    if (result.code == 0 && result.complaint.isEmpty())
        metadataPanel_->ShowWrittenValue(edit.rowIndex, edit.value);
    tellWrite(result,
              language_.formatted(edit::text::kWritten, {edit.name, platform::display(file.filename())}));
    // What ExifTool has made of the value is known only when the file is read. The new value is seen before.
    if (corrected) readPanelAgainSoon();
}

bool MainWindow::tellWrite(const edit::TagWriteResult& result, const QString& done) {
    const QString file = platform::display(metadataPanel_->file().filename());
    if (runner_.wasStopped() && result.code == 1) {
        static_cast<void>(runner_.takeUntold());
        ShowStatus(language_.formatted(edit::text::kWriteStopped, {file}));
        return false;
    }
    if (!result.message.isEmpty())
        ShowMessage(this, {result.message, MessageIcon::Stop});
    else if (result.code == 1 || !result.complaint.isEmpty())
        ShowBatchReport();
    else if (result.code == 0)
        ShowStatus(done);
    return result.code == 0;
}

void MainWindow::readPanelAgainSoon() {
    QTimer::singleShot(0, this, [this, file = metadataPanel_->file()] {
        if (progress_.isWaiting() || metadataPanel_->file() != file) return;
        const QString status = StatusText();
        metadataPanel_->Refresh();
        ShowStatus(status);
    });
}

void MainWindow::deleteTag(CommandId) {
    const QModelIndex current = metadataPanel_->list().currentIndex();
    if (!current.isValid()) {
        ShowStatus(language_.text(edit::text::kNoRowChosen));
        return;
    }
    if (!isPanelUpToDate()) return;
    const tags::MetadataRow row = metadataPanel_->model().row(current.row());
    const bool corrected = context_.settings.exifTool.correctedCommands;
    if (corrected && edit::AddressesOf(editParts(), {row}).empty()) {
        ShowStatus(language_.formatted(edit::text::kCannotBeDeleted, {row.tag}));
        return;
    }
    const fs::path file = metadataPanel_->file();
    static_cast<void>(exiftool::DeleteReport(context_));
    static_cast<void>(runner_.takeUntold());
    edit::DialogDeleteATag dialog(editParts(), row, file, this);
    if (dialog.run() != 1) return;
    const QString done =
        language_.formatted(edit::text::kDeleted, {row.tag, platform::display(file.filename())});
    if (tellWrite(dialog.result(), done)) Dispatch(command::kReadFileAgain);
}

void MainWindow::deleteGroup(CommandId) {
    if (metadataPanel_->rowsOfCurrentGroup().empty()) {
        ShowStatus(language_.text(edit::text::kNoRowChosen));
        return;
    }
    if (!isPanelUpToDate()) return;
    const std::vector<tags::MetadataRow> rows = metadataPanel_->rowsOfCurrentGroup();
    const bool corrected = context_.settings.exifTool.correctedCommands;
    if (corrected && edit::AddressesOf(editParts(), rows).empty()) {
        ShowStatus(language_.formatted(edit::text::kCannotBeDeleted, {rows.front().group}));
        return;
    }
    const fs::path file = metadataPanel_->file();
    static_cast<void>(exiftool::DeleteReport(context_));
    static_cast<void>(runner_.takeUntold());
    edit::DialogDeleteGroup_FromOneFile dialog(editParts(), rows, file, this);
    if (dialog.run() != 1) return;
    const QString done =
        language_.formatted(edit::text::kDeleted, {rows.front().group, platform::display(file.filename())});
    if (tellWrite(dialog.result(), done)) Dispatch(command::kReadFileAgain);
}

void MainWindow::readFileAgain(CommandId) {
    const QString status = StatusText();
    metadataPanel_->Refresh();
    ShowStatus(status);
}

}  // namespace app
