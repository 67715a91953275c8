#include "payload/ExportDialogPayload.h"

#include "dialogs/FileChooser.h"
#include "dialogs/Messages.h"
#include "payload/PayloadTexts.h"
#include "platform/Text.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <utility>

namespace payload {

namespace fs = std::filesystem;

namespace {

enum Control { kFolder = 955, kChoose = 1097 };

}  // namespace

ExportDialogPayload::ExportDialogPayload(const jobs::OperationParts& parts, std::vector<fs::path> files,
                                         int templateNumber, QWidget* parent)
    : DarkModeDialogBase(parts.language, templateNumber, parent),
      parts_(parts),
      files_(std::move(files)),
      edit_(control<QLineEdit>(kFolder)) {
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
    PayloadExporter exporter(fs::absolute(folder(), error), files_);
    if (!decideAboutExisting(exporter, chosen)) return;
    parts_.context.settings.batch.defaultSavePath = edit_->text();
    setJob(exportPayloadsJob(jobTitle(chosen), std::move(exporter), chosen));
    DarkModeDialogBase::accept();
}

bool ExportDialogPayload::decideAboutExisting(PayloadExporter& exporter,
                                              const std::vector<PayloadExport>& chosen) {
    if (app::commandFormOf(parts_.context) == app::CommandForm::Designed) return true;
    const fs::path existing = exporter.firstExisting(chosen);
    if (existing.empty()) return true;
    const auto answer = dialogs::showMessage(
        this,
        {.text = parts_.language.formatted(text::kTargetExists, {platform::display(existing.filename())}),
         .icon = dialogs::MessageIcon::Question,
         .buttons = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel});
    exporter.setReplaceExisting(answer == QMessageBox::Yes);
    return answer != QMessageBox::Cancel;
}

QString ExportDialogPayload::jobTitle(const std::vector<PayloadExport>& chosen) const {
    if (chosen.size() > 1) return windowTitle();
    return parts_.language.formatted(text::kExportProgress, {platform::wide(chosen.front().tag)});
}

}  // namespace payload
