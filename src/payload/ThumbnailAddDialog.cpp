#include "payload/ThumbnailAddDialog.h"

#include "dialogs/FileChooser.h"
#include "dialogs/Messages.h"
#include "payload/PayloadTexts.h"
#include "payload/ThumbnailWrite.h"
#include "platform/Text.h"

#include <QAbstractButton>
#include <QLineEdit>

namespace payload {

namespace fs = std::filesystem;

namespace {

enum Control { kPicture = 1321, kChoose = 1097 };

}  // namespace

ThumbnailAddDialog::ThumbnailAddDialog(const jobs::OperationParts& parts, std::vector<fs::path> files,
                                       QWidget* parent)
    : DarkModeDialogBase(parts.language, kTemplate, parent),
      parts_(parts),
      files_(std::move(files)),
      edit_(control<QLineEdit>(kPicture)) {
    const std::size_t count = files_.size();
    setWindowTitle(parts_.language.formatted(count == 1 ? text::kEmbedTitleOne : text::kEmbedTitle,
                                             {QString::number(count)}));
    if (auto* choose = control<QAbstractButton>(kChoose))
        connect(choose, &QAbstractButton::clicked, this, &ThumbnailAddDialog::choosePicture);
    if (edit_ != nullptr) edit_->setFocus();
}

void ThumbnailAddDialog::choosePicture() {
    fs::path start = picture();
    if (start.empty() && !files_.empty()) start = files_.front().parent_path();
    const fs::path file = dialogs::chooseFileToOpen(this, {.title = QStringLiteral("Select a JPEG file"),
                                                           .types = {QStringLiteral("JPEG (*.jpg *.jpeg)")},
                                                           .start = start});
    if (file.empty()) return;
    chosen_ = file;
    edit_->setText(platform::display(file));
}

fs::path ThumbnailAddDialog::picture() const {
    const QString text = edit_->text();
    return text == platform::display(chosen_) ? chosen_ : platform::pathFromText(text);
}

void ThumbnailAddDialog::accept() {
    if (!isJpegFile(picture())) {
        dialogs::showMessage(this, {parts_.language.formatted(text::kNoJpeg, {edit_->text()}),
                                    dialogs::MessageIcon::Exclamation});
        edit_->setFocus();
        return;
    }
    setJob(embedThumbnailJob(parts_.language.text(text::kEmbedProgress), picture(), files_));
    DarkModeDialogBase::accept();
}

}  // namespace payload
