#include "edit/CopyTagsDialog.h"

#include "app/FileChooser.h"
#include "app/Messages.h"
#include "edit/RemovalTexts.h"
#include "edit/Removals.h"
#include "platform/Text.h"

#include <QAbstractButton>
#include <QLineEdit>

namespace edit {

namespace fs = std::filesystem;

namespace {

enum Control { kSource = 1321, kChoose = 1097, kExif = 1008, kIptc = 1009, kXmp = 1011 };

}  // namespace

CopyTagsDialog::CopyTagsDialog(const EditParts& parts, std::vector<fs::path> files, QWidget* parent)
    : DarkModeDialogBase(parts.language, kTemplate, parent),
      parts_(parts),
      files_(std::move(files)),
      edit_(control<QLineEdit>(kSource)) {
    setWindowTitle(parts_.language.formatted(text::kCopyTags, {FilesText(parts_.language, files_.size())}));
    if (auto* choose = control<QAbstractButton>(kChoose))
        connect(choose, &QAbstractButton::clicked, this, &CopyTagsDialog::chooseSource);
    if (edit_ != nullptr) edit_->setFocus();
}

void CopyTagsDialog::chooseSource() {
    app::FileQuestion question;
    question.title = parts_.language.text(text::kChooseSource);
    question.start = source();
    if (question.start.empty() && !files_.empty()) question.start = files_.front().parent_path();
    const fs::path file = app::ChooseFileToOpen(this, question);
    if (file.empty()) return;
    chosen_ = file;
    edit_->setText(platform::display(file));
}

fs::path CopyTagsDialog::source() const {
    const QString text = edit_->text();
    return text == platform::display(chosen_) ? chosen_ : platform::pathFromText(text);
}

exiftool::CopiedFamilies CopyTagsDialog::families() const {
    const auto isTicked = [this](int controlId) {
        const auto* box = control<QAbstractButton>(controlId);
        return box != nullptr && box->isChecked();
    };
    return {isTicked(kExif), isTicked(kIptc), isTicked(kXmp)};
}

void CopyTagsDialog::accept() {
    const fs::path from = source();
    const exiftool::CopiedFamilies chosen = families();
    std::error_code error;
    const int refusal =
        CopyRefusal(fs::is_regular_file(from, error), chosen.exif || chosen.iptc || chosen.xmp);
    if (refusal != 0) {
        app::ShowMessage(
            this, {parts_.language.formatted(refusal, {edit_->text()}), app::MessageIcon::Exclamation});
        return;
    }
    CopyTags(parts_, windowTitle(), chosen, from, files_);
    DarkModeDialogBase::accept();
}

}  // namespace edit
