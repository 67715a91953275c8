#include "taglists/CopyTagsDialog.h"

#include "dialogs/FileChooser.h"
#include "dialogs/Messages.h"
#include "platform/Text.h"
#include "taglists/RemovalTexts.h"
#include "taglists/Removals.h"

#include <QAbstractButton>
#include <QLineEdit>

namespace taglists {

namespace fs = std::filesystem;

namespace {

enum Control { kSource = 1321, kChoose = 1097, kExif = 1008, kIptc = 1009, kXmp = 1011 };

}  // namespace

CopyTagsDialog::CopyTagsDialog(const jobs::OperationParts& parts, std::vector<fs::path> files,
                               QWidget* parent)
    : DarkModeDialogBase(parts.language, kTemplate, parent),
      parts_(parts),
      files_(std::move(files)),
      edit_(control<QLineEdit>(kSource)) {
    setWindowTitle(parts_.language.formatted(text::kCopyTags, {filesText(parts_.language, files_.size())}));
    if (auto* choose = control<QAbstractButton>(kChoose))
        connect(choose, &QAbstractButton::clicked, this, &CopyTagsDialog::chooseSource);
    if (edit_ != nullptr) edit_->setFocus();
}

void CopyTagsDialog::chooseSource() {
    dialogs::FileQuestion question;
    question.title = parts_.language.text(text::kChooseSource);
    question.start = source();
    if (question.start.empty() && !files_.empty()) question.start = files_.front().parent_path();
    const fs::path file = dialogs::chooseFileToOpen(this, question);
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
        copyRefusal(fs::is_regular_file(from, error), chosen.exif || chosen.iptc || chosen.xmp);
    if (refusal != 0) {
        dialogs::showMessage(
            this, {parts_.language.formatted(refusal, {edit_->text()}), dialogs::MessageIcon::Exclamation});
        return;
    }
    setJob(copyTagsJob(windowTitle(), chosen, from, files_));
    DarkModeDialogBase::accept();
}

}  // namespace taglists
