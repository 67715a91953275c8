#include "dialogs/Messages.h"
#include "dialogs/ProgressDialog.h"
#include "edit/EditTexts.h"
#include "edit/PanelEdit.h"
#include "edit/ValueDialogs.h"
#include "exiftool/ReportFile.h"
#include "exiftool/WriteTag.h"
#include "panel/MetadataPanel.h"
#include "payload/DisplayHexaDialog.h"
#include "platform/FileStamp.h"
#include "platform/Text.h"
#include "taglists/DialogDeleteATag.h"
#include "taglists/DialogDeleteGroup_FromOneFile.h"
#include "window/MainWindow.h"
#include "window/MainWindowFeedback.h"

#include <QTimer>

namespace window {

namespace fs = std::filesystem;

void MainWindow::EditTagFromPanel(int rowIndex, bool altHeld) {
    if (progress_.isWaiting() || !isPanelUpToDate()) return;
    // Whatever reads the panel again takes the row away.
    const tags::MetadataRow row = metadataPanel_->model().row(rowIndex);
    const std::optional<tags::TagRecord> record =
        row.tagId < 0 ? std::nullopt : dictionary_.FindTagById(static_cast<std::uint32_t>(row.tagId));
    switch (edit::actionOfClick(editParts(), row, record, altHeld)) {
        case edit::PanelAction::ViewText:
            viewRow(row, payload::DisplayHexaDialog::kPlainTemplate);
            break;
        case edit::PanelAction::ViewPicture:
            viewRow(row, payload::DisplayHexaDialog::kImageTemplate);
            break;
        case edit::PanelAction::EditValue:
            editRow(rowIndex, row, *record);
            break;
        case edit::PanelAction::TellNotInList:
            showStatus(language_.formatted(edit::text::kNotInList, {row.value}));
            break;
        case edit::PanelAction::Nothing:
            break;
    }
}

bool MainWindow::isPanelUpToDate() {
    const fs::path file = metadataPanel_->file();
    if (metadataPanel_->isFileUnchanged()) return true;
    const QString name = platform::display(file.filename());
    if (platform::stampOf(file).isFile()) {
        metadataPanel_->Refresh();
        showStatus(language_.formatted(edit::text::kFileChanged, {name}));
    } else {
        dialogs::showMessage(this, {language_.formatted(edit::text::kFileGone, {platform::display(file)}),
                                    dialogs::MessageIcon::Stop});
        clearMetadata(app::command::kClearMetadata);
    }
    return false;
}

void MainWindow::viewRow(const tags::MetadataRow& row, int templateNumber) {
    tags::TagEditContext view;
    view.filePath = metadataPanel_->file();
    view.value = row.stars && row.value.isEmpty() ? QString::number(*row.stars) : row.value;
    view.title = row.tag;
    view.group = row.group;
    view.tagId = row.tagId;
    if (payload::DisplayHexaDialog(editParts(), view, templateNumber, this).run() == 1)
        metadataPanel_->Refresh();
}

void MainWindow::editRow(int rowIndex, const tags::MetadataRow& row, const tags::TagRecord& record) {
    const jobs::OperationParts parts = editParts();
    const fs::path file = metadataPanel_->file();
    const tags::TagEditContext before = edit::contextOfRow(parts, file, row, record);
    tags::TagEditContext after = before;
    if (edit::editValue(parts, after, record.valueKind, this) != 1) return;
    if (edit::isUnchanged(parts, before, after, record)) {
        showStatus(language_.formatted(edit::text::kUnchanged, {before.title}));
        return;
    }
    if (!mayWriteAfterAll(file)) return;
    context_.currentEdit = edit::editOfRow(parts, before, after, record, rowIndex);
    writeEdit(file, context_.currentEdit);
}

bool MainWindow::mayWriteAfterAll(const fs::path& file) {
    if (!platform::stampOf(file).isFile()) return isPanelUpToDate();
    if (metadataPanel_->isFileUnchanged()) return true;
    return dialogs::showMessage(this, {.text = language_.formatted(edit::text::kWriteNevertheless,
                                                                   {platform::display(file.filename())}),
                                       .icon = dialogs::MessageIcon::Exclamation,
                                       .buttons = QMessageBox::Yes | QMessageBox::No}) == QMessageBox::Yes;
}

void MainWindow::writeEdit(const fs::path& file, const app::CurrentEdit& edit) {
    static_cast<void>(exiftool::deleteReport(context_));
    static_cast<void>(runner_.takeUntold());
    const bool corrected = context_.settings.exifTool.correctedCommands;
    runner_.copyForSafety(file);
    const exiftool::TagWriteResult result = exiftool::WriteOneTag(context_, runner_, file, edit);
    if (result.code == 0 && result.complaint.isEmpty())
        metadataPanel_->showWrittenValue(edit.rowIndex, edit.value);
    tellWrite(result,
              language_.formatted(edit::text::kWritten, {edit.name, platform::display(file.filename())}));
    // What ExifTool has made of the value is known only when the file is read. The new value is seen before.
    if (corrected) readPanelAgainSoon();
}

bool MainWindow::tellWrite(const exiftool::TagWriteResult& result, const QString& done) {
    const QString file = platform::display(metadataPanel_->file().filename());
    if (runner_.wasStopped() && result.code == 1) {
        static_cast<void>(runner_.takeUntold());
        showStatus(language_.formatted(edit::text::kWriteStopped, {file}));
        return false;
    }
    if (!result.message.isEmpty())
        dialogs::showMessage(this, {result.message, dialogs::MessageIcon::Stop});
    else if (result.code == 1 || !result.complaint.isEmpty())
        ShowBatchReport();
    else if (result.code == 0)
        showStatus(done);
    return result.code == 0;
}

void MainWindow::readPanelAgainSoon() {
    QTimer::singleShot(0, this, [this, file = metadataPanel_->file()] {
        if (progress_.isWaiting() || metadataPanel_->file() != file) return;
        const QString status = statusText();
        metadataPanel_->Refresh();
        showStatus(status);
    });
}

void MainWindow::deleteTag(app::CommandId) {
    const QModelIndex current = metadataPanel_->list().currentIndex();
    if (!current.isValid()) {
        showStatus(language_.text(edit::text::kNoRowChosen));
        return;
    }
    if (!isPanelUpToDate()) return;
    const tags::MetadataRow row = metadataPanel_->model().row(current.row());
    const bool corrected = context_.settings.exifTool.correctedCommands;
    if (corrected && taglists::addressesOf(editParts(), {row}).empty()) {
        showStatus(language_.formatted(edit::text::kCannotBeDeleted, {row.tag}));
        return;
    }
    const fs::path file = metadataPanel_->file();
    static_cast<void>(exiftool::deleteReport(context_));
    static_cast<void>(runner_.takeUntold());
    taglists::DialogDeleteATag dialog(editParts(), row, file, this);
    if (dialog.run() != 1) return;
    const QString done =
        language_.formatted(edit::text::kDeleted, {row.tag, platform::display(file.filename())});
    if (tellWrite(dialog.result(), done)) Dispatch(app::command::kReadFileAgain);
}

void MainWindow::deleteGroup(app::CommandId) {
    if (metadataPanel_->rowsOfCurrentGroup().empty()) {
        showStatus(language_.text(edit::text::kNoRowChosen));
        return;
    }
    if (!isPanelUpToDate()) return;
    const std::vector<tags::MetadataRow> rows = metadataPanel_->rowsOfCurrentGroup();
    const bool corrected = context_.settings.exifTool.correctedCommands;
    if (corrected && taglists::addressesOf(editParts(), rows).empty()) {
        showStatus(language_.formatted(edit::text::kCannotBeDeleted, {rows.front().group}));
        return;
    }
    const fs::path file = metadataPanel_->file();
    static_cast<void>(exiftool::deleteReport(context_));
    static_cast<void>(runner_.takeUntold());
    taglists::DialogDeleteGroup_FromOneFile dialog(editParts(), rows, file, this);
    if (dialog.run() != 1) return;
    const QString done =
        language_.formatted(edit::text::kDeleted, {rows.front().group, platform::display(file.filename())});
    if (tellWrite(dialog.result(), done)) Dispatch(app::command::kReadFileAgain);
}

void MainWindow::readFileAgain(app::CommandId) {
    const QString status = statusText();
    metadataPanel_->Refresh();
    showStatus(status);
}

}  // namespace window
