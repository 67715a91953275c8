#include "payload/ExportDialogPayload.h"

#include "dialogs/FileChooser.h"
#include "dialogs/Messages.h"
#include "exiftool/ReportFile.h"
#include "payload/PayloadTexts.h"
#include "payload/ThumbnailWrite.h"
#include "platform/Text.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <algorithm>
#include <utility>

namespace payload {

namespace fs = std::filesystem;

namespace {

enum Control { kFolder = 955, kChoose = 1097, kProgress = 1943 };

/// More names than these are left out of the report.
constexpr std::size_t kMostNames = 100;

}  // namespace

ExportDialogPayload::ExportDialogPayload(const jobs::OperationParts& parts, std::vector<fs::path> files,
                                         int templateNumber, QWidget* parent)
    : DarkModeDialogBase(parts.language, templateNumber, parent),
      parts_(parts),
      files_(std::move(files)),
      edit_(control<QLineEdit>(kFolder)),
      progressLabel_(control<QLabel>(kProgress)) {
    if (!hasForm()) return;
    if (auto* choose = control<QAbstractButton>(kChoose))
        connect(choose, &QAbstractButton::clicked, this, &ExportDialogPayload::chooseFolder);
    edit_->setText(parts_.context.settings.batch.defaultSavePath);
    edit_->setFocus();
}

void ExportDialogPayload::setTitle(int titleOfOne, int titleOfMore) {
    setWindowTitle(parts_.language.formatted(files_.size() == 1 ? titleOfOne : titleOfMore,
                                             {QString::number(files_.size())}));
}

void ExportDialogPayload::chooseFolder() {
    fs::path start = folder();
    std::error_code error;
    if (!fs::is_directory(start, error) && !files_.empty()) start = files_.front().parent_path();
    const fs::path chosen =
        dialogs::chooseFolder(this, parts_.language.text(text::kChooseExportFolder), start);
    if (chosen.empty()) return;
    chosen_ = chosen;
    edit_->setText(platform::display(chosen));
}

fs::path ExportDialogPayload::folder() const {
    const QString text = edit_->text();
    return text == platform::display(chosen_) ? chosen_ : platform::pathFromText(text);
}

void ExportDialogPayload::refuse(const QString& why) {
    dialogs::showMessage(this, {why, dialogs::MessageIcon::Exclamation});
}

void ExportDialogPayload::accept() {
    const std::vector<PayloadExport> chosen = payloads();
    if (chosen.empty()) return refuse(parts_.language.text(text::kNothingChosen));
    std::error_code error;
    if (!fs::is_directory(folder(), error)) {
        edit_->setFocus();
        return refuse(parts_.language.formatted(text::kNoSuchFolder, {edit_->text()}));
    }
    PayloadExporter exporter(parts_.context, parts_.runner, fs::absolute(folder(), error), files_);
    const fs::path existing =
        parts_.context.settings.exifTool.correctedCommands ? exporter.firstExisting(chosen) : fs::path();
    if (!existing.empty()) {
        const auto answer = dialogs::showMessage(
            this,
            {.text = parts_.language.formatted(text::kTargetExists, {platform::display(existing.filename())}),
             .icon = dialogs::MessageIcon::Question,
             .buttons = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel});
        if (answer == QMessageBox::Cancel) return;
        exporter.setReplaceExisting(answer == QMessageBox::Yes);
    }
    parts_.context.settings.batch.defaultSavePath = edit_->text();
    exportAll(exporter, chosen);
    DarkModeDialogBase::accept();
}

void ExportDialogPayload::exportAll(PayloadExporter& exporter, const std::vector<PayloadExport>& chosen) {
    const QString what =
        QString::fromUtf8(chosen.front().tag.data(), static_cast<qsizetype>(chosen.front().tag.size()));
    const jobs::FileProgressScope scope(
        parts_.progress,
        chosen.size() == 1 ? parts_.language.formatted(text::kExportProgress, {what}) : windowTitle(),
        chosen.size() * files_.size());
    std::size_t before = 0;
    for (const PayloadExport& payload : chosen) {
        if (!exportKind(exporter, payload, before)) return;
        before += files_.size();
    }
}

bool ExportDialogPayload::exportKind(PayloadExporter& exporter, const PayloadExport& payload,
                                     std::size_t before) {
    std::vector<fs::path> withoutData;
    bool goesOn = true;
    for (std::size_t index = 0; index < files_.size() && goesOn; ++index) {
        const fs::path& file = files_[index];
        progressLabel_->setText(
            app::formatText(u"%s  (%d / %u)", {platform::display(file.filename()), QString::number(index + 1),
                                               QString::number(files_.size())}));
        progressLabel_->repaint();
        goesOn = parts_.progress.showFile(file, before + index + 1);
        if (!goesOn) break;
        const PayloadExporter::Outcome outcome = exporter.Export(payload, file);
        if (outcome == PayloadExporter::Outcome::NoData) withoutData.push_back(file);
        if (outcome != PayloadExporter::Outcome::Stopped) continue;
        tellFilesLeft(parts_.context, files_.size() - index - 1);
        goesOn = false;
    }
    tellFilesWithoutData(payload, withoutData);
    return goesOn;
}

void ExportDialogPayload::tellFilesWithoutData(const PayloadExport& payload,
                                               const std::vector<fs::path>& withoutData) {
    if (withoutData.empty()) return;
    const QString what = QString::fromUtf8(payload.tag.data(), static_cast<qsizetype>(payload.tag.size()));
    const QString told = parts_.language.formatted(
        text::kFilesWithoutData, {QString::number(withoutData.size()), QString::number(files_.size()), what});
    exiftool::appendToReport(parts_.context, platform::narrow(told));
    for (std::size_t index = 0; index < std::min(kMostNames, withoutData.size()); ++index)
        exiftool::appendToReport(parts_.context, "    " + platform::narrow(withoutData[index].filename()));
    if (withoutData.size() > kMostNames) exiftool::appendToReport(parts_.context, "    ...");
}

}  // namespace payload
