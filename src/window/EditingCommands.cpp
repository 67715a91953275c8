#include "window/EditingCommands.h"

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
#include "window/OperationEnding.h"
#include "window/ReadingCommands.h"
#include "window/StatusBar.h"

#include <QTimer>

namespace window {

namespace fs = std::filesystem;

std::span<const CommandRow<EditingCommands>> EditingCommands::rows() {
    using namespace app::command;
    static constexpr CommandRow<EditingCommands> kRows[] = {
        {kRemoveGroupFromFile, kRemoveGroupFromFile, &EditingCommands::deleteGroup},
        {kDeleteTag, kDeleteTag, &EditingCommands::deleteTag},
        {kDeleteGroup, kDeleteGroup, &EditingCommands::deleteGroup},
    };
    return kRows;
}

void EditingCommands::EditTagFromPanel(int rowIndex, bool altHeld) {
    if (parts_.progress.isWaiting() || !isPanelUpToDate()) return;
    // Whatever reads the panel again takes the row away.
    const tags::MetadataRow row = parts_.panel.model().row(rowIndex);
    const std::optional<tags::TagRecord> record =
        row.tagId < 0 ? std::nullopt : parts_.dictionary.FindTagById(static_cast<std::uint32_t>(row.tagId));
    switch (edit::actionOfClick(parts_.operations, row, record, altHeld)) {
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
            parts_.showStatus(parts_.language.formatted(edit::text::kNotInList, {row.value}));
            break;
        case edit::PanelAction::Nothing:
            break;
    }
}

bool EditingCommands::isPanelUpToDate() {
    const fs::path file = parts_.panel.file();
    if (parts_.panel.isFileUnchanged()) return true;
    const QString name = platform::display(file.filename());
    if (platform::stampOf(file).isFile()) {
        parts_.panel.Refresh();
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
    if (payload::DisplayHexaDialog(parts_.operations, view, templateNumber, &parts_.window).run() == 1)
        parts_.panel.Refresh();
}

void EditingCommands::editRow(int rowIndex, const tags::MetadataRow& row, const tags::TagRecord& record) {
    const jobs::OperationParts parts = parts_.operations;
    const fs::path file = parts_.panel.file();
    const tags::TagEditContext before = edit::contextOfRow(parts, file, row, record);
    tags::TagEditContext after = before;
    if (edit::editValue(parts, after, record.valueKind, &parts_.window) != 1) return;
    if (edit::isUnchanged(parts, before, after, record)) {
        parts_.showStatus(parts_.language.formatted(edit::text::kUnchanged, {before.title}));
        return;
    }
    if (!mayWriteAfterAll(file)) return;
    parts_.context.currentEdit = edit::editOfRow(parts, before, after, record, rowIndex);
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
    static_cast<void>(exiftool::deleteReport(parts_.context));
    static_cast<void>(parts_.runner.takeUntold());
    const bool corrected = parts_.context.settings.exifTool.correctedCommands;
    parts_.runner.copyForSafety(file);
    const exiftool::TagWriteResult result = exiftool::WriteOneTag(parts_.context, parts_.runner, file, edit);
    if (result.code == 0 && result.complaint.isEmpty())
        parts_.panel.showWrittenValue(edit.rowIndex, edit.value);
    tellWrite(result, parts_.language.formatted(edit::text::kWritten,
                                                {edit.name, platform::display(file.filename())}));
    // What ExifTool has made of the value is known only when the file is read. The new value is seen before.
    if (corrected) readPanelAgainSoon();
}

bool EditingCommands::tellWrite(const exiftool::TagWriteResult& result, const QString& done) {
    const QString file = platform::display(parts_.panel.file().filename());
    if (parts_.runner.wasStopped() && result.code == 1) {
        static_cast<void>(parts_.runner.takeUntold());
        parts_.showStatus(parts_.language.formatted(edit::text::kWriteStopped, {file}));
        return false;
    }
    if (!result.message.isEmpty())
        dialogs::showMessage(&parts_.window, {result.message, dialogs::MessageIcon::Stop});
    else if (result.code == 1 || !result.complaint.isEmpty())
        ending_.ShowBatchReport();
    else if (result.code == 0)
        parts_.showStatus(done);
    return result.code == 0;
}

void EditingCommands::readPanelAgainSoon() {
    QTimer::singleShot(0, &parts_.window, [this, file = parts_.panel.file()] {
        if (parts_.progress.isWaiting() || parts_.panel.file() != file) return;
        const QString status = parts_.statusBar.statusText();
        parts_.panel.Refresh();
        parts_.showStatus(status);
    });
}

void EditingCommands::deleteTag(app::CommandId) {
    const QModelIndex current = parts_.panel.list().currentIndex();
    if (!current.isValid()) {
        parts_.showStatus(parts_.language.text(edit::text::kNoRowChosen));
        return;
    }
    if (!isPanelUpToDate()) return;
    const tags::MetadataRow row = parts_.panel.model().row(current.row());
    const bool corrected = parts_.context.settings.exifTool.correctedCommands;
    if (corrected && taglists::addressesOf(parts_.operations, {row}).empty()) {
        parts_.showStatus(parts_.language.formatted(edit::text::kCannotBeDeleted, {row.tag}));
        return;
    }
    const fs::path file = parts_.panel.file();
    static_cast<void>(exiftool::deleteReport(parts_.context));
    static_cast<void>(parts_.runner.takeUntold());
    taglists::DialogDeleteATag dialog(parts_.operations, row, file, &parts_.window);
    if (dialog.run() != 1) return;
    const QString done =
        parts_.language.formatted(edit::text::kDeleted, {row.tag, platform::display(file.filename())});
    if (tellWrite(dialog.result(), done)) reading_.readFileAgain(app::command::kReadFileAgain);
}

void EditingCommands::deleteGroup(app::CommandId) {
    if (parts_.panel.rowsOfCurrentGroup().empty()) {
        parts_.showStatus(parts_.language.text(edit::text::kNoRowChosen));
        return;
    }
    if (!isPanelUpToDate()) return;
    const std::vector<tags::MetadataRow> rows = parts_.panel.rowsOfCurrentGroup();
    const bool corrected = parts_.context.settings.exifTool.correctedCommands;
    if (corrected && taglists::addressesOf(parts_.operations, rows).empty()) {
        parts_.showStatus(parts_.language.formatted(edit::text::kCannotBeDeleted, {rows.front().group}));
        return;
    }
    const fs::path file = parts_.panel.file();
    static_cast<void>(exiftool::deleteReport(parts_.context));
    static_cast<void>(parts_.runner.takeUntold());
    taglists::DialogDeleteGroup_FromOneFile dialog(parts_.operations, rows, file, &parts_.window);
    if (dialog.run() != 1) return;
    const QString done = parts_.language.formatted(edit::text::kDeleted,
                                                   {rows.front().group, platform::display(file.filename())});
    if (tellWrite(dialog.result(), done)) reading_.readFileAgain(app::command::kReadFileAgain);
}

}  // namespace window
